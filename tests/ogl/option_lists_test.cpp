#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::ogl {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;

constexpr std::string_view kMode = "direct3d.antialiasing.antialiasing-mode";
constexpr std::string_view kGlMode = "opengl.antialiasing.antialiasing-mode";
constexpr std::string_view kAniso = "direct3d.filtering.anisotropic-filtering";
constexpr std::string_view kGlAniso = "opengl.filtering.anisotropic-filtering";

TEST(OptionListsTest, AntialiasingFollowsTheCardTheDriverAndSli) {
  struct Case {
    std::string card;
    int driver;
    bool sli;
    std::string items;
  };
  const std::string all = "Auto, 2x, Quincunx, 4x";
  const std::string more = ", 4x 9-tap, 4xS, 6xS, 8xS, 8x";
  const std::string sli =
      "Auto, SLI 4x, SLI 4xQ, SLI 8x, SLI 8xG, SLI 8xS, SLI 12xS, SLI 16x, SLI 32x";
  const Case cases[] = {{"09,8", 7800, false, "Disabled, " + all + more + ", 16x"},
                        {"09,8", 7800, true, "Disabled, " + sli},
                        {"09,8", 6001, false, "Disabled, " + all + more + ", 16x"},
                        {"09,8", 6000, false, "Disabled, " + all + more},
                        {"09,8", 5001, false, "Disabled, " + all + more},
                        {"09,8", 5000, false, all},
                        {"09,8", 5000, true, sli},
                        {"09,8", 4500, false, all},
                        {"09,q", 7800, true, "Disabled, " + all},
                        {"09,4", 4500, false, "Auto, 2x, 4x"},
                        {"09,0", 7800, false, "Disabled, Auto"},
                        {"09,Q", 7800, false, "Disabled"},
                        {"04,8", 7800, false, "Disabled"},
                        {"04,8", 4500, false, ""}};
  for (const Case& each : cases) {
    FakeMachine machine({.driver = each.driver});
    machine.Lay("DATA/aa.dat", each.card);
    if (each.sli) machine.StoreDirect3D("D3DOGL_12677978", 0x29060797);
    const Driven driven(machine);
    EXPECT_EQ(Joined(driven.Items(kMode)), each.items) << each.card << " " << each.driver;
    EXPECT_EQ(Joined(driven.Items(kGlMode)), each.items) << each.card << " " << each.driver;
  }
}

TEST(OptionListsTest, AnisotropyFollowsTheCardAndTheInterface) {
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"09,0", "Auto", ""},
      {"09,2", "Auto, ", "2x"},
      {"09,8", "Auto, ", "2x, 4x, 8x"},
      {"09,16", "Auto, ", "2x, 4x, 8x, 16x"},
      {"09,4", "", ""},
      {"04,16", "Auto", ""}};
  for (const auto& [card, first, rest] : cases) {
    for (const int driver : {4500, 5000, 5001}) {
      FakeMachine machine({.driver = driver});
      machine.Lay("DATA/af.dat", card);
      const Driven driven(machine);
      const std::string bilinear = rest.empty() ? "" : "Bilinear, ";
      EXPECT_EQ(Joined(driven.Items(kAniso)), first + bilinear + rest) << card;
      EXPECT_EQ(Joined(driven.Items(kGlAniso)), first + (driver > 5000 ? bilinear : "") + rest)
          << card << " " << driver;
    }
  }
}

TEST(OptionListsTest, FixedListsHaveTheirOrder) {
  FakeMachine machine({.driver = 6101});
  Driven driven(machine);
  driven.ReadAgain();
  const std::pair<std::string_view, std::string> lists[] = {
      {"direct3d.filtering.force-mipmaps", "None, Bilinear, Trilinear"},
      {"opengl.filtering.force-mipmaps", "None, Bilinear, Trilinear"},
      {"direct3d.filtering.intellisample-image-settings",
       "High performance, Performance, Quality, High quality"},
      {"opengl.filtering.image-settings", "High performance, Performance, Quality, High quality"},
      {"direct3d.misc.synchronization-mode", "Auto, Enabled, Disabled"},
      {"direct3d.misc.prerender-limit", "0, 1, 2, 3, 4, 5, 6, 7, 8, 9"},
      {"opengl.misc.synchronization-mode", "Disabled, On by default, Off by default"},
      {"opengl.misc.prerender-limit", "1, 2, 3, 4, 5, 6, 7, 8, 9"},
      {"opengl.misc.textures-color-depth", "Desktop default, 16-bit, 32-bit"},
      {"control-panel.resolution.select-from-list",
       "640x480, 800x600, 1024x768, 1152x864, 1280x1024, 1600x1200"},
      {"opengl.compatibility.opengl-version-override",
       "No override, 1.0, 1.1, 1.2, 1.3, 1.4, 1.5, 2.0"},
      {"direct3d.antialiasing.transparency-antialiasing", "Disabled, Multisampling, Supersampling"},
      {"opengl.antialiasing.transparency-antialiasing", "Disabled, Multisampling, Supersampling"}};
  for (const auto& [id, items] : lists) EXPECT_EQ(Joined(driven.Items(id)), items) << id;
}

TEST(OptionListsTest, RebuildingKeepsTheTextsThatTheNewListsLack) {
  FakeMachine machine({.driver = 4500});
  Driven driven(machine);
  driven.Type(kMode, "made up");
  driven.Type(kGlAniso, "3x");
  const std::vector<std::string> before = driven.Items(kMode);
  machine.StoreDirect3D("D3d_70835937", 77);
  driven.ReadAgain();
  EXPECT_EQ(driven.Items(kMode), before);
  EXPECT_EQ(driven.Text(kMode), "made up");
}

TEST(OptionListsTest, TransparencyAndGammaAreOfferedByDevice) {
  const std::pair<const char*, bool> devices[] = {
      {"0091", true}, {"00F5", true}, {"0141", false}, {"00F6", false}, {"0040", false}};
  for (const auto& [device, offered] : devices) {
    FakeMachine machine({.device = device});
    const Driven driven(machine);
    for (const std::string page : {"direct3d.antialiasing.", "opengl.antialiasing."}) {
      for (const char* id : {"transparency-antialiasing", "transparency-antialiasing-label",
                             "gamma-correct-antialiasing"}) {
        EXPECT_EQ(driven.Enabled(page + id), offered) << device << page << id;
      }
    }
  }
}

}  // namespace
}  // namespace kestrune::ogl
