#include <algorithm>

#include "Gate.h"
#include "Proxies.h"
#include "Tuning.h"

namespace desktop {

namespace {

enum SourceState { kShown = 0, kTuning = 1, kOff = 2 };

constexpr int kMiddle = 32;

class SourceControl : public ISourceControl {
 public:
  explicit SourceControl(EProfile profile) : m_profile(profile) {}

  int GetSource(int& source) override {
    return Gate::Pass<int>(op::SourceControl_GetSource, Entry(m_profile), [&](Entry& entry) {
      Query q("SELECT source FROM picture WHERE profile = ?", m_profile);
      if (!q.Row()) return -1;
      source = static_cast<int>(q.Int(0));
      entry.Out(source);
      return 1;
    });
  }

  int GetSourceState(int& state) override {
    return Gate::Pass<int>(op::SourceControl_GetSourceState, Entry(m_profile), [&](Entry& entry) {
      Query q("SELECT active, source FROM picture WHERE profile = ?", m_profile);
      if (!q.Row()) return -1;
      const bool tuning = q.Int(1) == SOURCE_TYPE_TV && !ReadTuner(m_profile).tuned;
      state = !q.Int(0) ? kOff : tuning ? kTuning : kShown;
      entry.Out(state);
      return 1;
    });
  }

  int SetSource(int source, unsigned long long serviceId, const char* caller) override {
    return Gate::Pass<int>(op::SourceControl_SetSource, Entry(m_profile, source, serviceId, caller), [&](Entry&) {
      bool done = true;
      Store::Get().Write([&] {
        Query("UPDATE picture SET source = ?, active = 1 WHERE profile = ?", source, m_profile).Run();
        if (source == SOURCE_TYPE_TV) done = BeginTune(m_profile, serviceId);
      });
      return done ? 0 : -1;
    });
  }

  int DeactivateSource() override {
    return Gate::Pass<int>(op::SourceControl_DeactivateSource, Entry(m_profile), [&](Entry&) {
      int changed = 0;
      Store::Get().Write([&] { changed = Query("UPDATE picture SET active = 0 WHERE profile = ?", m_profile).Run(); });
      return changed > 0 ? 1 : 0;
    });
  }

  int SourceLockStatus(unsigned char& locked) override {
    return Gate::Pass<int>(op::SourceControl_SourceLockStatus, Entry(m_profile), [&](Entry& entry) {
      locked = ReadTuner(m_profile).locked ? 1 : 0;
      entry.Out(locked);
      return 1;
    });
  }

  int GetWeakSignalHistory(std::vector<std::string>& entries) override {
    return Gate::Pass<int>(op::SourceControl_GetWeakSignalHistory, Entry(m_profile), [&](Entry& entry) {
      std::vector<std::string> found;
      Query q("SELECT entry FROM weak_signal ORDER BY seq");
      while (q.Row()) found.push_back(q.Text(0));
      entries = std::move(found);
      entry.Out(entries.size());
      return 1;
    });
  }

 private:
  EProfile m_profile;
};

class TunerControl : public ITunerControl {
 public:
  explicit TunerControl(EProfile profile) : m_profile(profile) {}

  int GetSignalStrength(int option, unsigned char& strength) override {
    return Gate::Pass<int>(op::TunerControl_GetSignalStrength, Entry(m_profile, option), [&](Entry& entry) {
      strength = static_cast<unsigned char>(std::clamp(ReadTuner(m_profile).strength, 0, 100));
      entry.Out(strength);
      return 1;
    });
  }

  int GetSignalQuality(unsigned char& quality) override {
    return Gate::Pass<int>(op::TunerControl_GetSignalQuality, Entry(m_profile), [&](Entry& entry) {
      quality = static_cast<unsigned char>(std::clamp(ReadTuner(m_profile).quality, 0, 100));
      entry.Out(quality);
      return 1;
    });
  }

  int GetSignalKind(ESignalKind& kind) override {
    return Gate::Pass<int>(op::TunerControl_GetSignalKind, Entry(m_profile), [&](Entry& entry) {
      kind = ReadTuner(m_profile).kind;
      entry.Out(kind);
      return 1;
    });
  }

  int GetBER(int& ber) override {
    return Gate::Pass<int>(op::TunerControl_GetBER, Entry(m_profile), [&](Entry& entry) {
      ber = ReadTuner(m_profile).ber;
      entry.Out(ber);
      return 1;
    });
  }

  int GetSNR(int& snr) override {
    return Gate::Pass<int>(op::TunerControl_GetSNR, Entry(m_profile), [&](Entry& entry) {
      snr = ReadTuner(m_profile).snr;
      entry.Out(snr);
      return 1;
    });
  }

  int ResetMFT() override {
    return Gate::Pass<int>(op::TunerControl_ResetMFT, Entry(m_profile), [&](Entry&) {
      return Change("DELETE FROM fine_tune WHERE service = (SELECT service FROM picture WHERE profile = ?1)") &&
             Change("UPDATE picture SET fine_tune = NULL WHERE profile = ?1");
    });
  }

  int PresetMFT(unsigned char offset) override {
    return Gate::Pass<int>(op::TunerControl_PresetMFT, Entry(m_profile, offset), [&](Entry&) {
      Store::Get().Write([&] { Query("UPDATE picture SET fine_tune = ? WHERE profile = ?", offset, m_profile).Run(); });
      return 1;
    });
  }

  int SetMFT() override {
    return Gate::Pass<int>(op::TunerControl_SetMFT, Entry(m_profile), [&](Entry&) {
      return Change(
          "REPLACE INTO fine_tune SELECT service, fine_tune FROM picture WHERE profile = ?1 AND service NOT NULL AND "
          "fine_tune NOT NULL");
    });
  }

  int GetMFT(unsigned char& offset) override {
    return Gate::Pass<int>(op::TunerControl_GetMFT, Entry(m_profile), [&](Entry& entry) {
      Query q(
          "SELECT coalesce(p.fine_tune, f.offset) FROM picture p LEFT JOIN fine_tune f ON f.service = p.service "
          "WHERE p.profile = ?",
          m_profile);
      if (!q.Row()) return 0;
      offset = static_cast<unsigned char>(q.IsNull(0) ? kMiddle : q.Int(0));
      entry.Out(offset);
      return 1;
    });
  }

 private:
  int Change(const char* sql) {
    Store::Get().Write([&] { Query(sql, m_profile).Run(); });
    return 1;
  }

  EProfile m_profile;
};

}  // namespace

std::unique_ptr<ITVSProxy> MakeSourceControl(EProfile profile) { return std::make_unique<SourceControl>(profile); }

std::unique_ptr<ITVSProxy> MakeTunerControl(EProfile profile) { return std::make_unique<TunerControl>(profile); }

}  // namespace desktop
