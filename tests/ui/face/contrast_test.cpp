#include "ui/face/contrast.h"

#include <gtest/gtest.h>

namespace kestrune::face {
namespace {

constexpr Colour kWhite = {1, 1, 1};
constexpr Colour kBlack = {0, 0, 0};

Colour Grey(int level) { return {level / 255.0, level / 255.0, level / 255.0}; }

TEST(ContrastTest, IsThatOfTheGuidelines) {
  EXPECT_NEAR(Contrast(kWhite, kBlack), 21, 0.01);
  EXPECT_NEAR(Contrast(kBlack, kWhite), 21, 0.01);
  EXPECT_NEAR(Contrast(Grey(118), kWhite), 4.54, 0.01);
  EXPECT_NEAR(Contrast({1, 0, 0}, kWhite), 4.0, 0.01);
  EXPECT_EQ(Contrast(Grey(99), Grey(99)), 1);
}

TEST(ContrastTest, AColourIsChangedNoMoreThanItNeeds) {
  for (const int ground : {0, 42, 118, 160, 239, 255}) {
    for (const double ratio : {kLineContrast, kTextContrast}) {
      const Colour pale = Grey(ground > 127 ? ground - 10 : ground + 10);
      const Colour found = Contrasting(pale, Grey(ground), ratio);
      EXPECT_GE(Contrast(found, Grey(ground)), ratio) << ground;
      EXPECT_LT(Contrast(found, Grey(ground)), ratio * 1.2) << ground;
    }
  }
  EXPECT_EQ(Contrasting(kBlack, kWhite, kTextContrast).red, 0);
  EXPECT_EQ(Contrasting(Grey(200), Grey(118), 9).red, 0) << "no colour has as much";
}

}  // namespace
}  // namespace kestrune::face
