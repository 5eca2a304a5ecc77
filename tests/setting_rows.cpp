#include "setting_rows.h"

#include <gtest/gtest.h>

#include <sstream>

namespace kestrune::test {

namespace {

std::optional<std::uint32_t> NumberOf(const std::string& word) {
  if (word == "-") return std::nullopt;
  return static_cast<std::uint32_t>(std::stoll(word, nullptr, 0));
}

void Store(FakeMachine& machine, Interface interface, const std::string& name,
           std::optional<std::uint32_t> number) {
  interface == Interface::kDirect3D ? machine.StoreDirect3D(name, number)
                                    : machine.StoreOpenGL(name, number);
}

std::string Line(const FakeMachine& machine, Interface interface, const std::string& name,
                 std::optional<std::uint32_t> number) {
  return interface == Interface::kDirect3D ? machine.Direct3DLine(name, number)
                                           : machine.OpenGLLine(name, number);
}

std::string Named(const MachineKind& kind) {
  return " on family " + std::to_string(kind.family) + ", driver " + std::to_string(kind.driver);
}

}  // namespace

std::vector<SettingRow> ParseRows(std::string_view text) {
  std::vector<SettingRow> rows;
  std::istringstream lines{std::string(text)};
  for (std::string line; std::getline(lines, line);) {
    if (line.empty()) continue;
    std::istringstream words(line);
    if (line.front() != ' ') {
      words >> rows.emplace_back().id >> rows.back().name;
      continue;
    }
    for (std::string pair; std::getline(words, pair, ';');) {
      std::istringstream both(pair);
      std::string number;
      std::string shown;
      both >> number >> std::ws;
      std::getline(both, shown);
      rows.back().pairs.emplace_back(NumberOf(number), shown);
    }
  }
  return rows;
}

void CheckReads(Interface interface, std::string_view rows, const std::vector<MachineKind>& kinds) {
  for (const MachineKind& kind : kinds) {
    for (const SettingRow& row : ParseRows(rows)) {
      FakeMachine machine(kind);
      Driven driven(machine);
      for (const auto& [number, shown] : row.pairs) {
        Store(machine, interface, row.name, number);
        driven.ReadAgain();
        EXPECT_EQ(driven.Text(row.id), shown)
            << row.name << " " << number.value_or(0) << Named(kind);
      }
    }
  }
}

void CheckWrites(Interface interface, std::string_view rows,
                 const std::vector<MachineKind>& kinds) {
  for (const MachineKind& kind : kinds) {
    FakeMachine machine(kind);
    Driven driven(machine);
    Driven other(machine);
    for (const SettingRow& row : ParseRows(rows)) {
      for (const auto& [number, use] : row.pairs) {
        machine.TakeTrace();
        driven.Use(row.id, use);
        EXPECT_EQ(Joined(machine.TakeTrace()), Line(machine, interface, row.name, number))
            << row.id << "=" << use << Named(kind);
        EXPECT_EQ(driven.State("WriteAsBinary"), "0");
        other.ReadAgain();
        EXPECT_EQ(other.Text(row.id), use) << row.id << Named(kind);
      }
    }
  }
}

}  // namespace kestrune::test
