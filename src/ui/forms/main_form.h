#pragma once

#include "ui/forms/form.h"
#include "ui/forms/pages.h"

namespace kestrune::forms {

/// The main window's fixed width and the heights between which it grows and shrinks, in twips.
inline constexpr int kMainWidth = 8175;
inline constexpr int kLowHeight = 5625;
inline constexpr int kFullHeight = 6405;

extern const WindowRow kMainWindow;
/// What stands in the main window beside the controls of its row.
std::vector<ControlRow> PagesAndPanel();

/// Form1, the main window: its toolbar, the sixteen pages and the lower panel, and nothing of what
/// they do.
class MainForm : public Form {
 public:
  MainForm();

  controls::Frame& Page(int index) const;
  /// What a person uses to get to a page: its own key, or one of its group, whose scroll bar goes
  /// the rest of the way. Null for a page that the window can't reach.
  const controls::Control* WayTo(int page) const;
};

}  // namespace kestrune::forms
