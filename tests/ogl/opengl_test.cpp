// What the OpenGL pages do in turn; the listing of tests/catalogue has each value by itself.

#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::ogl {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;

constexpr std::string_view kManualTrilinear =
    "opengl.filtering.manual-intellisample-trilinear-configuration";
constexpr std::string_view kTrilinear = "opengl.filtering.trilinear-quality";
constexpr std::string_view kTrilinearLabel = "opengl.filtering.trilinear-quality-label";
constexpr std::string_view kManualCompression =
    "opengl.filtering.manual-intellisample-texture-compression-configuration";
constexpr std::string_view kByApplication = "opengl.filtering.texture-compression-by-application";
constexpr std::string_view kCompressed = "opengl.filtering.texture-compression-enabled";
constexpr std::string_view kS3tc = "opengl.misc.enable-s3tc-texture-compression";
constexpr std::string_view kNoDithering = "opengl.misc.disable-dithering-for-dxt1-textures";

TEST(OpenGLPagesTest, ManualTrilinearOpensItsSliderAndPutsItBack) {
  FakeMachine machine;
  Driven driven(machine);
  driven.Tick(kManualTrilinear);
  EXPECT_TRUE(driven.Enabled(kTrilinear) && driven.Enabled(kTrilinearLabel));
  driven.Move(kTrilinear, 25);
  EXPECT_EQ(driven.Caption(kTrilinearLabel), "Trilinear quality: Low");
  machine.TakeTrace();
  driven.Tick(kManualTrilinear, false);
  EXPECT_EQ(Joined(machine.TakeTrace()), "delete K OGL_95282304");
  EXPECT_FALSE(driven.Enabled(kTrilinear) || driven.Enabled(kTrilinearLabel));
  EXPECT_EQ(driven.Text(kTrilinear), "1");
}

TEST(OpenGLPagesTest, ManualCompressionStartsByApplication) {
  FakeMachine machine;
  Driven driven(machine);
  for (int round = 0; round < 2; ++round) {
    driven.Tick(kManualCompression);
    EXPECT_TRUE(driven.Enabled(kByApplication) && driven.Enabled(kCompressed));
    EXPECT_EQ(driven.Text(kByApplication) + driven.Text(kCompressed), "onoff");
    driven.Press(kCompressed);
    driven.Tick(kManualCompression, false);
    EXPECT_FALSE(driven.Enabled(kByApplication) || driven.Enabled(kCompressed));
  }
}

TEST(OpenGLPagesTest, TwoBoxesAreTheBitsOfOneValue) {
  const std::tuple<std::string_view, bool, const char*> steps[] = {{kS3tc, true, "01"},
                                                                   {kNoDithering, true, "03"},
                                                                   {kS3tc, false, "02"},
                                                                   {kNoDithering, false, "00"}};
  FakeMachine machine;
  Driven driven(machine);
  machine.TakeTrace();
  for (const auto& [box, on, stored] : steps) {
    driven.Tick(box, on);
    EXPECT_EQ(Joined(machine.TakeTrace()),
              "write K OGL_S3TCQuality REG_BINARY " + std::string(stored) + " 00 00 00");
  }
}

TEST(OpenGLPagesTest, DebugSwitchesTakeNumbersOfAnyType) {
  const std::pair<const char*, const char*> cases[] = {
      {"REG_BINARY 01", "on"}, {"REG_SZ 1", "on"}, {"REG_SZ x", "off"}, {"REG_DWORD 3", "off"}};
  for (const auto& [value, shown] : cases) {
    FakeMachine machine;
    for (const char* name : {"NV4xGLSLFunctionality", "Renderer"}) {
      machine.Store(test::kDebugKey, name, value);
    }
    const Driven driven(machine);
    EXPECT_EQ(driven.Text("opengl.compatibility.nv4x-glsl-support"), shown) << value;
    EXPECT_EQ(driven.Text("opengl.compatibility.force-software-rasterization"), shown) << value;
  }
}

TEST(OptionListsTest, RebuildingKeepsTheTextsThatTheNewListsLack) {
  const std::string mode = "direct3d.antialiasing.antialiasing-mode";
  FakeMachine machine({.driver = 4500});
  Driven driven(machine);
  driven.Type(mode, "made up");
  const std::vector<std::string> before = driven.Items(mode);
  machine.StoreDirect3D("D3d_70835937", 77);
  driven.ReadAgain();
  EXPECT_EQ(driven.Items(mode), before);
  EXPECT_EQ(driven.Text(mode), "made up");
}

}  // namespace
}  // namespace kestrune::ogl
