// What the Direct3D pages do in turn; the listing of tests/catalogue has each value by itself.

#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::d3d {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::MachineKind;

constexpr std::string_view kMode = "direct3d.antialiasing.antialiasing-mode";
constexpr std::string_view kGlMode = "opengl.antialiasing.antialiasing-mode";
constexpr std::string_view kTransparency = "direct3d.antialiasing.transparency-antialiasing";
constexpr std::string_view kGlTransparency = "opengl.antialiasing.transparency-antialiasing";
constexpr std::string_view kGamma = "direct3d.antialiasing.gamma-correct-antialiasing";
constexpr std::string_view kGlGamma = "opengl.antialiasing.gamma-correct-antialiasing";
constexpr std::string_view kSli = "direct3d.antialiasing.enable-sli-antialiasing";
constexpr std::string_view kGlSli = "opengl.antialiasing.enable-sli-antialiasing";

TEST(SharedAntialiasingTest, FlagsRewriteTheCurrentModeOnce) {
  FakeMachine machine({.driver = 8195});
  Driven driven(machine);
  machine.TakeTrace();
  struct Step {
    std::string_view id;
    std::string_view use;
    std::string trace;
  };
  const std::string write = "write K D3DOGL_70835937 REG_BINARY ";
  const Step steps[] = {
      {kTransparency, "Multisampling", write + "00 00 00 00"},  // Auto carries no flags
      {kMode, "4x", write + "10 00 01 10"},
      {kMode, "4x", write + "10 00 01 10"},
      {kGamma, "on", write + "10 00 11 10"},
      {kGlTransparency, "Supersampling", write + "10 00 10 50"},
      {kGlTransparency, "Supersampling", write + "10 00 10 50"},
      {kTransparency, "Supersampling", ""},  // the twin shows it already
      {kGlGamma, "off", write + "10 00 00 50"},
      {kGlMode, "8xS", write + "18 00 00 50"},
      {kTransparency, "Disabled", write + "18 00 00 10"},
      {kMode, "Disabled", write + "00 00 00 10"},
      {kGamma, "on", ""},
      {kTransparency, "Multisampling", write + "00 00 11 10"},
      {kGlMode, "Auto", write + "00 00 00 00"},
      {kGlGamma, "off", ""}};  // the flags went with the mode
  for (const Step& step : steps) {
    driven.Use(step.id, step.use);
    EXPECT_EQ(Joined(machine.TakeTrace()), step.trace) << step.id << "=" << step.use;
    EXPECT_EQ(driven.Text(kTransparency), driven.Text(kGlTransparency)) << step.id;
    EXPECT_EQ(driven.Text(kGamma), driven.Text(kGlGamma)) << step.id;
    EXPECT_EQ(driven.Text(kMode), driven.Text(kGlMode)) << step.id;
  }
}

TEST(SharedAntialiasingTest, SliIsWrittenOnceFollowedByItsTwinAndRenamesTheModes) {
  for (const auto& [box, twin] : {std::pair(kSli, kGlSli), std::pair(kGlSli, kSli)}) {
    FakeMachine machine({.driver = 7800});
    machine.StoreDirect3D("D3DOGL_70835937", 0x10000010);
    Driven driven(machine);
    machine.TakeTrace();
    driven.Tick(box);
    EXPECT_EQ(Joined(machine.TakeTrace()), "write K D3DOGL_12677978 REG_BINARY 97 07 06 29");
    EXPECT_EQ(driven.Text(twin) + driven.State("SliAaOn"), "on1");
    EXPECT_EQ(driven.Text(kMode) + "/" + driven.Text(kGlMode), "SLI 8x/SLI 8x");
    EXPECT_EQ(driven.State("IsStart"), "0");
    driven.Tick(box, false);
    EXPECT_EQ(Joined(machine.TakeTrace()), "write K D3DOGL_12677978 REG_BINARY 60 16 62 51");
    EXPECT_EQ(driven.Text(kMode), "4x");
  }
}

TEST(OldAntialiasingTest, TheSwitchForcesTheModeOffAndNothingSharedIsRead) {
  for (const MachineKind& setup : {MachineKind{0, 4500}, MachineKind{3, 4999}}) {
    FakeMachine machine(setup);
    machine.StoreDirect3D("D3d_70835937", 3);
    machine.StoreDirect3D("D3DOGL_70835937", 0x1000000E);
    const std::pair<std::uint32_t, const char*> switches[] = {
        {0, "4x"}, {0x57015990, "4x"}, {0x06326293, "Disabled"}};
    for (const auto& [number, shown] : switches) {
      machine.StoreDirect3D("D3D_08285629", number);
      const Driven driven(machine);
      EXPECT_EQ(driven.Text(kMode), shown) << number;
      EXPECT_EQ(driven.State("CurrentAaModeText"), "");
    }
  }
}

}  // namespace
}  // namespace kestrune::d3d
