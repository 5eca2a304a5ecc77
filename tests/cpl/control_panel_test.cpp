// The switches of the driver's own control panel, by page 0.

#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::cpl {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::kTweakKey;
using test::MachineKind;

const std::string kPage = "control-panel.settings.";
const std::string kCoolBits = kPage + "enable-coolbits-overclocking";
const std::string kAgp = kPage + "enable-agp-settings-page";
const std::string kProfiles = kPage + "enable-application-profile-page";
const std::string kRefresh = kPage + "enable-direct3d-refreh-rate-page";
const std::string kPicture = kPage + "picture";

std::string Line(std::string_view name, std::string_view number) {
  return "write " + std::string(kTweakKey) + " " + std::string(name) + " REG_DWORD " +
         std::string(number);
}

struct ReadCase {
  std::string box;
  std::string_view name;
  std::vector<std::pair<std::string, std::string>> shown;  ///< stored, in turn; empty: not set
};

TEST(ControlPanelTest, EachSwitchShowsWhatIsStoredEachTimeThePageIsShown) {
  const std::vector<std::pair<std::string, std::string>> states = {{"", "off"},
                                                                   {"REG_DWORD 1", "on"},
                                                                   {"REG_DWORD 3", "on"},
                                                                   {"REG_DWORD 0", "off"},
                                                                   {"REG_DWORD -1", "off"},
                                                                   {"REG_DWORD 2", "mixed"},
                                                                   {"REG_SZ 1", "on"},
                                                                   {"REG_SZ x", "off"}};
  const ReadCase cases[] = {
      {kCoolBits,
       "CoolBits",
       {{"", "off"},
        {"REG_DWORD 3", "on"},
        {"REG_DWORD 1", "off"},
        {"REG_BINARY FF FF FF FF", "on"},
        {"REG_DWORD 2", "off"}}},
      {kAgp,
       "NvCplEnableAGPSettingsPage",
       {{"", "off"}, {"REG_DWORD 1", "on"}, {"REG_DWORD 2", "off"}}},
      {kPage + "enable-additional-info-page", "NvCplEnableAdditionalInfoPage", states},
      {kPage + "enable-troubleshooting-page", "NvCplEnableTroubleshootingPage", states},
      {kPage + "override-nview-capable", "TwinViewCapsOverride", states},
      {kPage + "enable-overlay-control-in-span-mode", "NvCplEnableOverlaySpanControl", states},
      {kProfiles,
       "NvCplEnableAppProfilePage",
       {{"", "on"}, {"REG_DWORD 0", "off"}, {"REG_DWORD 7", "off"}, {"", "on"}}},
      {kRefresh,
       "NvCplDisableRefreshRatePage",
       {{"REG_DWORD 1", "off"}, {"REG_DWORD 0", "on"}, {"REG_DWORD 5", "on"}}}};
  for (const MachineKind& kind : {MachineKind{0, 4500}, MachineKind{2, 8000}}) {
    FakeMachine machine(kind);
    Driven driven(machine);
    for (const ReadCase& each : cases) {
      for (const auto& [stored, shown] : each.shown) {
        stored.empty() ? machine.Unset(kTweakKey, each.name)
                       : machine.Store(kTweakKey, each.name, stored);
        machine.TakeTrace();
        driven.Press("main.nvcpl1");
        EXPECT_EQ(driven.Text(each.box), shown) << each.name << " " << stored;
        EXPECT_EQ(Joined(machine.TakeTrace()), "");
      }
    }
  }
}

TEST(ControlPanelTest, EachUseIsOneDwordWhateverTheFlagWas) {
  const std::tuple<std::string, std::string_view, std::string, std::string> boxes[] = {
      {kPage + "enable-additional-info-page", "NvCplEnableAdditionalInfoPage", "1", "0"},
      {kPage + "enable-troubleshooting-page", "NvCplEnableTroubleshootingPage", "1", "0"},
      {kPage + "override-nview-capable", "TwinViewCapsOverride", "1", "0"},
      {kPage + "enable-overlay-control-in-span-mode", "NvCplEnableOverlaySpanControl", "1", "0"},
      {kProfiles, "NvCplEnableAppProfilePage", "1", "0"},
      {kRefresh, "NvCplDisableRefreshRatePage", "0", "1"}};
  for (const int family : {0, 1, 3}) {
    FakeMachine machine({.family = family});
    Driven driven(machine);
    for (const auto& [box, name, on, off] : boxes) {
      driven.Tick(box, false);
      // Reading the settings leaves the flag at 1 on the NT family.
      driven.ReadAgain();
      machine.TakeTrace();
      driven.Tick(box);
      driven.Tick(box, false);
      EXPECT_EQ(Joined(machine.TakeTrace()), Line(name, on) + ", " + Line(name, off)) << family;
    }
  }
}

TEST(ControlPanelTest, CoolBitsUnlockByWhatTheDriverTakes) {
  const std::tuple<int, int, std::string> cases[] = {
      {3, 7184, "-1"}, {1, 4041, "-1"}, {3, 4040, "3"}, {3, 4000, "3"}, {0, 7184, "3"}};
  for (const auto& [family, driver, on] : cases) {
    FakeMachine machine({.family = family, .driver = driver});
    Driven driven(machine);
    driven.ReadAgain();
    machine.TakeTrace();
    driven.Tick(kCoolBits);
    driven.Tick(kCoolBits, false);
    EXPECT_EQ(Joined(machine.TakeTrace()), Line("CoolBits", on) + ", " + Line("CoolBits", "0"));
  }
}

TEST(ControlPanelTest, TheAgpSwitchGoesToTheClockKeyOnWindows9x) {
  for (const auto& [driver, subkey] :
       {std::pair(2200, ""),
        std::pair(8000, R"(\Devices\VEN_10DE&DEV_0281&SUBSYS_C5201458&REV_A1&INST00)")}) {
    FakeMachine machine({.family = 0, .driver = driver, .device = "0281"});
    Driven driven(machine);
    machine.TakeTrace();
    driven.Tick(kAgp);
    EXPECT_EQ(Joined(machine.TakeTrace()),
              R"(write HKLM\Software\NVIDIA Corporation\Global\NVTweak)" + std::string(subkey) +
                  R"(\Hardware NvCplEnableAGPSettingsPage REG_DWORD 1)");
    driven.Press("main.nvcpl");
    EXPECT_EQ(driven.Text(kAgp), "off");  // it is read where the other switches are
  }
  FakeMachine machine({.device = "0281"});
  Driven driven(machine);
  machine.TakeTrace();
  driven.Tick(kAgp);
  driven.Tick(kAgp, false);
  EXPECT_EQ(Joined(machine.TakeTrace()), Line("NvCplEnableAGPSettingsPage", "1") + ", " +
                                             Line("NvCplEnableAGPSettingsPage", "0"));
}

TEST(ControlPanelTest, BoxesAreOfferedByCardAndDriver) {
  const std::pair<const char*, bool> agp[] = {{"0141", false}, {"0161", false}, {"0091", false},
                                              {"00FA", false}, {"00FB", false}, {"00FC", false},
                                              {"00FD", false}, {"00FF", false}, {"00FE", true},
                                              {"00F9", true},  {"0281", true},  {"", true}};
  for (const auto& [device, offered] : agp) {
    FakeMachine machine({.device = device});
    EXPECT_EQ(Driven(machine).Enabled(kAgp), offered) << device;
  }
  const std::tuple<int, bool, std::string> drivers[] = {
      {5300, false, "on"}, {5499, false, "on"}, {5500, true, "on"}, {6693, true, "on"},
      {7000, true, "on"},  {7001, true, "off"}, {7184, true, "off"}};
  for (const auto& [driver, profiles, refresh] : drivers) {
    FakeMachine machine({.driver = driver});
    const Driven driven(machine);
    EXPECT_EQ(driven.Enabled(kProfiles), profiles) << driver;
    EXPECT_EQ(driven.Text(kProfiles), "on");
    EXPECT_EQ(driven.Text(kRefresh), refresh) << driver;
    for (const char* id : {"enable-thermal-settings-page", "enable-heat-indicator-warning",
                           "display-core-temperature-in-system-tray-area"}) {
      EXPECT_FALSE(driven.Enabled(kPage + id)) << id;
    }
  }
}

TEST(ControlPanelTest, ThePictureFollowsTheMouse) {
  FakeMachine machine;
  Driven driven(machine);
  EXPECT_FALSE(driven.Visible(kPicture));
  driven.Hover(kPage + "enable-thermal-settings-page");
  EXPECT_TRUE(driven.Visible(kPicture));
  EXPECT_EQ(driven.Text(kPicture), "");
  const std::pair<const char*, const char*> tags[] = {
      {"enable-coolbits-overclocking", "oc"},
      {"enable-agp-settings-page", "agp"},
      {"enable-additional-info-page", "additional"},
      {"enable-troubleshooting-page", "debug"},
      {"enable-application-profile-page", "app"},
      {"enable-overlay-control-in-span-mode", "ovl"},
      {"enable-direct3d-refreh-rate-page", "refresh"},
      {"override-nview-capable", "nview"},
      {"enable-heat-indicator-warning", "nview"}};
  for (const auto& [box, tag] : tags) {
    driven.Hover(kPage + box);
    EXPECT_EQ(driven.Text(kPicture), "DATA/cpl/" + std::string(tag) + ".jpg");
  }
  machine.log.clear();
  driven.Hover(kPage + "override-nview-capable");
  EXPECT_TRUE(machine.log.empty());
  machine.Lay("DATA/cpl/oc.jpg", "no picture");
  driven.Hover(kCoolBits);
  EXPECT_EQ(driven.Text(kPicture), "DATA/cpl/nview.jpg");
  machine.TakeTrace();
  driven.Press(kPicture);
  EXPECT_EQ(Joined(machine.TakeTrace()), "open desk.cpl");
}

}  // namespace
}  // namespace kestrune::cpl
