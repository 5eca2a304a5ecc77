#include "ui/forms/window_table.h"

#include "ui/forms/help_window.h"

namespace kestrune::forms {

namespace {

constexpr const WindowRow* kRows[] = {&kHelpWindow};

}  // namespace

const std::span<const WindowRow* const> kWindows = kRows;

}  // namespace kestrune::forms
