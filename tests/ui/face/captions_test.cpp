#include "ui/face/captions.h"

#include <gtest/gtest.h>

namespace kestrune::face {
namespace {

TEST(Captions, IdsBecomeWords) {
  EXPECT_EQ(ReadableName("direct3d.antialiasing.antialiasing-mode"), "Antialiasing mode");
  EXPECT_EQ(ReadableName("direct3d.antialiasing.antialiasing-mode-label"), "Antialiasing mode");
  EXPECT_EQ(ReadableName("opengl.filtering.filtering-optimizations-frame"),
            "Filtering optimizations");
  EXPECT_EQ(ReadableName("main"), "Main");
  EXPECT_EQ(ReadableName(""), "");
}

TEST(Captions, EachMnemonicIsTheFirstLetterStillFree) {
  const std::vector<std::string> captions = {"Shaders", "Sound & vision", "...", "os",
                                             "So",      "Öffnen"};
  const std::vector<std::string> expected = {"&Shaders", "S&ound && vision", "...", "os",
                                             "So",       "&Öffnen"};
  EXPECT_EQ(WithMnemonics(captions), expected);
}

}  // namespace
}  // namespace kestrune::face
