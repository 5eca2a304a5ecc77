#pragma once

#include "controls/control.h"

namespace kestrune::face {

/// Whether a control has some place in its window as high as that is now. What has none is neither
/// shown nor reached, and hidden from assistive technology.
bool InSight(const controls::Control& control);

/// Keeps a window's lower panel open while the focus is in it: what stands below the edge label,
/// and the edge itself. A mouse over the edge opens it. The edge outlives this.
class PanelKeeper {
 public:
  explicit PanelKeeper(controls::Control& edge);
  PanelKeeper(const PanelKeeper&) = delete;
  PanelKeeper& operator=(const PanelKeeper&) = delete;

  /// The focus has come to a control of any window.
  void Focused(const controls::Control& control);
  /// Whether a control must not be told of the mouse over it: a page would close the panel.
  bool Silences(const controls::Control& control) const;

 private:
  bool Holds(const controls::Control& control) const;
  void WindowChanged();

  controls::Control& edge_;
  int height_;  ///< of the window, as seen last
  bool has_focus_ = false;
  controls::Subscription subscription_;
};

}  // namespace kestrune::face
