#pragma once

#include <QRect>

#include "controls/control.h"

class QFont;

namespace kestrune::qt {

/// Turns twips into logical pixels and back.
///
/// 15 twips are one pixel while the user's font is 12 pixels high; a larger font makes everything
/// larger in proportion, so that texts keep the room that the layout gives them. Edges are
/// rounded, not sizes: what touches in twips touches on the screen.
class Scale {
 public:
  explicit Scale(double pixels_per_twip) : pixels_per_twip_(pixels_per_twip) {}
  static Scale ForFont(const QFont& font);

  int ToPixels(int twips) const;
  int ToTwips(int pixels) const;
  QRect ToPixels(const controls::Rect& twips) const;
  controls::Rect ToTwips(const QRect& pixels) const;

 private:
  double pixels_per_twip_;
};

}  // namespace kestrune::qt
