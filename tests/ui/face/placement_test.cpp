#include "ui/face/placement.h"

#include <gtest/gtest.h>

namespace kestrune::face {
namespace {

TEST(PlacementTest, AWindowStandsWhereThereIsRoomBesideItsOwner) {
  struct Case {
    const char* what;
    PixelRect owner;
    PixelRect work_area;
    int left;
    int top;
  };
  const Case cases[] = {
      {"at the right", {100, 50, 545, 400}, {0, 0, 1024, 768}, 645, 50},
      {"just fits", {179, 50, 545, 400}, {0, 0, 1024, 768}, 724, 50},
      {"else at the left", {400, 50, 545, 400}, {0, 0, 1024, 768}, 100, 50},
      {"else in a corner", {240, 50, 545, 400}, {0, 0, 1024, 768}, 724, 508},
      {"inside a small screen", {10, 10, 545, 400}, {0, 0, 640, 480}, 340, 220},
      {"not below the work area", {0, 700, 545, 400}, {0, 0, 1024, 768}, 545, 508},
      {"not above the work area", {0, -30, 545, 400}, {0, 24, 1024, 744}, 545, 24},
      {"on a second screen", {2100, 50, 545, 400}, {1920, 0, 1920, 1080}, 2645, 50},
      {"at the left of a second screen", {3200, 50, 545, 400}, {1920, 0, 1920, 1080}, 2900, 50},
      {"smaller than the window", {0, 0, 545, 400}, {0, 0, 200, 200}, 0, 0}};
  for (const Case& each : cases) {
    const PixelRect place = Beside(each.owner, {0, 0, 300, 260}, each.work_area);
    EXPECT_EQ(place, (PixelRect{each.left, each.top, 300, 260})) << each.what;
  }
}

TEST(PlacementTest, AWindowLargerThanTheScreenScrolls) {
  struct Case {
    PixelRect content;
    PixelRect shown;
  };
  const Case cases[] = {
      {{5, 6, 545, 400}, {5, 6, 545, 400}},   {{0, 0, 1024, 768}, {0, 0, 1024, 768}},
      {{0, 0, 1090, 700}, {0, 0, 1024, 714}}, {{0, 0, 800, 854}, {0, 0, 814, 768}},
      {{0, 0, 1020, 854}, {0, 0, 1024, 768}}, {{0, 0, 1090, 854}, {0, 0, 1024, 768}}};
  for (const Case& each : cases) EXPECT_EQ(Fitted(each.content, {0, 0, 1024, 768}, 14), each.shown);
}

TEST(PlacementTest, OnlyAWindowThatTheFormPutsBesideItsOwnerIsMoved) {
  controls::Window owner("main", nullptr);
  controls::Window window("help", nullptr);
  owner.SetBounds({300, 150, 8175, 5625});
  window.SetBounds({8475, 150, 4500, 3600});
  EXPECT_FALSE(StandsBesideOwner(window));
  window.SetOwner(&owner);
  EXPECT_TRUE(StandsBesideOwner(window));
  window.SetBounds({8475, 300, 4500, 3600});
  EXPECT_FALSE(StandsBesideOwner(window));
}

}  // namespace
}  // namespace kestrune::face
