#pragma once

#include "core/options.h"
#include "ui/forms/help_window.h"
#include "ui/forms/main_form.h"

namespace kestrune::forms {

/// The main window's lower panel, which grows from its edge and shrinks over a page: the program's
/// own options, and the window's size.
class LowerPanel {
 public:
  LowerPanel(const MainForm& form, const Shared& shared, HelpWindow& help);
  LowerPanel(const LowerPanel&) = delete;
  LowerPanel& operator=(const LowerPanel&) = delete;

  /// Shows the chosen language's own line, and lets the others be listed when they are needed.
  void ShowLanguageHeader();
  void OfferLanguages();
  /// Reads the "HelpSystem" and "LVP" options. The remembered page, where one is kept, becomes
  /// ActivePage; false without one.
  [[nodiscard]] bool ReadOptions();
  void LoadHelpPicture();
  /// Keeps or forgets the visited page, as the option says.
  void SaveVisitedPage();

 private:
  void ConnectPanel(const MainForm& form);
  void Grow();
  void Shrink();
  void RestoreSize();
  void HelpOptionChanged();

  core::ProgramState& state_;
  core::OwnOptions options_;
  platform::FilesApi& files_;
  lang::Language& language_;
  HelpWindow& help_;
  controls::Window& window_;
  controls::CheckBox& enable_help_;
  controls::CheckBox& remember_page_;
  controls::ComboBox& languages_;
  controls::Label& language_header_;
  controls::PictureBox& help_picture_;
  controls::Timer growing_;
  controls::Timer shrinking_;
};

}  // namespace kestrune::forms
