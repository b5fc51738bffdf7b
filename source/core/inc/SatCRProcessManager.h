// One detection or verification of a single-cable slot, from its start to its stop.
#pragma once

#include "tvs_types.h"

class CSatCRProcessManager {
 public:
  CSatCRProcessManager() = default;
  virtual ~CSatCRProcessManager() = default;

  /// 1 and 2 detect the slot of the first and the second tuner, 3 and 4 verify what they have stored; 0 is not set.
  void SetProcessType(int type) { m_nProcessType = type; }
  int GetProcessType() const { return m_nProcessType; }

  /// Whether the command was sent.
  bool Start();
  /// `progress` in percent; it keeps its value when there is no status. Remembers the frequency that is reported.
  void GetSatCRProcessStatus(unsigned char& progress);
  /// To be asked once the progress has reached 100.
  bool IsSatCRCommandSuccess();
  /// Ends the run, whatever came of it, and stores a frequency that was reported.
  void Stop();

 private:
  bool m_SendSatCRCommand(int tunerId, ESatCRCommand command);
  int m_GetTunerId() const;
  bool m_IsDetection() const;
  bool m_IsVerified() const;
  void m_StoreFrequency() const;

  int m_nProcessType = 0;
  int m_nSlotFrequency = -1;
};
