#pragma once

#include "core/program_state.h"
#include "detect/adapter.h"
#include "settings/setting.h"

namespace kestrune::settings {

/// The driver, card and system at hand, as detection found them. All of it outlives this.
struct Hardware {
  const detect::VersionState& versions;
  const detect::AdapterState& adapter;
  const core::ProgramState& program;

  /// Whether a control with these needs is enabled here.
  bool Meets(const Needs& needs) const;
  /// The row that holds here.
  const Setting& RowOf(const Setting& setting) const { return setting.For(versions.DrvVer); }
};

}  // namespace kestrune::settings
