#pragma once

#include <array>

#include "controls/controls.h"
#include "core/program_state.h"
#include "core/registry.h"
#include "detect/adapter.h"
#include "platform/files_api.h"

namespace kestrune::cpl {

inline constexpr int kOptionCount = 11;

struct ControlPanelControls {
  /// The option boxes, by index.
  std::array<controls::CheckBox*, kOptionCount> options;
  controls::PictureBox* picture;
};

/// The switches that make the driver's own control panel show its hidden pages.
class ControlPanelOptions {
 public:
  ControlPanelOptions(core::basRegistry& registry, platform::FilesApi& files,
                      const detect::VersionState& versions, const detect::AdapterState& adapter,
                      const core::ProgramState& program, const ControlPanelControls& controls)
      : registry_(registry),
        files_(files),
        versions_(versions),
        adapter_(adapter),
        program_(program),
        controls_(controls) {}

  /// Shows what is stored and disables what the card or the driver hasn't. The caller holds
  /// IsStart at 1.
  void ReadControlPanelOptions();
  /// A box was ticked or cleared.
  void OptionChanged(int index);
  /// The mouse is over a box: the picture shows the page that the switch reveals.
  void OptionHovered(int index);

 private:
  void Store(std::string_view key, std::string_view name, std::int32_t number);
  std::int32_t Read(std::string_view name, std::int32_t not_set);
  void EnableCoolBits();
  void DisableCoolBits();
  void StoreAgpPage(std::int32_t state);

  core::basRegistry& registry_;
  platform::FilesApi& files_;
  const detect::VersionState& versions_;
  const detect::AdapterState& adapter_;
  const core::ProgramState& program_;
  ControlPanelControls controls_;
  std::string_view shown_tag_;
};

}  // namespace kestrune::cpl
