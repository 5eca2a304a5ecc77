#include <gtest/gtest.h>

#include "fake_machine.h"
#include "ui/forms/help_window.h"
#include "ui/forms/main_form.h"

namespace kestrune::forms {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::kOptionsKey;

constexpr std::string_view kBar = "main.group-scroll-bar";

TEST(PagesTest, EachKeyShowsItsPageWithItsPlaceInTheGroup) {
  struct Case {
    const char* key;
    int page;
    std::string place;  ///< position and size of the group; empty: no scroll bar
  };
  const Case cases[] = {
      {"nvcpl", 0, "1/2"}, {"dx", 1, "1/5"},      {"ogl", 2, "1/4"},     {"oc", 3, ""},
      {"info", 4, "1/4"},  {"nvcpl1", 0, "1/2"},  {"nvcpl2", 10, "2/2"}, {"aa2", 1, "1/5"},
      {"tf2", 6, "2/5"},   {"ms2", 8, "3/5"},     {"mt", 11, "4/5"},     {"psvs", 12, "5/5"},
      {"aa", 2, "1/4"},    {"tf", 5, "2/4"},      {"ms", 7, "3/4"},      {"oglcs", 13, "4/4"},
      {"basic", 4, "1/4"}, {"basicdx", 9, "2/4"}, {"sys", 14, "3/4"},    {"proc", 15, "4/4"}};
  FakeMachine machine;
  Driven driven(machine);
  for (const Case& each : cases) {
    driven.Press("main." + std::string(each.key));
    EXPECT_EQ(driven.State("ActivePage"), std::to_string(each.page)) << each.key;
    for (int page = 0; page < kPageCount; ++page) {
      EXPECT_EQ(driven.program.Main().Page(page).Visible(), page == each.page) << each.key;
    }
    EXPECT_EQ(driven.Visible(kBar), !each.place.empty()) << each.key;
    const auto& bar = driven.Get<controls::Slider>(kBar);
    if (each.place.empty()) continue;
    EXPECT_EQ(std::to_string(bar.Value()) + "/" + std::to_string(bar.Maximum()), each.place);
  }
}

TEST(PagesTest, TheScrollBarStepsThroughTheGroup) {
  const std::pair<const char*, std::vector<int>> groups[] = {{"nvcpl", {0, 10}},
                                                             {"dx", {1, 6, 8, 11, 12}},
                                                             {"ogl", {2, 5, 7, 13}},
                                                             {"info", {4, 9, 14, 15}}};
  FakeMachine machine;
  Driven driven(machine);
  for (const auto& [key, pages] : groups) {
    driven.Press("main." + std::string(key));
    for (std::size_t i = pages.size(); i > 0; --i) {
      const auto position = static_cast<int>(i);
      driven.Move(kBar, position);
      EXPECT_EQ(driven.State("ActivePage"), std::to_string(pages[i - 1])) << key;
      EXPECT_EQ(driven.Text(kBar), std::to_string(position));
    }
  }
}

TEST(ToolbarTest, OtherKeysLeaveThePageAndStartWhatTheyName) {
  const std::pair<const char*, std::string> keys[] = {
      {"main.nvcpl3", "open desk.cpl"},
      {"main.nvcpl4", "run rundll32.exe nvcpl.dll, launchoverlayapplet"},
      {"main.nvcpl5", "run rundll32.exe nvcpl.dll, launchtvapplet"}};
  FakeMachine machine;
  Driven driven(machine);
  driven.Press("main.tf2");
  for (const auto& [key, trace] : keys) {
    machine.TakeTrace();
    driven.Press(key);
    EXPECT_EQ(Joined(machine.TakeTrace()), trace);
    EXPECT_EQ(driven.State("ActivePage"), "6");
  }
  EXPECT_EQ(machine.last_window, platform::WindowState::kMinimised);
}

TEST(HelpTest, HoveringShowsTheTopicOfASettingOnce) {
  struct Row {
    std::string page;
    const char* id;
    int topic;
  };
  const Row rows[] = {
      {"opengl.filtering.", "filtering-optimizations-frame", 5},
      {"opengl.filtering.", "anisotropic-filtering", 6},
      {"opengl.filtering.", "image-settings", 3},
      {"opengl.filtering.", "texture-lod-bias", 1},
      {"opengl.filtering.", "force-mipmaps", 2},
      {"opengl.filtering.", "manual-intellisample-trilinear-configuration", 14},
      {"opengl.filtering.", "manual-intellisample-texture-compression-configuration", 14},
      {"direct3d.filtering.", "trilinear-optimization", 5},
      {"direct3d.filtering.", "aniso-mip-filter-optimization", 5},
      {"direct3d.filtering.", "aniso-sample-optimization", 5},
      {"direct3d.filtering.", "disable-mipmap-filtering", 4},
      {"direct3d.filtering.", "anisotropic-filtering", 0},
      {"direct3d.filtering.", "intellisample-image-settings", 3},
      {"direct3d.filtering.", "force-mipmaps", 2},
      {"direct3d.filtering.", "texture-lod-bias", 1},
      {"opengl.misc.", "enable-s3tc-texture-compression", 11},
      {"opengl.misc.", "disable-dithering-for-dxt1-textures", 12},
      {"opengl.misc.", "textures-color-depth", 13},
      {"opengl.misc.", "synchronization-mode", 7},
      {"opengl.misc.", "prerender-limit", 8},
      {"direct3d.misc.", "enable-z-buffer-compression", 9},
      {"direct3d.misc.", "enable-fog-table-emulation", 10},
      {"direct3d.misc.", "synchronization-mode", 7},
      {"direct3d.misc.", "prerender-limit", 8},
      // These explain nothing, so the topic stays.
      {"direct3d.filtering.", "force-textures-to-low-mip-level", 8},
      {"direct3d.filtering.", "allow-negative-lod-bias", 8},
      {"opengl.misc.", "triple-buffering", 8},
      {"opengl.misc.", "vertical-synchronization", 8},
      {"opengl.misc.", "s3tc-settings", 8},
      {"opengl.misc.", "other-settings", 8},
      {"opengl.filtering.", "trilinear-quality-label", 8},
      {"opengl.filtering.", "intellisample-settings", 8}};
  FakeMachine machine;
  Driven driven(machine);
  EXPECT_FALSE(driven.Visible("help"));
  driven.program.Main().TheWindow().SetBounds({300, 450, kMainWidth, kLowHeight});
  for (const Row& row : rows) {
    driven.Hover(row.page + row.id);
    EXPECT_EQ(driven.State("LastHelpTopic"), std::to_string(row.topic)) << row.page << row.id;
    for (int topic = 0; topic < kTopicCount; ++topic) {
      EXPECT_EQ(driven.Visible("help.topic-" + std::to_string(topic)), topic == row.topic);
    }
  }
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
  EXPECT_EQ(timers.UntilNext(), -1);
  driven.Hover("info.basic");
  timers.Advance(100);
  EXPECT_EQ(height(), 6305);
  timers.Advance(10000);
  EXPECT_EQ(height(), 5625);
  EXPECT_EQ(timers.UntilNext(), -1);
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
