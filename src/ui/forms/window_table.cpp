#include "ui/forms/window_table.h"

#include "ui/forms/associated_application.h"
#include "ui/forms/help_window.h"
#include "ui/forms/profile_manager.h"
#include "ui/forms/registry_editor.h"

namespace kestrune::forms {

namespace {

constexpr const WindowRow* kRows[] = {&kHelpWindow, &kRegistryEditor, &kProfileManager,
                                      &kAssociatedApplication};

}  // namespace

const std::span<const WindowRow* const> kWindows = kRows;

}  // namespace kestrune::forms
