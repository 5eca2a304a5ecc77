#pragma once

#include "ui/forms/help_window.h"
#include "ui/forms/navigation.h"

namespace kestrune::forms {

/// Does what rows say that a click does: on keys of the toolbar and its menus, which close the help
/// window first and show the active page last, and on other controls, which do nothing else.
class Toolbar {
 public:
  Toolbar(const Shared& shared, Navigation& navigation, HelpWindow& help)
      : state_(shared.state),
        controls_(shared.controls),
        shell_(shared.services.shell),
        files_(shared.services.files),
        windows_(shared.windows),
        navigation_(navigation),
        focus_(shared.focus),
        LangText(shared.LangText()),
        help_(help) {}
  Toolbar(const Toolbar&) = delete;
  Toolbar& operator=(const Toolbar&) = delete;

  /// Gives a form's controls the actions of their rows, and its window its shortcuts.
  void Connect(const Form& form);
  /// Disables what the newest systems don't have.
  void DisableForVista();
  /// Goes to a page as its menu item does.
  void GoToPage(int page);

 private:
  void PressKey(const ControlRow& row, controls::Window& window);
  /// `key` is the id of the key whose own page an action may name, `window` that in which it
  /// happens.
  void Perform(const Action& action, std::string_view key, controls::Window& window);
  void StepBack(controls::Window& window);

  core::ProgramState& state_;
  const controls::ControlSet& controls_;
  platform::ShellApi& shell_;
  platform::FilesApi& files_;
  Windows& windows_;
  Navigation& navigation_;
  const controls::Focus& focus_;
  const lang::LangTable& LangText;
  HelpWindow& help_;
};

}  // namespace kestrune::forms
