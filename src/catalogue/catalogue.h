#pragma once

#include <vector>

#include "settings/setting.h"

/// Every setting that a control stands for, found by the control's id.
namespace kestrune::catalogue {

/// All rows, in the order of their folders. Those of older drivers hang on them.
const std::vector<const settings::Setting*>& AllSettings();
/// What stands behind a control, or the control that shows the same value on another page; null
/// for a control without a value of its own.
const settings::Setting* SettingOf(std::string_view id);

}  // namespace kestrune::catalogue
