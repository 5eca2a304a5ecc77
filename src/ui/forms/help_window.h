#pragma once

#include <map>

#include "ui/forms/form.h"
#include "ui/forms/shared.h"

namespace kestrune::forms {

inline constexpr int kTopicCount = 15;

/// Form5: a panel for each topic, of which one is shown. Its texts are the same in every language.
extern const WindowRow kHelpWindow;

/// The help window, which explains the setting under the mouse. It fades in each time it is opened.
class HelpWindow {
 public:
  explicit HelpWindow(const Shared& shared);
  HelpWindow(const HelpWindow&) = delete;
  HelpWindow& operator=(const HelpWindow&) = delete;

  /// Sees to the window's loading and to its own close box.
  void TakeWindow();
  /// Lets a mouse over a form's controls, and over their labels, show the topics that their rows
  /// name.
  void Connect(const Form& form);
  /// Shows a topic, 0 to 14, beside the main window, unless it is the one shown last or the help
  /// system is off.
  void ShowHelpTopic(int topic);
  /// Shows the topic of a control, or of the nearest around it that has one, also when it was the
  /// last. Null has none.
  void Explain(const controls::Control* control);
  /// Lets the topic shown last be shown again.
  void ForgetTopic();
  void Close();
  /// Closes it as a person does; false when it isn't open.
  bool UseClose();

 private:
  void Load();
  void Fade();

  core::ProgramState& state_;
  std::map<const controls::Control*, int> topics_;
  const controls::ControlSet& controls_;
  Windows& windows_;
  controls::Window& window_;
  const controls::Window& main_;
  controls::PictureBox& lod_picture_;
  controls::Timer fade_;  ///< until the window is opaque
};

}  // namespace kestrune::forms
