#pragma once

#include "controls/control.h"

namespace kestrune::face {

/// A place in pixels.
struct PixelRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  bool operator==(const PixelRect&) const = default;
};

/// Turns twips into pixels and back.
///
/// 15 twips are one pixel while the user's font is 12 pixels high; a larger font makes everything
/// larger in proportion, so that texts keep the room that the layout gives them. Edges are
/// rounded, not sizes: what touches in twips touches on the screen.
class Scale {
 public:
  explicit Scale(double pixels_per_twip) : pixels_per_twip_(pixels_per_twip) {}
  static Scale ForFontHeight(double pixels);

  int ToPixels(int twips) const;
  int ToTwips(int pixels) const;
  PixelRect ToPixels(const controls::Rect& twips) const;
  /// Where something is that stands at `known`, was shown at `shown` and is seen at `seen` now.
  /// Pixels are coarser than twips, and may be elsewhere: what looks the same has not changed.
  controls::Rect Moved(const controls::Rect& known, const PixelRect& shown,
                       const PixelRect& seen) const;

 private:
  double pixels_per_twip_;
};

/// The distance of a graph's grid lines, in twips, from its left and its lower edge.
inline constexpr int kGraphGrid = 300;

/// Whether a window's design says where it stands; otherwise the desktop decides.
bool HasPlace(const PixelRect& window);

}  // namespace kestrune::face
