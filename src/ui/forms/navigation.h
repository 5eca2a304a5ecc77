#pragma once

#include "ui/forms/main_form.h"
#include "ui/forms/shared.h"

namespace kestrune::forms {

/// Which page the main window shows, and the scroll bar that steps through its group.
class Navigation {
 public:
  Navigation(const MainForm& form, const Shared& shared, PageGroups& pages);
  Navigation(const Navigation&) = delete;
  Navigation& operator=(const Navigation&) = delete;

  /// Shows page ActivePage, hides the others and runs what its row says.
  void ShowPage();
  /// The nearest page that the window can reach, by index, `step` by `step` from the active one on;
  /// the active one where there is none.
  int PageBeside(int step) const;
  /// Reads the driver's and the control panel's values again. WriteAsBinary stays as it was.
  void ReadAgain();

 private:
  void GroupScrolled();

  const MainForm& form_;
  core::ProgramState& state_;
  core::basRegistry& registry_;
  PageGroups& pages_;
  controls::Slider& bar_;
};

}  // namespace kestrune::forms
