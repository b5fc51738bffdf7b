// Every public operation with every platform call of it failing, in each of its ways, once and for good.
#include <cstdio>
#include <map>
#include <set>

#include "Gate.h"
#include "TvsTest.h"

namespace test {

namespace {

struct Answer {
  std::string result;
  std::vector<std::string> log;
};

Answer RunOn(const PublicOperation& operation) {
  Answer outcome;
  ForgetKept();
  InTransaction([&] {
    TakeLog();
    outcome.result = operation.run();
    outcome.log = TakeLog();
  });
  ForgetKept();
  return outcome;
}

/// Platform calls of a healthy run, in order.
std::vector<const desktop::Operation*> Calls(const PublicOperation& operation, Answer& healthy) {
  std::vector<const desktop::Operation*> calls;
  desktop::Gate::Watch([&](const desktop::Operation& call, const desktop::Entry&, const std::string&) {
    if (!call.failures.empty()) calls.push_back(&call);
  });
  healthy = RunOn(operation);
  desktop::Gate::Watch(nullptr);
  return calls;
}

class SweepTest : public TvsTest {
 protected:
  SweepTest() {
    // Not the list's first channel, so that going back to it shows.
    Change("UPDATE picture SET (service, transponder) = (SELECT id, transponder FROM service WHERE id = 300) WHERE profile = 1");
  }
};

}  // namespace

TEST_F(SweepTest, Print) {
  OtherProcess other(m_tv.Path());
  for (const PublicOperation& operation : PublicOperations()) {
    Answer healthy;
    const auto calls = Calls(operation, healthy);
    std::printf("%s = %s (%zu calls)\n", operation.name.c_str(), healthy.result.c_str(), calls.size());
    for (const desktop::Operation* call : std::set<const desktop::Operation*>(calls.begin(), calls.end())) {
      for (const char* failure : call->failures) {
        other.Execute(std::string("INSERT INTO fault VALUES ('") + call->name + "', '" + failure + "', NULL)");
        const Answer faulty = RunOn(operation);
        other.Execute("DELETE FROM fault");
        std::string news;
        for (const std::string& line : faulty.log) if (!Contains(healthy.log, line)) news += " | " + line;
        if (faulty.result != operation.failure || news.empty())
          std::printf("    %s=%s -> %s%s\n", call->name, failure, faulty.result.c_str(), news.c_str());
      }
    }
  }
}

}  // namespace test
