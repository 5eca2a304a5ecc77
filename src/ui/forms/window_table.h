#pragma once

#include <span>

#include "ui/forms/form.h"

namespace kestrune::forms {

/// Every window but the main one.
extern const std::span<const WindowRow* const> kWindows;

}  // namespace kestrune::forms
