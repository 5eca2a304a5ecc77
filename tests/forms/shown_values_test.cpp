// Whether what a page shows is what is stored, where a rule leaves something out.

#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::forms {
namespace {

using test::Driven;
using test::FakeMachine;

constexpr std::string_view kMode = "direct3d.antialiasing.antialiasing-mode";
constexpr std::string_view kGlMode = "opengl.antialiasing.antialiasing-mode";
constexpr std::string_view kTransparency = "direct3d.antialiasing.transparency-antialiasing";
constexpr std::string_view kGlTransparency = "opengl.antialiasing.transparency-antialiasing";
constexpr std::string_view kGamma = "direct3d.antialiasing.gamma-correct-antialiasing";
constexpr std::string_view kGlGamma = "opengl.antialiasing.gamma-correct-antialiasing";

std::string Flags(const Driven& driven) {
  return driven.Text(kTransparency) + "/" + driven.Text(kGlTransparency) + " " +
         driven.Text(kGamma) + "/" + driven.Text(kGlGamma);
}

TEST(ShownValuesTest, FlagsThatGoWithTheModeAreNoLongerShown) {
  struct Case {
    std::string_view control;
    std::string_view use;
  };
  // Each forgets the flags: a mode that leaves them to the program, gamma without a mode.
  for (const Case& each : {Case{kMode, "Auto"}, Case{kGlMode, "Auto"}}) {
    FakeMachine machine;
    machine.StoreDirect3D("D3DOGL_70835937", 0x50100010);
    Driven driven(machine);
    EXPECT_EQ(Flags(driven), "Supersampling/Supersampling on/on");
    machine.TakeTrace();
    driven.Use(each.control, each.use);
    EXPECT_EQ(machine.TakeShortTrace(), "D3D D3DOGL_70835937 = 0");
    EXPECT_EQ(Flags(driven), "Disabled/Disabled off/off");
    for (const std::string_view gamma : {kGamma, kGlGamma}) {
      driven.Tick(gamma);
      EXPECT_EQ(machine.TakeShortTrace(), "D3D D3DOGL_70835937 = 0");
      EXPECT_EQ(Flags(driven), "Disabled/Disabled off/off") << gamma;
    }
  }
}

TEST(ShownValuesTest, AtRelease5000TheOpenGLPagesModeIsTheCurrentOne) {
  FakeMachine machine({.driver = 5000});
  Driven driven(machine);
  driven.Choose(kGlMode, "4x");
  EXPECT_EQ(driven.State("CurrentAaModeText"), "4x");
  EXPECT_EQ(driven.Text(kMode), "Auto");  // the pages don't mirror each other yet
  machine.TakeTrace();
  driven.Tick(kGlGamma);
  EXPECT_EQ(machine.TakeShortTrace(), "D3D D3DOGL_70835937 = 0x10100010");
}

TEST(ShownValuesTest, AStoredCountThatIsTheCardsHighestIsCalledTheDefault) {
  FakeMachine machine;
  machine.Lay("DATA/mt.dat", "09,4\n");
  machine.StoreDirect3D("D3D_59954022", 4);
  Driven driven(machine);
  EXPECT_EQ(driven.Caption("direct3d.multitexturing.max-simultaneous-textures-label"),
            "Max simultaneous textures: Default");
  EXPECT_EQ(machine.Stored(machine.Direct3DKey(), "D3D_59954022"), "");
}

TEST(ShownValuesTest, ATextThatStandsForNothingIsToldFromOneThatARowKnows) {
  FakeMachine machine({.device = "0020"});
  const Driven driven(machine);
  const auto& mode = driven.Get<controls::ComboBox>(kMode);
  EXPECT_LT(mode.ItemFor("16x"), 0);
  EXPECT_TRUE(mode.knows("16x") && mode.knows("SLI 8x"));
  EXPECT_FALSE(mode.knows("nonsense") || mode.knows("2x1"));
  EXPECT_TRUE(driven.Get<controls::ComboBox>("opengl.filtering.anisotropic-filtering").knows("4x"));
}

}  // namespace
}  // namespace kestrune::forms
