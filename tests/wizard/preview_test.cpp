// What the pages will show for a writer's code, by driver.

#include "wizard/preview.h"

#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::wizard {
namespace {

using settings::Writer;
using test::FakeMachine;

TEST(PreviewTest, SaysWhatTheDriverAtHandKeeps) {
  struct Case {
    int family;
    int driver;
    int sli;
    WriterCall call;
    const char* shown;  ///< empty: nothing of the code is kept
  };
  constexpr Writer kD3d = Writer::kDirect3D;
  constexpr Writer kGl = Writer::kOpenGL;
  const Case cases[] = {
      {3, 8000, 0, {kD3d, 101}, "|8xS"},
      {3, 8000, 1, {kD3d, 101}, "|SLI 16x"},
      {3, 8000, 1, {kD3d, 7}, "|8x"},
      {3, 8000, 1, {kD3d, 0}, "|Auto"},
      {3, 8000, 1, {kGl, 62}, "|SLI 32x"},
      // The shared value, where the driver has one of its own.
      {2, 4999, 0, {kD3d, 101}, ""},
      {2, 4999, 1, {kD3d, 8}, "|6xS (12x)"},
      {2, 4999, 0, {kD3d, 0}, "|Disabled"},
      {2, 4999, 0, {kGl, 0}, "|Auto"},
      {2, 4999, 0, {kGl, 61}, "|8xS"},
      {2, 4999, 0, {kD3d, 112}, "|16x"},
      {2, 4102, 0, {kD3d, 36}, "|Auto"},
      {3, 5999, 0, {kD3d, 113}, "|High quality"},
      {3, 8000, 0, {kGl, 63, -30}, "Texture LOD bias: |-30"},
      {3, 8000, 0, {kGl, 66, 31}, "Trilinear quality: |Low"},
      {3, 8000, 0, {kGl, 65}, "|off"},
      {3, 8000, 0, {kGl, 9999}, ""},
      // The oldest drivers take some codes in words of their own, and one bias alone.
      {0, 2280, 0, {kD3d, 3}, "|4x"},
      {0, 2280, 0, {kD3d, 2}, ""},
      {0, 2280, 0, {kD3d, 36}, ""},
      {0, 2280, 0, {kD3d, 113}, ""},
      {0, 2280, 0, {kD3d, 30, 5}, "Texture LOD bias: |10"},
      {0, 2280, 0, {kGl, 63, 5}, "Texture LOD bias: |5"},
      {0, 2281, 0, {kD3d, 30, 5}, "Texture LOD bias: |5"},
  };
  FakeMachine machine;
  core::basRegistry registry(machine.Services().registry);
  lang::Language language(registry, machine.Files(), machine);
  language.LoadLanguage();
  detect::VersionState versions;
  const detect::AdapterState adapter;
  const core::ProgramState program;
  const settings::Hardware hardware{versions, adapter, program};
  const settings::SettingsKey key(registry, versions, adapter, "", "");
  d3d::Direct3DState state;
  const d3d::Direct3DContext context{key, hardware, language.LangText, {}, state};
  for (const Case& each : cases) {
    versions.OSFamily = each.family;
    versions.DrvVer = each.driver;
    state.SliAaOn = each.sli;
    const auto shown = ShownAfter(each.call, context);
    EXPECT_EQ(shown ? shown->caption + "|" + shown->choice : "", each.shown)
        << each.driver << " " << each.call.code;
  }
}

}  // namespace
}  // namespace kestrune::wizard
