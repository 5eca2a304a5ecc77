#include <gtest/gtest.h>

#include "fake_machine.h"
#include "ui/forms/main_form.h"

namespace kestrune::forms {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::kOptionsKey;

TEST(HelpTest, StandsBesideTheMainWindowWithATopicThatOthersLeave) {
  FakeMachine machine;
  Driven driven(machine);
  EXPECT_FALSE(driven.Visible("help"));
  driven.program.Main().TheWindow().SetBounds({300, 450, kMainWidth, kLowHeight});
  driven.Hover("direct3d.misc.prerender-limit");
  driven.Hover("opengl.misc.triple-buffering");
  EXPECT_EQ(driven.State("LastHelpTopic"), "8");
  EXPECT_TRUE(driven.Visible("help"));
  EXPECT_EQ(driven.program.FormOf("help").TheWindow().Bounds().left, 300 + kMainWidth);
  EXPECT_EQ(driven.program.FormOf("help").TheWindow().Bounds().top, 450);
}

TEST(HelpTest, IsClosedByTheToolbarAndByItsOption) {
  const std::string setting = "direct3d.misc.prerender-limit";
  FakeMachine machine;
  Driven driven(machine);
  driven.Hover(setting);
  driven.program.FormOf("help").TheWindow().UseClose();
  EXPECT_FALSE(driven.Visible("help"));
  driven.Hover(setting);
  EXPECT_TRUE(driven.Visible("help"));
  driven.Press("main.pw");
  EXPECT_FALSE(driven.Visible("help"));
  driven.Hover("direct3d.misc.synchronization-mode");
  machine.TakeTrace();
  driven.Tick("main.enable-help-system", false);
  EXPECT_EQ(Joined(machine.TakeTrace()), R"(write HKCU\Software\Kestrune HelpSystem REG_DWORD 0)");
  EXPECT_FALSE(driven.Visible("help") || driven.Visible("main.help-system-picture"));
  driven.Hover(setting);
  EXPECT_FALSE(driven.Visible("help"));
  driven.Tick("main.enable-help-system");
  EXPECT_EQ(machine.Stored(kOptionsKey, "HelpSystem"), "REG_DWORD 1");
  EXPECT_TRUE(driven.Visible("main.help-system-picture"));
}

TEST(HelpTest, FadesInEachTimeItIsOpenedAndNotForAnotherTopic) {
  FakeMachine machine;
  Driven driven(machine);
  controls::Scheduler& timers = driven.program.Timers();
  const controls::Window& help = driven.program.FormOf("help").TheWindow();
  for (const char* way : {"help.close", "close box"}) {
    driven.Hover("direct3d.misc.prerender-limit");
    EXPECT_EQ(help.Opacity(), 0) << way;
    timers.Advance(500);
    EXPECT_EQ(help.Opacity(), 250) << way;
    driven.Hover("direct3d.misc.synchronization-mode");
    EXPECT_EQ(help.Opacity(), 250) << way;
    timers.Advance(10);
    EXPECT_EQ(help.Opacity(), 255) << way;
    EXPECT_EQ(driven.State("TranslucenceLevel"), "255");
    if (way == std::string("help.close")) {
      driven.Press(way);
    } else {
      driven.program.FormOf("help").TheWindow().UseClose();
    }
    EXPECT_EQ(driven.State("LastHelpTopic"), "999") << way;
  }
  // Closed while it still fades in, it leaves nothing behind.
  driven.Hover("direct3d.misc.prerender-limit");
  driven.Press("main.dx");
  EXPECT_FALSE(driven.Visible("help"));
  EXPECT_EQ(driven.State("LastHelpTopic"), "8");
  timers.Advance(1000);
  EXPECT_EQ(driven.State("TranslucenceLevel"), "0");
}

TEST(HelpTest, ShowsWhatLevelOfDetailDoes) {
  FakeMachine machine;
  Driven driven(machine);
  const std::pair<const char*, const char*> cases[] = {
      {"help.negative-values-quality", "DATA/hs/pic/high_lod.jpg"},
      {"help.original-zero-value", "DATA/hs/pic/normal_lod.jpg"},
      {"help.high-values-performance", "DATA/hs/pic/low_lod.jpg"}};
  driven.Hover("direct3d.filtering.texture-lod-bias");
  EXPECT_EQ(driven.State("LastHelpTopic"), "1");
  EXPECT_EQ(driven.Text("help.lod-picture"), cases[1].second);
  EXPECT_EQ(driven.Text("help.mipmap-picture"), "DATA/hs/pic/mipmap.jpg");
  for (const auto& [option, picture] : cases) {
    driven.Get<controls::OptionButton>(option).Use();
    EXPECT_EQ(driven.Text("help.lod-picture"), picture);
    EXPECT_TRUE(machine.Files().IsPicture(picture)) << picture;
  }
  EXPECT_TRUE(machine.Files().IsPicture("DATA/hs/pic/mipmap.jpg"));
  // Opened anew, it begins with the middle one.
  driven.Press("help.close");
  driven.Hover("direct3d.filtering.texture-lod-bias");
  EXPECT_EQ(driven.Text("help.original-zero-value"), "on");
  EXPECT_EQ(driven.Text("help.lod-picture"), cases[1].second);
}

TEST(HelpTest, TheFilteringToolIsStartedFromTheProgramFolder) {
  FakeMachine machine;
  Driven driven(machine);
  driven.Hover("direct3d.filtering.anisotropic-filtering");
  machine.TakeTrace();
  driven.Press("help.direct3d-texture-filtering-tool");
  EXPECT_EQ(Joined(machine.TakeTrace()), "run " KESTRUNE_DATA_FOLDER R"(\data\rtaf.exe)");
  EXPECT_EQ(machine.last_window, platform::WindowState::kNormal);
}

TEST(LowerPanelTest, GrowsFromItsEdgeAndShrinksOverAPage) {
  FakeMachine machine;
  Driven driven(machine);
  controls::Scheduler& timers = driven.program.Timers();
  const auto height = [&driven] { return driven.program.Main().TheWindow().Bounds().height; };
  EXPECT_EQ(height(), 5625);
  driven.Hover("main.lower-panel-edge");
  timers.Advance(99);
  EXPECT_EQ(height(), 5625);
  timers.Advance(1);
  EXPECT_EQ(height(), 5725);
  driven.Hover("main.lower-panel-edge");
  timers.Advance(600);
  EXPECT_EQ(height(), 6325);
  timers.Advance(100);
  EXPECT_EQ(height(), 6405);
  // What is left runs more seldom than the panel's own timer.
  EXPECT_EQ(timers.UntilNext(), 200);
  driven.Hover("info.basic");
  timers.Advance(100);
  EXPECT_EQ(height(), 6305);
  timers.Advance(9900);
  EXPECT_EQ(height(), 5625);
  EXPECT_EQ(timers.UntilNext(), 200);
}

TEST(MainWindowTest, IsNeitherMaximisedNorWidened) {
  FakeMachine machine;
  Driven driven(machine);
  controls::Window& window = driven.program.Main().TheWindow();
  window.UseResized({0, 0, kMainWidth, kLowHeight}, true);
  EXPECT_FALSE(window.Maximised());
  window.UseResized({30, 45, 12000, kLowHeight}, false);
  EXPECT_EQ(window.Bounds(), (controls::Rect{30, 45, 8175, kLowHeight}));
}

TEST(MainWindowTest, RemembersThePageWhenAskedAtOnceAndAtTheEnd) {
  FakeMachine machine;
  Driven driven(machine);
  driven.Press("main.ms2");
  machine.TakeTrace();
  driven.Tick("main.remember-last-visited-page");
  EXPECT_EQ(Joined(machine.TakeTrace()), R"(write HKCU\Software\Kestrune LVP REG_DWORD 8)");
  driven.ReadAgain();  // leaves the flag for binary values at 1
  driven.Press("main.oglcs");
  machine.TakeTrace();
  driven.program.Main().TheWindow().UseClose();
  EXPECT_EQ(Joined(machine.TakeTrace()), R"(write HKCU\Software\Kestrune LVP REG_DWORD 13)");
  EXPECT_TRUE(driven.program.Ended());
  EXPECT_EQ(Driven(machine).State("ActivePage"), "13");
}

TEST(MainWindowTest, ForgetsThePageWhenTheOptionIsOff) {
  FakeMachine machine;
  machine.Store(kOptionsKey, "LVP", "REG_DWORD 5");
  Driven driven(machine);
  machine.TakeTrace();
  driven.Tick("main.remember-last-visited-page", false);
  EXPECT_EQ(Joined(machine.TakeTrace()), R"(delete HKCU\Software\Kestrune LVP)");
  driven.Hover("direct3d.misc.prerender-limit");
  machine.Store(kOptionsKey, "LVP", "REG_DWORD 7");
  driven.program.Main().TheWindow().UseClose();
  driven.program.Main().TheWindow().UseClose();
  EXPECT_EQ(Joined(machine.TakeTrace()), R"(delete HKCU\Software\Kestrune LVP)");
  EXPECT_FALSE(driven.Visible("help") || driven.Visible("main"));
}

}  // namespace
}  // namespace kestrune::forms
