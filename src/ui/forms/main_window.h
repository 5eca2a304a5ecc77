#pragma once

#include "controls/timer.h"
#include "core/program_state.h"
#include "core/registry.h"
#include "platform/files_api.h"
#include "platform/shell_api.h"
#include "ui/forms/help_form.h"
#include "ui/forms/main_form.h"

namespace kestrune::forms {

/// What the main window does of itself: pages, toolbar, group scroll bar, hover help, the lower
/// panel, its options and its size.
class MainWindow {
 public:
  /// What showing a page or pressing a key asks of the pages' own logic.
  struct Hooks {
    std::function<void()> read_control_panel;
    std::function<void()> overclocking_shown;
  };

  MainWindow(MainForm& form, HelpForm& help, core::ProgramState& state, core::basRegistry& registry,
             platform::ShellApi& shell, platform::FilesApi& files, controls::Scheduler& scheduler,
             Hooks hooks);

  /// Shows page ActivePage and hides the others.
  void ShowPage();
  /// Goes to a page as its menu item does.
  void GoToPage(int page);
  void CloseHelp() { help_.TheWindow().SetVisible(false); }
  /// Reads the "HelpSystem" and "LVP" options and shows the remembered page.
  void ReadOptions();
  /// Saves what is saved at the end, and closes every window.
  void Close();
  bool Closed() const { return closed_; }
  /// Disables what the newest systems don't have.
  void DisableForVista();
  void LoadHelpPicture();

 private:
  void ConnectKeys();
  void ConnectHelp();
  void ConnectPanel();
  void ConnectOptions();
  void PressKey(std::string_view id);
  void GroupScrolled();
  void ShowHelpTopic(int topic);
  void Grow();
  void Shrink();
  void RestoreSize();
  void HelpOptionChanged();
  void RememberOptionChanged();
  void SaveVisitedPage();

  MainForm& form_;
  HelpForm& help_;
  core::ProgramState& state_;
  core::basRegistry& registry_;
  platform::ShellApi& shell_;
  platform::FilesApi& files_;
  Hooks hooks_;
  controls::Timer growing_;
  controls::Timer shrinking_;
  bool closed_ = false;
};

}  // namespace kestrune::forms
