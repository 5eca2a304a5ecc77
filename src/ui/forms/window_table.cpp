#include "ui/forms/window_table.h"

#include "ui/forms/help_window.h"
#include "ui/forms/registry_editor.h"

namespace kestrune::forms {

namespace {

constexpr const WindowRow* kRows[] = {&kHelpWindow, &kRegistryEditor};

}  // namespace

const std::span<const WindowRow* const> kWindows = kRows;

}  // namespace kestrune::forms
