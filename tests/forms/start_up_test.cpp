#include <gtest/gtest.h>

#include <algorithm>

#include "fake_machine.h"
#include "ui/forms/main_form.h"

namespace kestrune::forms {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::kOptionsKey;

TEST(StartUpTest, TakesItsStepsInOrder) {
  FakeMachine machine;
  // So that there is a key to read from at each step.
  machine.Store(kOptionsKey, "Language", "REG_SZ en");
  machine.Store(R"(HKLM\Software\Microsoft\Windows NT\CurrentVersion)", "A", "REG_SZ a");
  machine.Store(R"(HKLM\Software\Microsoft\DirectX)", "A", "REG_SZ a");
  machine.Store(R"(HKLM\HARDWARE\DEVICEMAP\VIDEO)", "A", "REG_SZ a");
  machine.Store(R"(HKLM\HARDWARE\DESCRIPTION\System\CentralProcessor\0)", "A", "REG_SZ a");
  machine.Store(machine.DriverKey(), "A", "REG_SZ a");
  machine.Store(test::kTweakKey, "A", "REG_SZ a");
  const Driven driven(machine);
  const char* steps[] = {"read Language",
                         R"(file \DATA\LANGUAGE\en.dat)",
                         "events",
                         "system version",
                         "read CSDVersion",
                         "version d3d9.dll",
                         "read Version",
                         R"(read \Device\Video0)",
                         "version nv4_disp.dll",
                         "device 0",
                         "device 1",
                         "read Device Description",
                         "read VendorIdentifier",
                         "events",
                         R"(file \DATA\mt.dat)",
                         R"(file \DATA\af.dat)",
                         R"(file \DATA\aa.dat)",
                         "read D3DOGL_12677978",
                         "read D3D_98764205",
                         "read OGL_S3TCQuality",
                         "read D3DOGL_12677978",
                         "read CoolBits",
                         "read NvCplDisableRefreshRatePage",
                         "read OverrideMultiTexture",
                         "read OverrideShaders",
                         "read LastUpDate35",
                         "write",
                         "events",
                         "file DATA/aa/1/auto.jpg",
                         "read HelpSystem",
                         "read LVP",
                         "file DATA/hs/pic/ps.jpg"};
  auto at = machine.log.begin();
  for (const std::string step : steps) {
    at = std::find_if(at, machine.log.end(), [&step](const std::string& line) {
      return step == "write" ? line.starts_with("write\t") : line == step;
    });
    ASSERT_NE(at, machine.log.end()) << step << " doesn't follow";
    ++at;
  }
}

TEST(StartUpTest, TheFirstRunShowsTheBasicPageAndLeavesItsVersionAlone) {
  FakeMachine machine;
  const Driven driven(machine);
  EXPECT_TRUE(driven.started);
  EXPECT_EQ(Joined(machine.TakeTrace()), test::kStartUpTrace);
  EXPECT_EQ(driven.State("ActivePage") + driven.State("IsStart") + driven.State("IsLoading"),
            "400");
  EXPECT_TRUE(driven.Visible("info.basic"));
  EXPECT_EQ(driven.Text("main.group-scroll-bar"), "1");
  EXPECT_EQ(driven.Text("main.enable-help-system"), "on");
  EXPECT_EQ(driven.Text("main.remember-last-visited-page"), "off");
  EXPECT_EQ(driven.Caption("main"), "Kestrune SE Build 5");
  EXPECT_EQ(driven.Caption("info.basic.kestrune-se-version"), "Kestrune SE version: 3.5");
  EXPECT_EQ(driven.Caption("main.language-header"), "Interface language");
  EXPECT_EQ(driven.Text("main.language"), "");
  EXPECT_EQ(driven.Text("main.help-system-picture"), "DATA/hs/pic/ps.jpg");
}

TEST(StartUpTest, OnlyTheChosenLanguageIsReadUntilTheOthersAreNeeded) {
  FakeMachine machine;
  Driven driven(machine);
  const auto times_read = [&machine](const std::string& file) {
    return std::count(machine.log.begin(), machine.log.end(), "file \\DATA\\LANGUAGE\\" + file);
  };
  EXPECT_EQ(times_read("en.dat"), 1);
  EXPECT_EQ(times_read("cs.dat"), 0);
  driven.Choose("main.language", 0);
  EXPECT_EQ(times_read("cs.dat"), 1);
  EXPECT_EQ(machine.Stored(kOptionsKey, "Language"), "REG_SZ cs");
}

TEST(StartUpTest, TheRememberedPageIsShownAndOddOnesGiveTheBasicPage) {
  struct Case {
    std::string stored;
    int page;
    std::string remembered;
  };
  const Case cases[] = {{"", 4, "off"},
                        {"REG_DWORD 0", 0, "on"},
                        {"REG_DWORD 15", 15, "on"},
                        {"REG_DWORD 16", 4, "on"},
                        {"REG_DWORD 99", 4, "on"},
                        {"REG_DWORD -2", 4, "on"},
                        {"REG_DWORD -1", 4, "off"},
                        {"REG_SZ 12", 12, "on"},
                        {"REG_BINARY 06", 6, "on"},
                        {"REG_SZ", 4, "off"}};
  for (const Case& each : cases) {
    FakeMachine machine;
    if (!each.stored.empty()) machine.Store(kOptionsKey, "LVP", each.stored);
    const Driven driven(machine);
    EXPECT_EQ(driven.State("ActivePage"), std::to_string(each.page)) << each.stored;
    EXPECT_TRUE(driven.Visible(kPages[static_cast<std::size_t>(each.page)].id)) << each.stored;
    EXPECT_EQ(driven.Text("main.remember-last-visited-page"), each.remembered) << each.stored;
    EXPECT_EQ(Joined(machine.TakeTrace()), test::kStartUpTrace) << each.stored;
  }
}

TEST(StartUpTest, TheHelpOptionIsOnUnlessItIsANumberThatSaysOtherwise) {
  const std::tuple<std::string, std::string, std::string, bool> cases[] = {
      {"REG_DWORD 0", "off", "0", false},
      {"REG_DWORD 1", "on", "1", true},
      {"REG_SZ no", "on", "1", true},
      {"REG_SZ 0", "off", "0", false},
      {"REG_DWORD 5", "on", "5", true}};
  for (const auto& [stored, box, state, picture] : cases) {
    FakeMachine machine;
    machine.Store(kOptionsKey, "HelpSystem", stored);
    const Driven driven(machine);
    EXPECT_EQ(driven.Text("main.enable-help-system"), box) << stored;
    EXPECT_EQ(driven.State("HelpSystemEnabled"), state) << stored;
    EXPECT_EQ(driven.Visible("main.help-system-picture"), picture) << stored;
    EXPECT_EQ(driven.State("LastHelpTopic"), "999");
  }
}

TEST(StartUpTest, AnUpdateAboveZeroIsNamed) {
  const std::pair<const char*, const char*> cases[] = {
      {"REG_DWORD 7", "Kestrune SE version: 3.5 update 7"},
      {"REG_DWORD 0", "Kestrune SE version: 3.5"},
      {"REG_SZ x", "Kestrune SE version: 3.5"}};
  for (const auto& [stored, line] : cases) {
    FakeMachine machine;
    machine.Store(kOptionsKey, "LastUpDate35", stored);
    EXPECT_EQ(Driven(machine).Caption("info.basic.kestrune-se-version"), line);
  }
}

TEST(StartUpTest, VistaHasNoClocksAndNoDirectXReport) {
  for (const int family : {3, 4}) {
    FakeMachine machine({.family = family});
    const Driven driven(machine);
    EXPECT_EQ(driven.Enabled("main.oc"), family == 3);
    EXPECT_EQ(driven.Enabled("main.basicdx"), family == 3);
  }
}

TEST(StartUpTest, AMissingLanguageLeavesEmptyCaptionsAndEverythingUsable) {
  FakeMachine machine;
  machine.Store(kOptionsKey, "Language", "REG_SZ none");
  Driven driven(machine);
  EXPECT_EQ(driven.Caption("direct3d.antialiasing"), "");
  EXPECT_EQ(driven.Caption("main.language-header"), "");
  machine.TakeTrace();
  driven.Tick("direct3d.filtering.trilinear-optimization", false);
  EXPECT_EQ(machine.TakeShortTrace(), "D3D D3D_94118636 = 1");
  driven.Choose("main.language", "English");
  EXPECT_EQ(machine.Stored(kOptionsKey, "Language"), "REG_SZ en");
}

TEST(StartUpTest, EveryTextOfAnotherLanguageIsUsedWhereItIsCompared) {
  FakeMachine machine;
  machine.Store(kOptionsKey, "Language", "REG_SZ cs");
  machine.StoreDirect3D("D3DOGL_74095213", 0x10000001);
  Driven driven(machine);
  const std::string mode = "direct3d.antialiasing.antialiasing-mode";
  const std::vector<std::string> items = driven.Items(mode);
  EXPECT_EQ(driven.Text("direct3d.filtering.anisotropic-filtering"), items[0]);
  machine.TakeTrace();
  driven.Choose(mode, 0);
  driven.Choose(mode, 1);
  EXPECT_EQ(machine.TakeShortTrace(), "D3D D3DOGL_70835937 = 0x10000000, D3D D3DOGL_70835937 = 0");
  driven.Choose("opengl.filtering.anisotropic-filtering", 0);
  EXPECT_EQ(machine.TakeShortTrace(), "D3D D3DOGL_74095213 = 1");
  driven.Choose("opengl.compatibility.opengl-version-override", 0);
  driven.Choose("opengl.misc.synchronization-mode", 0);
  EXPECT_EQ(machine.TakeShortTrace(), "GL DefaultSwapInterval = -1");
}

TEST(StartUpTest, ProgramsOnOneStoreSeeEachOthersChangesAndShareNothingElse) {
  FakeMachine machine;
  FakeMachine other;
  Driven first(machine);
  Driven second(machine);
  const Driven elsewhere(other);
  first.Choose("direct3d.misc.prerender-limit", "7");
  EXPECT_EQ(second.Text("direct3d.misc.prerender-limit"), "2");
  second.ReadAgain();
  EXPECT_EQ(second.Text("direct3d.misc.prerender-limit"), "7");
  second.Press("main.dx");
  EXPECT_EQ(first.State("ActivePage"), "4");
  EXPECT_EQ(elsewhere.Text("direct3d.misc.prerender-limit"), "2");
  EXPECT_EQ(Driven(machine).Text("direct3d.misc.prerender-limit"), "7");
}

TEST(StartUpTest, AStoreThatTakesNoValuesStopsNothing) {
  FakeMachine machine;
  platform::Services services = machine.Services();
  struct Refusing : platform::RegistryWrapper {
    using RegistryWrapper::RegistryWrapper;
    platform::RegStatus SetValue(platform::RegHandle, std::string_view, platform::RegType,
                                 std::span<const std::byte>) override {
      return platform::RegStatus::kWriteFault;
    }
  } refusing(services.registry);
  Program program({refusing, services.display, services.version, services.system, services.shell,
                   services.files, services.dialog});
  EXPECT_TRUE(program.Start(""));
  auto& box = dynamic_cast<controls::CheckBox&>(
      *program.Find("direct3d.filtering.disable-mipmap-filtering"));
  EXPECT_TRUE(box.Use(1));
  EXPECT_EQ(machine.Stored(machine.Direct3DKey(), "D3D_36759435"), "");
}

}  // namespace
}  // namespace kestrune::forms
