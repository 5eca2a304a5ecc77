// The multitexturing and shader pages, and the pictures of antialiasing modes.

#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::d3d {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;

constexpr std::string_view kTextures = "direct3d.multitexturing.max-simultaneous-textures";
constexpr std::string_view kTexturesLabel =
    "direct3d.multitexturing.max-simultaneous-textures-label";
constexpr std::string_view kOverrideTextures =
    "direct3d.multitexturing.override-multitexturing-settings";
constexpr std::string_view kApply = "direct3d.multitexturing.apply-setting-now";
constexpr std::string_view kPixel = "direct3d.shaders.pixel-shader";
constexpr std::string_view kVertex = "direct3d.shaders.vertex-shader";
constexpr std::string_view kOverrideShaders = "direct3d.shaders.override-shaders-settings";
constexpr std::string_view kApplyShaders = "direct3d.shaders.apply-settings-now";
constexpr std::string_view kTexturesName = "D3D_59954022";
constexpr std::string_view kPixelName = "D3d_59954021";
constexpr std::string_view kVertexName = "D3D_59954023";
constexpr std::string_view kReload = "run rundll32 NvCpl.dll,NvStartup";

std::string Stored(FakeMachine& machine, std::string_view name) {
  return machine.Stored(machine.Direct3DKey(), name);
}

TEST(MultitexturingTest, AStoredCountAboveTheCardsIsRemovedAtStart) {
  FakeMachine machine;
  machine.Lay("DATA/mt.dat", "09,4");
  machine.StoreDirect3D(kTexturesName, 8);
  machine.TakeTrace();
  Driven driven(machine);
  EXPECT_EQ(Joined(machine.TakeTrace()), "delete K D3D_59954022, " + std::string(kReload) + ", " +
                                             std::string(test::kStartUpTrace));
  EXPECT_EQ(machine.last_window, platform::WindowState::kMinimised);
  EXPECT_EQ(driven.Text(kTextures), "4");
  EXPECT_EQ(driven.Caption(kTexturesLabel), "Max simultaneous textures: Default");
  EXPECT_EQ(driven.State("MaxSimultaneousTextures"), "-1");
  EXPECT_FALSE(driven.Enabled(kApply));
}

TEST(MultitexturingTest, TheOverrideLiftsTheLimitAndItsEndRemovesWhatIsAbove) {
  FakeMachine machine;
  machine.Lay("DATA/mt.dat", "09,4");
  Driven driven(machine);
  machine.TakeTrace();
  driven.Tick(kOverrideTextures);
  EXPECT_EQ(Joined(machine.TakeTrace()),
            R"(write HKCU\Software\Kestrune OverrideMultiTexture REG_DWORD 1)");
  driven.Move(kTextures, 12);
  EXPECT_EQ(Driven(machine).Text(kTextures), "12");
  machine.TakeTrace();
  driven.Tick(kOverrideTextures, false);
  EXPECT_EQ(
      Joined(machine.TakeTrace()),
      R"(write HKCU\Software\Kestrune OverrideMultiTexture REG_DWORD 0, delete K D3D_59954022, )" +
          std::string(kReload));
  driven.Tick(kOverrideTextures);
  driven.Move(kTextures, 5);
  driven.Move(kTextures, 17);
  EXPECT_EQ(Stored(machine, kTexturesName), "");
}

TEST(MultitexturingTest, ACardThatTheTableDoesNotListHasNoLimit) {
  FakeMachine machine;
  machine.Lay("DATA/mt.dat", "04,4");
  machine.StoreDirect3D(kTexturesName, 20);
  machine.TakeTrace();
  Driven driven(machine);
  EXPECT_EQ(Joined(machine.TakeTrace()), test::kStartUpTrace);
  EXPECT_EQ(driven.Get<controls::Slider>(kTextures).Maximum(), 8);
  EXPECT_EQ(driven.Caption(kTexturesLabel), "Max simultaneous textures: 20");
}

TEST(OverridesTest, AMoveOffersToApplyAndApplyingReloadsOnce) {
  const std::tuple<std::string_view, std::string_view, int> sliders[] = {
      {kTextures, kApply, 2}, {kPixel, kApplyShaders, 1}, {kVertex, kApplyShaders, 1}};
  FakeMachine machine;
  machine.Lay("DATA/mt.dat", "09,4");
  Driven driven(machine);
  for (const auto& [slider, button, position] : sliders) {
    EXPECT_FALSE(driven.Enabled(button)) << slider;
    driven.Move(slider, position);
    EXPECT_TRUE(driven.Enabled(button)) << slider;
    machine.TakeTrace();
    driven.Press(button);
    EXPECT_EQ(Joined(machine.TakeTrace()), kReload);
  }
  // The top, here the card's own limit, leaves the version to the driver.
  driven.Move(kPixel, 5);
  EXPECT_EQ(Joined(machine.TakeTrace()), "delete K D3d_59954021");
  EXPECT_EQ(driven.Caption("direct3d.shaders.pixel-shader-label"), "Pixel Shader: Default");
}

TEST(ShaderTest, AStoredVersionAboveTheCardsIsRemovedUnlessOverridden) {
  const std::tuple<std::string, std::string, std::uint32_t, bool> cases[] = {
      {"ps", "2.0,4", 0xFFFF0300, true},      {"ps", "2.0,4", 0xFFFF0200, false},
      {"ps", "1.3,2", 0xFFFF0104, true},      {"ps", "3.0,5", 0xFFFF0300, false},
      {"ps", "Enabled,5", 0xFFFF0300, false}, {"ps", "0.0,0", 0xFFFF0101, true},
      {"ps", "2.0,4", 0xFFFF0204, true},  // a version without a position counts as the highest
      {"vs", "2.0,2", 0xFFFE0300, true},      {"vs", "2.0,2", 0xFFFE0101, false},
      {"vs", "1.1,1", 0xFFFE0101, true},  // a card's 1.1 counts as 1.0 here
  };
  for (const auto& [table, card, stored, above] : cases) {
    const std::string_view name = table == "vs" ? kVertexName : kPixelName;
    for (const bool overridden : {false, true}) {
      FakeMachine machine;
      machine.Lay("DATA/" + table + ".dat", "09," + card);
      machine.StoreDirect3D(name, stored);
      machine.Store(test::kOptionsKey, "OverrideShaders",
                    overridden ? "REG_DWORD 1" : "REG_DWORD 0");
      machine.TakeTrace();
      const Driven driven(machine);
      const std::string trace = Joined(machine.TakeTrace());
      const bool removed = above && !overridden;
      EXPECT_EQ(trace.find(kReload) != trace.npos, removed) << card << " " << trace;
      if (!removed) continue;
      EXPECT_TRUE(trace.starts_with("delete K D3d_5995402")) << trace;
      EXPECT_EQ(Stored(machine, name), "");
    }
  }
}

TEST(ShaderTest, ACardWithoutShadersHasADisabledSliderUntilOverridden) {
  FakeMachine machine;
  machine.Lay("DATA/ps.dat", "09,0.0,0");
  machine.Lay("DATA/vs.dat", "04,0.0,0");
  machine.TakeTrace();
  Driven driven(machine);
  EXPECT_EQ(Joined(machine.TakeTrace()), test::kStartUpTrace);
  EXPECT_FALSE(driven.Enabled(kPixel));
  EXPECT_TRUE(driven.Enabled(kVertex));
  EXPECT_EQ(driven.Get<controls::Slider>(kVertex).Maximum(), 8);
  driven.Tick(kOverrideShaders);
  EXPECT_TRUE(driven.Enabled(kPixel));
  EXPECT_EQ(driven.Text(kPixel) + driven.Text(kVertex), "64");
  driven.Tick(kOverrideShaders, false);
  EXPECT_FALSE(driven.Enabled(kPixel));
}

TEST(OverridesTest, ALegacyDriverHasNeitherPage) {
  FakeMachine machine({.family = 0, .driver = 2280, .device = "0028"});
  machine.StoreDirect3D(kTexturesName, 20);
  machine.StoreDirect3D(kPixelName, 0xFFFF0300);
  machine.TakeTrace();
  const Driven driven(machine);
  EXPECT_EQ(Joined(machine.TakeTrace()), test::kStartUpTrace);
  EXPECT_FALSE(driven.Enabled("direct3d.multitexturing"));
  EXPECT_FALSE(driven.Enabled("direct3d.shaders"));
  EXPECT_EQ(driven.State("MaxSimultaneousTextures"), "-1");
  EXPECT_EQ(driven.State("PixelShaderVersionText") + driven.State("VertexShaderVersionText"),
            "EnabledEnabled");
}

/// The two pictures of the antialiasing page.
std::string Pictures(const Driven& driven) {
  return driven.Text("direct3d.antialiasing.no-antialiasing") + " " +
         driven.Text("direct3d.antialiasing.selected-antialiasing");
}

TEST(PreviewTest, ShowsThePictureOfTheModeInTheChosenSize) {
  FakeMachine machine;
  Driven driven(machine);
  const std::string none = "DATA/aa/1/auto.jpg ";
  EXPECT_EQ(Pictures(driven), none + "DATA/aa/1/auto.jpg");
  const std::pair<const char*, const char*> modes[] = {
      {"Disabled", "Disabled"}, {"4x 9-tap", "4x 9-tap"}, {"SLI 8xG", "SLI 8xG"},
      {"6xS (12x)", "6xS"},     {"Value 3", "6xS"},       {"(", "6xS"},
      {"Auto", "auto"},         {"../1/4x", "auto"},      {"8xS", "8xS"}};
  for (const auto& [mode, picture] : modes) {
    driven.Type("direct3d.antialiasing.antialiasing-mode", mode);
    EXPECT_EQ(Pictures(driven), none + "DATA/aa/1/" + picture + ".jpg") << mode;
  }
  driven.Press("direct3d.antialiasing.zoom");
  EXPECT_EQ(Pictures(driven), "DATA/aa/2/auto.jpg DATA/aa/2/8xS.jpg");
  driven.Choose("opengl.antialiasing.antialiasing-mode", "Quincunx");
  EXPECT_EQ(Pictures(driven), "DATA/aa/2/auto.jpg DATA/aa/2/Quincunx.jpg");
  driven.Press("direct3d.antialiasing.normal-size");
  EXPECT_EQ(Pictures(driven), none + "DATA/aa/1/Quincunx.jpg");
}

TEST(PreviewTest, AChoiceFollowsAboveRelease5000AndATypedTextAlways) {
  for (const auto& [driver, follows] : {std::pair(5000, false), std::pair(5001, true)}) {
    FakeMachine machine({.driver = driver});
    Driven driven(machine);
    driven.Choose("direct3d.antialiasing.antialiasing-mode", "4x");
    EXPECT_EQ(Pictures(driven).ends_with("1/4x.jpg"), follows) << driver;
    driven.Type("direct3d.antialiasing.antialiasing-mode", "2x");
    EXPECT_TRUE(Pictures(driven).ends_with("1/2x.jpg")) << driver;
  }
}

TEST(PreviewTest, AFileThatIsNoPictureLeavesTheFrame) {
  FakeMachine machine;
  machine.Lay("DATA/aa/1/2x.jpg", "");
  machine.Lay("DATA/aa/1/4x.jpg", "a text");
  machine.Lay("DATA/aa/1/8x.jpg", "\xFF\xD8\xFF\xE0 cut");
  Driven driven(machine);
  for (const char* mode : {"2x", "4x", "8x"}) {
    driven.Type("direct3d.antialiasing.antialiasing-mode", mode);
    EXPECT_TRUE(Pictures(driven).ends_with("1/auto.jpg")) << mode;
  }
}

TEST(PreviewTest, EveryModeThatAListOffersHasItsPictureInBothSizes) {
  for (const char* sli : {"REG_BINARY 97 07 06 29", "REG_BINARY 60 16 62 51"}) {
    FakeMachine machine;
    machine.Store(machine.Direct3DKey(), "D3DOGL_12677978", sli);
    Driven driven(machine);
    for (const std::string& mode : driven.Items("direct3d.antialiasing.antialiasing-mode")) {
      driven.Choose("direct3d.antialiasing.antialiasing-mode", mode);
      const std::string name = mode == "Auto" ? "auto" : mode;
      EXPECT_TRUE(Pictures(driven).ends_with("/aa/1/" + name + ".jpg")) << mode;
      EXPECT_TRUE(machine.Files().IsPicture("DATA/aa/2/" + name + ".jpg")) << mode;
    }
  }
}

}  // namespace
}  // namespace kestrune::d3d
