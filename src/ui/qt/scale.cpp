#include "ui/qt/scale.h"

#include <QFontInfo>
#include <algorithm>
#include <cmath>

namespace kestrune::qt {

namespace {

constexpr double kTwipsPerPixel = 15.0;
constexpr double kDesignFontPixels = 12.0;
constexpr double kLargest = 3.0;

}  // namespace

Scale Scale::ForFont(const QFont& font) {
  const double size = QFontInfo(font).pixelSize() / kDesignFontPixels;
  return Scale(std::clamp(size, 1.0, kLargest) / kTwipsPerPixel);
}

int Scale::ToPixels(int twips) const {
  return static_cast<int>(std::lround(twips * pixels_per_twip_));
}

int Scale::ToTwips(int pixels) const {
  return static_cast<int>(std::lround(pixels / pixels_per_twip_));
}

QRect Scale::ToPixels(const controls::Rect& twips) const {
  const int left = ToPixels(twips.left);
  const int top = ToPixels(twips.top);
  return QRect(left, top, ToPixels(twips.left + twips.width) - left,
               ToPixels(twips.top + twips.height) - top);
}

controls::Rect Scale::ToTwips(const QRect& pixels) const {
  return {ToTwips(pixels.x()), ToTwips(pixels.y()), ToTwips(pixels.width()),
          ToTwips(pixels.height())};
}

}  // namespace kestrune::qt
