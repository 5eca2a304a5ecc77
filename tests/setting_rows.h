#pragma once

#include <string_view>
#include <vector>

#include "fake_machine.h"

namespace kestrune::test {

/// A driver's value behind a control, and pairs of a number and what the control shows, in turn.
struct SettingRow {
  std::string id;
  std::string name;
  std::vector<std::pair<std::optional<std::uint32_t>, std::string>> pairs;
};

/// Reads rows: a line with the control's id and the value's name, then lines that begin with a
/// blank, with pairs "NUMBER TEXT" between semicolons, "-" for a value that is not set.
std::vector<SettingRow> ParseRows(std::string_view text);

enum class Interface { kDirect3D, kOpenGL };

/// Checks that each row shows each number after the one before, on each kind of machine.
void CheckReads(Interface interface, std::string_view rows, const std::vector<MachineKind>& kinds);
/// Checks that each use of a control is one write of its number, or a delete, that what follows
/// reads it back, and that WriteAsBinary is 0 afterwards.
void CheckWrites(Interface interface, std::string_view rows, const std::vector<MachineKind>& kinds);

}  // namespace kestrune::test
