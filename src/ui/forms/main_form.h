#pragma once

#include <array>

#include "ui/forms/form.h"

namespace kestrune::forms {

inline constexpr int kPageCount = 16;

/// The ids of the pages, by index.
extern const std::array<std::string_view, kPageCount> kPageIds;
bool IsPageId(std::string_view id);

/// The main window's fixed width and the heights between which it grows and shrinks, in twips.
inline constexpr int kMainWidth = 8175;
inline constexpr int kLowHeight = 5625;
inline constexpr int kFullHeight = 6405;

/// Form1, the main window: its controls, the sixteen pages in it, and nothing of what they do.
class MainForm : public Form {
 public:
  MainForm();

  controls::Window& TheWindow() const { return Get<controls::Window>("main"); }
  controls::Frame& Page(int index) const;
};

}  // namespace kestrune::forms
