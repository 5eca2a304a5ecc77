#include "ui/forms/window_table.h"

#include "ui/forms/about_window.h"
#include "ui/forms/associated_application.h"
#include "ui/forms/help_window.h"
#include "ui/forms/intro_window.h"
#include "ui/forms/main_form.h"
#include "ui/forms/monitoring_window.h"
#include "ui/forms/performance_wizard.h"
#include "ui/forms/profile_manager.h"
#include "ui/forms/registry_editor.h"

namespace kestrune::forms {

namespace {

constexpr const WindowRow* kRows[] = {
    &kHelpWindow,  &kRegistryEditor, &kProfileManager,   &kAssociatedApplication,
    &kAboutWindow, &kIntroWindow,    &kMonitoringWindow, &kPerformanceWizard};

void Append(std::vector<ControlRow>& rows, const WindowRow& window) {
  rows.push_back(window.window);
  rows.insert(rows.end(), window.controls.begin(), window.controls.end());
}

}  // namespace

const std::span<const WindowRow* const> kWindows = kRows;

std::vector<ControlRow> AllRows() {
  std::vector<ControlRow> rows;
  Append(rows, kMainWindow);
  const std::vector<ControlRow> pages = PagesAndPanel();
  rows.insert(rows.end(), pages.begin(), pages.end());
  for (const WindowRow* window : kWindows) Append(rows, *window);
  return rows;
}

}  // namespace kestrune::forms
