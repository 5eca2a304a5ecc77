#include "catalogue/listing.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kestrune::catalogue {

using test::FakeMachine;
using test::MachineKind;

namespace {

constexpr std::size_t kWidth = 100;

}  // namespace

void Listing::Line(std::string_view what, const std::string& result) {
  text_ << what << " -> " << result << "\n";
}

void Listing::Line(std::string_view what, const std::vector<std::string>& results,
                   const std::vector<std::string>& names) {
  std::vector<std::string> changes;
  std::string before;
  for (std::size_t i = 0; i < results.size(); ++i) {
    if (results[i].empty() || results[i] == before) continue;
    before = results[i];
    changes.push_back(names[i] + ": " + before);
  }
  if (changes.size() <= 1) {
    Line(what, before);
    return;
  }
  const std::string line = test::Joined(changes, "; ");
  if (what.size() + line.size() <= kWidth) {
    Line(what, line);
    return;
  }
  text_ << what << " ->\n      " << test::Joined(changes, "\n      ") << "\n";
}

Machines::Started::Started(const MachineKind& kind,
                           const std::function<void(FakeMachine&)>& prepare)
    : machine((kind)), driven([&]() -> FakeMachine& {
        if (prepare) prepare(machine);
        return machine;
      }()) {
  machine.TakeTrace();
}

Machines::Machines(const std::function<void(FakeMachine&)>& prepare) {
  for (const MachineKind& kind : Kinds()) {
    started_.push_back(std::make_unique<Started>(kind, prepare));
  }
}

std::vector<std::string> Machines::Each(const Act& act) {
  std::vector<std::string> results;
  for (const auto& each : started_) results.push_back(act(each->machine, each->driven));
  return results;
}

const std::vector<MachineKind>& Machines::Kinds() {
  static const std::vector<MachineKind> kKinds = {
      {0, 2280}, {0, 2281}, {0, 4500}, {0, 5001}, {0, 7701}, {1, 4040}, {1, 4041},
      {2, 4102}, {2, 4103}, {2, 4999}, {3, 5000}, {3, 5001}, {3, 5499}, {3, 5500},
      {3, 5999}, {3, 6000}, {3, 6001}, {3, 6100}, {3, 6101}, {3, 6999}, {3, 7000},
      {3, 7001}, {3, 7700}, {3, 7701}, {4, 9700}};
  return kKinds;
}

const std::vector<std::string>& Machines::Names() {
  static const std::vector<std::string> kNames = [] {
    constexpr const char* kSystems[] = {"98", "NT", "2000", "XP", "Vista"};
    std::vector<std::string> names;
    for (const MachineKind& kind : Kinds()) {
      names.push_back(std::string(kSystems[kind.family]) + "-" + std::to_string(kind.driver));
    }
    return names;
  }();
  return kNames;
}

}  // namespace kestrune::catalogue
