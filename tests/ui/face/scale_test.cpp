#include "ui/face/scale.h"

#include <gtest/gtest.h>

namespace kestrune::face {
namespace {

TEST(ScaleTest, WhatTouchesInTwipsTouchesOnTheScreen) {
  const Scale scale(1.3 / 15);
  for (int left = 0; left < 200; left += 7) {
    const PixelRect first = scale.ToPixels(controls::Rect{left, 0, 110, 15});
    const PixelRect second = scale.ToPixels(controls::Rect{left + 110, 0, 50, 15});
    EXPECT_EQ(first.left + first.width, second.left) << left;
  }
}

TEST(ScaleTest, WhatLooksTheSameHasNotChanged) {
  const Scale scale(1.0 / 15);
  const controls::Rect known = {307, 310, 8177, 5620};
  const PixelRect same = scale.ToPixels(known);
  EXPECT_EQ(scale.Moved(known, same, same), known);
  EXPECT_EQ(scale.Moved(known, same, {40, same.top, same.width, 100}),
            (controls::Rect{600, 310, 8177, 1500}));
  // Somewhere else, as where the screen has no room, it is as little told.
  const PixelRect elsewhere = {200, 0, 300, 300};
  EXPECT_EQ(scale.Moved(known, elsewhere, elsewhere), known);
}

TEST(ScaleTest, FollowsTheFontWithinLimits) {
  struct Case {
    double font;
    int pixels;
  };
  constexpr Case kCases[] = {{9, 100}, {12, 100}, {18, 150}, {24, 200}, {99, 300}};
  for (const Case& each : kCases) {
    EXPECT_EQ(Scale::ForFontHeight(each.font).ToPixels(1500), each.pixels) << each.font;
  }
}

}  // namespace
}  // namespace kestrune::face
