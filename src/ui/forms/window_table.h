#pragma once

#include <span>
#include <vector>

#include "ui/forms/form.h"

namespace kestrune::forms {

/// Every window but the main one.
extern const std::span<const WindowRow* const> kWindows;

/// The rows of every control of the program, window by window, the main one's first.
std::vector<ControlRow> AllRows();

}  // namespace kestrune::forms
