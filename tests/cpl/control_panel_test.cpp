// The switches of the driver's own control panel, by page 0; the listing of tests/catalogue has
// what each shows and stores.

#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::cpl {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;

const std::string kPage = "control-panel.settings.";
const std::string kPicture = kPage + "picture";

TEST(ControlPanelTest, WhatIsStoredIsShownEachTimeThePageIsAndWritesNothing) {
  const std::string box = kPage + "override-nview-capable";
  FakeMachine machine;
  Driven driven(machine);
  machine.TakeTrace();
  for (const auto& [stored, shown] :
       {std::pair("REG_DWORD 1", "on"), {"REG_SZ x", "off"}, {"REG_SZ 1", "on"}}) {
    machine.Store(test::kTweakKey, "TwinViewCapsOverride", stored);
    driven.Press("main.nvcpl1");
    EXPECT_EQ(driven.Text(box), shown) << stored;
  }
  EXPECT_EQ(Joined(machine.TakeTrace()), "");
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
  driven.Hover(kPage + "enable-coolbits-overclocking");
  EXPECT_EQ(driven.Text(kPicture), "DATA/cpl/nview.jpg");
  machine.TakeTrace();
  driven.Press(kPicture);
  EXPECT_EQ(Joined(machine.TakeTrace()), "open desk.cpl");
}

}  // namespace
}  // namespace kestrune::cpl
