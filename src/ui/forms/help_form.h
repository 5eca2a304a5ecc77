#pragma once

#include "ui/forms/form.h"

namespace kestrune::forms {

inline constexpr int kTopicCount = 15;

/// Form5, the help window: a panel for each topic, of which one is shown. Its texts are the same
/// in every language.
class HelpForm : public Form {
 public:
  HelpForm();

  controls::Window& TheWindow() const { return Get<controls::Window>("help"); }
  /// Shows one topic's panel, 0 to 14, and hides the others.
  void ShowTopic(int topic);

 private:
  controls::Frame& Topic(int topic) const;
};

}  // namespace kestrune::forms
