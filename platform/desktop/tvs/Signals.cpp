// Signals of the service to whoever subscribed in this process.
#include <algorithm>
#include <climits>
#include <vector>

#include "Gate.h"
#include "State.h"
#include "Tuning.h"

namespace desktop {

namespace {

struct Subscription {
  int profile;
  TVServiceAPI::SignalCallback callback;
  bool operator==(const Subscription&) const = default;
};

struct Seen {
  int profile;
  int64_t began;
};

struct Listeners {
  std::vector<Subscription> subscriptions;
  /// The tunes that the subscribers have been told of.
  Seen seen[2] = {{PROFILE_MAIN, 0}, {PROFILE_PIP, 0}};
  TuneWaker wake = nullptr;
};

Listeners& L() {
  static Listeners listeners;
  return listeners;
}

void Tell(int profile) {
  TSSignalData data;
  Query q("SELECT service FROM picture WHERE profile = ?", profile);
  if (q.Row()) data.serviceId = static_cast<unsigned long long>(q.Int(0));
  const auto subscriptions = L().subscriptions;
  for (const Subscription& subscription : subscriptions) {
    if (subscription.profile != 0 && subscription.profile != profile) continue;
    subscription.callback(SIGNAL_TUNE_SUCCESS, static_cast<EProfile>(profile), 0, data, nullptr);
  }
}

/// A subscriber is told of the tunes that have not ended yet.
void ForgetEnded() {
  for (Seen& seen : L().seen) {
    const TuneTimes last = LastTune(seen.profile);
    if (NowMilliseconds() >= last.ends) seen.began = last.began;
  }
}

class SignalSubscriber : public TVServiceAPI::ISignalSubscriber {
 public:
  int Subscribe(ESignalType signal, int profile, int option1, int option2,
                TVServiceAPI::SignalCallback callback) override {
    return Gate::Pass<int>(op::SignalSubscriber_Subscribe, Entry(signal, profile, option1, option2), [&](Entry&) {
      if (signal != SIGNAL_TUNE_SUCCESS || !callback) return 0;
      if (L().subscriptions.empty()) ForgetEnded();
      L().subscriptions.push_back({profile, callback});
      DeliverTunes();
      return 1;
    });
  }

  int Unsubscribe(ESignalType signal, int option1, int option2, TVServiceAPI::SignalCallback callback) override {
    return Gate::Pass<int>(op::SignalSubscriber_Unsubscribe, Entry(signal, option1, option2), [&](Entry&) {
      const auto gone = std::erase_if(L().subscriptions, [&](const Subscription& s) { return s.callback == callback; });
      return gone > 0 ? 1 : 0;
    });
  }
};

}  // namespace

void SetTuneWaker(TuneWaker wake) { L().wake = wake; }

void DeliverTunes() {
  if (L().subscriptions.empty()) return;
  int64_t next = INT_MAX;
  for (Seen& seen : L().seen) {
    const TuneTimes last = LastTune(seen.profile);
    if (last.began == seen.began) continue;
    const int64_t left = last.ends - NowMilliseconds();
    if (left > 0) {
      next = std::min(next, left);
      continue;
    }
    seen.began = last.began;
    if (ReadTuner(seen.profile).locked) Tell(seen.profile);
  }
  if (next < INT_MAX && L().wake) L().wake(static_cast<int>(next));
}

}  // namespace desktop

using namespace desktop;

int TVServiceAPI::CreateSignalSubscriber(SignalCallback callback, ISignalSubscriber** subscriber) {
  return Gate::Pass<int>(op::CreateSignalSubscriber, Entry(callback != nullptr), [&](Entry&) {
    *subscriber = new SignalSubscriber;
    return 1;
  });
}
