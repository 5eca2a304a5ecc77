#include "ui/face/scale.h"

#include <algorithm>
#include <cmath>

namespace kestrune::face {

namespace {

constexpr double kTwipsPerPixel = 15.0;
constexpr double kDesignFontPixels = 12.0;
constexpr double kLargest = 3.0;

}  // namespace

Scale Scale::ForFontHeight(double pixels) {
  return Scale(std::clamp(pixels / kDesignFontPixels, 1.0, kLargest) / kTwipsPerPixel);
}

int Scale::ToPixels(int twips) const {
  return static_cast<int>(std::lround(twips * pixels_per_twip_));
}

int Scale::ToTwips(int pixels) const {
  return static_cast<int>(std::lround(pixels / pixels_per_twip_));
}

PixelRect Scale::ToPixels(const controls::Rect& twips) const {
  const int left = ToPixels(twips.left);
  const int top = ToPixels(twips.top);
  return {left, top, ToPixels(twips.left + twips.width) - left,
          ToPixels(twips.top + twips.height) - top};
}

controls::Rect Scale::Moved(const controls::Rect& known, const PixelRect& shown,
                            const PixelRect& seen) const {
  const auto moved = [this](int twips, int before, int now) {
    return now == before ? twips : ToTwips(now);
  };
  return {moved(known.left, shown.left, seen.left), moved(known.top, shown.top, seen.top),
          moved(known.width, shown.width, seen.width),
          moved(known.height, shown.height, seen.height)};
}

bool HasPlace(const PixelRect& window) { return window.left != 0 || window.top != 0; }

}  // namespace kestrune::face
