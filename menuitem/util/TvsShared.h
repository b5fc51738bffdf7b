// What `CTvsUtil` and `ChannelUtil` do alike: the reading and tuning behind their operations. Nothing here
// keeps anything.
#pragma once

#include "TvsUtil.h"

namespace tvs {

inline EProfile Picture(bool pip) { return pip ? PROFILE_PIP : PROFILE_MAIN; }

int ReadModes(TSTvMode* mode, ENavigationMode* navi, bool pip);
/// Every column of a record.
int FullCriteria(TCCriteriaHelper& out, const TSTvMode& mode);
int ShortCriteria(TCCriteriaHelper& out, const TSTvMode& mode);

/// Whether the sub picture is on screen.
bool IsPipShown();

/// Messages of `ReadCurrent`, which differ with who reads.
struct ReadMessages {
  void (*noNavigation)(bool pip);
  void (*noService)();
};
/// The current service of a picture. A sub picture that is not shown is asked for by its service.
bool ReadCurrent(const TSTvMode& mode, TCCriteriaHelper& criteria, bool pip, const ReadMessages& messages,
                 TCServiceData& data);

using SymbolRateReader = unsigned short (*)(TCServiceData*, unsigned short, EProfile);
void FillRecord(tvs_ch_info* record, TCServiceData* data, SymbolRateReader symbolRate);
/// Type, flags, lock and ID only.
void FillBasics(tvs_ch_info& record, const TCServiceData& data);
/// The current channel as a new record, or null.
tvs_ch_info* NewRecord(const TSTvMode& mode, TCCriteriaHelper& criteria, bool pip, const ReadMessages& messages,
                       SymbolRateReader symbolRate);
unsigned short SymbolRate(TCServiceData* data, unsigned short channelNumber, ESignalKind kind);

using CriteriaReader = int (*)(TCCriteriaHelper&, TSTvMode*, bool);
int ReadServiceId(unsigned long long& id, bool pip, CriteriaReader criteria);
int TuneService(unsigned long long id, bool pip);
/// Back to the tuner on the service that `serviceId` reads.
bool BackToTuner(int (*serviceId)(unsigned long long&, bool));
int ReadMainSource();

bool ReadSignalKind(ESignalKind& kind);
int ReadStrength();
int ReadQuality();

/// The layout rule. `record` gives the main channel; `release` takes it back.
CTvsUtil::SIGNAL_INFO_TYPE InfoType(tvs_ch_info* (*record)(), void (*release)(tvs_ch_info*));

int BandWidthFromText(const char* text);
/// One step of a frequency within its range, or of a bandwidth code.
int StepFrequency(int value, MenuKeyDirection direction);
int StepBandWidth(int value, MenuKeyDirection direction, bool nordic);
bool AcceptsBandWidth(int code, bool nordic);

/// A retuning of the main picture. `atOnce`: both proxies are made before anything is read, and the same
/// frequency is enough to leave all as it is.
struct Retuning {
  CriteriaReader criteria;
  int (*setService)(unsigned long long, bool);
  bool atOnce;
};
/// 0, -1, or 1 where nothing was touched.
int Retune(const Retuning& how, EBandwidth band, int freq);

}  // namespace tvs
