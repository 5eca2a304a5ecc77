#pragma once

#include "controls/control_set.h"
#include "controls/controls.h"

namespace kestrune::profiles {

/// What saving and applying read and set in the profile manager.
struct ManagerControls {
  explicit ManagerControls(const controls::ControlSet& controls);

  controls::TextBox& name;  ///< of the profile to save; also the path of the one that is applied
  controls::TextBox& application;
  controls::TextBox& folder;  ///< the application's
  controls::CheckBox& cleans;
  controls::CheckBox& restores_clocks;
  controls::CheckBox& has_clocks;
  controls::TextBox& core_clock;
  controls::TextBox& memory_clock;
  controls::OptionButton& direct3d;  ///< the category whose database is read
  controls::OptionButton& opengl;
};

}  // namespace kestrune::profiles
