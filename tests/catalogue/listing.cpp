#include "catalogue/listing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace kestrune::catalogue {

using test::FakeMachine;
using test::MachineKind;

namespace {

constexpr std::size_t kWidth = 100;
constexpr std::int32_t kPatterns = 10000;  ///< from here on numbers are bit patterns

/// The number that a value's data stand for; nothing for other data.
std::optional<std::int32_t> NumberOf(const std::string& data) {
  unsigned bytes[4];
  int number = 0;
  char rest = 0;
  if (std::sscanf(data.c_str(), "REG_DWORD %d%c", &number, &rest) == 1) return number;
  if (std::sscanf(data.c_str(), "REG_BINARY %x %x %x %x%c", &bytes[0], &bytes[1], &bytes[2],
                  &bytes[3], &rest) != 4) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(bytes[0] | bytes[1] << 8 | bytes[2] << 16 | bytes[3] << 24);
}

/// Key and name of a value, the key in short where it is one of the driver's or the program's.
std::string ShortPlace(const FakeMachine& machine, const std::string& key,
                       const std::string& name) {
  const bool is_9x = machine.Kind().family == 0;
  if (is_9x && key == R"(K\NVidia\Direct3D)") return "D3D " + name;
  if (is_9x && key == R"(K\NVidia\OpenGL)") return "GL " + name;
  if (!is_9x && key == "K" && name.starts_with("OGL_")) return "GL " + name.substr(4);
  if (!is_9x && key == "K" && (name.starts_with("D3D") || name.starts_with("D3d_"))) {
    return "D3D " + name;
  }
  if (key == test::kTweakKey) return "Tweak " + name;
  if (key == test::kDebugKey) return "Debug " + name;
  if (key == test::kOptionsKey) return "Options " + name;
  return key + " " + name;
}

std::string ShortChange(const FakeMachine& machine, const std::string& line) {
  const bool is_write = line.starts_with("write ");
  if (!is_write && !line.starts_with("delete ")) return line;
  const std::size_t type = is_write ? line.find(" REG_") : line.size();
  const std::size_t name = line.rfind(' ', type - 1) + 1;
  const std::size_t key = line.find(' ') + 1;
  const std::string place =
      ShortPlace(machine, line.substr(key, name - 1 - key), line.substr(name, type - name));
  if (!is_write) return "delete " + place;
  const std::string data = line.substr(type + 1);
  const std::optional<std::int32_t> number = NumberOf(data);
  const bool is_drivers =
      place.starts_with("D3D ") || place.starts_with("GL ") || place.starts_with("K ");
  const bool as_kept =
      number && data == (is_drivers ? machine.Kept(static_cast<std::uint32_t>(*number))
                                    : "REG_DWORD " + std::to_string(*number));
  return place + " = " + (as_kept ? NumberText(*number) : data);
}

}  // namespace

std::string NumberText(std::int32_t number) {
  if (number > -kPatterns && number < kPatterns) return std::to_string(number);
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(number));
  return text;
}

std::string NumberText(std::optional<std::int32_t> number) {
  return number ? NumberText(*number) : "not set";
}

std::string ShortTrace(FakeMachine& machine) {
  std::vector<std::string> changes;
  for (const std::string& line : machine.TakeTrace()) {
    changes.push_back(ShortChange(machine, line));
  }
  return changes.empty() ? "nothing" : test::Joined(changes);
}

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
