#pragma once

#include "settings/setting.h"

namespace kestrune::settings {

/// The program's own options, as far as a control stands for each.
extern const std::span<const Setting> kOwnSettings;

}  // namespace kestrune::settings
