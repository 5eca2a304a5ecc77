// The profile manager and its browse window, driven as a person at them does.

#include <gtest/gtest.h>

#include "fake_machine.h"
#include "ui/forms/main_form.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {
namespace {

using platform::DescribedClocks;
using test::Driven;
using test::FakeMachine;
using test::Joined;

const std::string kManager = "profile-manager.";
const std::string kBrowse = "associated-application.";
const std::string kRunKey = R"(HKCU\SOFTWARE\Microsoft\Windows\CurrentVersion\Run)";
const std::string kRunValue = "Kestrune Speed Profile";
const std::string kStarter = "REG_SZ " KESTRUNE_DATA_FOLDER "\\sp.exe";

void LayProfiles(FakeMachine& machine, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    machine.Lay("DATA/Presets/" + name + ".ksp", "ksp,999,0,0,OGL_" + name + ",1");
  }
}

TEST(ProfileManagerTest, TheLogOnEntryIsShownAndMended) {
  struct Case {
    std::string stored;
    const char* box;
    std::string after;
  };
  const Case cases[] = {{"", "off", ""},
                        {"REG_SZ", "off", "REG_SZ"},
                        {kStarter, "on", kStarter},
                        {"REG_SZ C:\\old\\sp.exe", "on", kStarter},
                        {"REG_DWORD 7", "on", kStarter}};
  for (const auto& [stored, box, after] : cases) {
    FakeMachine machine;
    if (!stored.empty()) machine.Store(kRunKey, kRunValue, stored);
    Driven driven(machine);
    driven.Press("main.pedit");
    EXPECT_EQ(driven.Text(kManager + "run-speed-profile-on-startup"), box) << stored;
    EXPECT_EQ(machine.Stored(kRunKey, kRunValue), after) << stored;
  }
  FakeMachine machine;
  Driven driven(machine);
  driven.Press("main.pedit");
  driven.Tick(kManager + "run-speed-profile-on-startup");
  EXPECT_EQ(machine.Stored(kRunKey, kRunValue), kStarter);
  driven.Tick(kManager + "run-speed-profile-on-startup", false);
  EXPECT_EQ(machine.Stored(kRunKey, kRunValue), "");
}

TEST(ProfileManagerTest, AChosenProfileIsApplied) {
  FakeMachine machine;
  LayProfiles(machine, {"b", "A", "c"});
  Driven driven(machine);
  driven.Press("main.pedit");
  EXPECT_EQ(Joined(driven.Items(kManager + "load-profile")), "A, b, c");
  EXPECT_EQ(driven.Text(kManager + "load-profile"), "Select profile");
  machine.TakeTrace();
  driven.Choose(kManager + "load-profile", 1);
  EXPECT_EQ(machine.TakeShortTrace(), "GL b = 1");
  EXPECT_EQ(driven.Text(kManager + "load-profile"), "b");
  EXPECT_EQ(driven.Text(kManager + "profile-name"), "");
  driven.Choose(kManager + "load-profile", 1);
  EXPECT_EQ(machine.TakeShortTrace(), "GL b = 1");
}

TEST(ProfileManagerTest, ThePagesShowWhatWasApplied) {
  FakeMachine machine({.driver = 8178});
  machine.Lay("DATA/Presets/a.ksp", "ksp,999,0,0,D3D_98764205,7");
  Driven driven(machine);
  driven.Press("main.pedit");
  driven.Choose(kManager + "load-profile", 0);
  EXPECT_EQ(driven.Text("direct3d.misc.prerender-limit"), "7");
  EXPECT_EQ(machine.Stored(machine.DriverKey(), "D3D_98764205"), "REG_BINARY 07 00 00 00");
}

TEST(ProfileManagerTest, NoMoreThan129ProfilesOfTheListAreApplied) {
  FakeMachine machine;
  std::vector<std::string> names;
  names.reserve(130);
  for (int i = 0; i < 130; ++i) names.push_back(std::to_string(1000 + i));
  LayProfiles(machine, names);
  Driven driven(machine);
  driven.Press("main.pedit");
  EXPECT_EQ(driven.Items(kManager + "load-profile").size(), 130u);
  machine.TakeTrace();
  driven.Choose(kManager + "load-profile", 128);
  EXPECT_EQ(machine.TakeShortTrace(), "GL 1128 = 1");
  driven.Choose(kManager + "load-profile", 129);
  EXPECT_EQ(machine.TakeShortTrace(), "nothing");
  EXPECT_EQ(Joined(machine.messages), "Only the first 129 profiles of this list can be loaded.");
}

TEST(ProfileManagerTest, ASavedProfileJoinsTheList) {
  FakeMachine machine;
  machine.Lay("DATA/Presets/old.txt", "");
  Driven driven(machine);
  driven.Press("main.pedit");
  EXPECT_EQ(driven.Text(kManager + "load-profile"), "Empty");
  for (const char* name : {"Fast", "fast", "FAST"}) {
    driven.Type(kManager + "profile-name", name);
    driven.Press(kManager + "save");
    EXPECT_EQ(driven.Text(kManager + "load-profile"), "Select profile");
    EXPECT_EQ(Joined(driven.Items(kManager + "load-profile")), name);
  }
  driven.Choose(kManager + "load-profile", 0);
  driven.Type(kManager + "profile-name", "Slow");
  driven.Press(kManager + "save");
  EXPECT_EQ(driven.Text(kManager + "load-profile"), "FAST");
}

TEST(ProfileManagerTest, TheClockBoxesFollowTheirSwitch) {
  struct Case {
    DescribedClocks clocks;
    const char* ticked;
    const char* boxes;
  };
  const Case cases[] = {{{300, 650, {}, {}, 1000, {}}, "on", "300 650"},
                        {{300, 3000, {}, {}, 1000, {}}, "on", "300 3000"},
                        {{300, 3001, {}, {}, 1000, {}}, "off", "Core Memory"}};
  for (const auto& [clocks, ticked, boxes] : cases) {
    FakeMachine machine({3, 8178, "0281", clocks});
    Driven driven(machine);
    driven.Press("main.pedit");
    const auto text = [&driven] {
      return driven.Text(kManager + "core-clock") + " " + driven.Text(kManager + "memory-clock");
    };
    EXPECT_EQ(text(), "Core Memory");
    EXPECT_FALSE(driven.Enabled(kManager + "core-clock"));
    driven.Tick(kManager + "preset-clock-speed");
    EXPECT_EQ(driven.Text(kManager + "preset-clock-speed"), ticked);
    EXPECT_EQ(text(), boxes);
    EXPECT_EQ(driven.Enabled(kManager + "memory-clock"), ticked == std::string("on"));
    EXPECT_EQ(machine.messages.size(), 0u);
    EXPECT_EQ(driven.State("KeepClockValues"), "0");
  }
}

TEST(ProfileManagerTest, ClearEmptiesTheFormAndOpeningStartsAnew) {
  FakeMachine machine({3, 8178, "0281", DescribedClocks{300, 650, {}, {}, 1000, {}}});
  Driven driven(machine);
  const auto told = [&driven] {
    std::string text;
    for (const char* id : {"profile-name", "associated-application", "core-clock",
                           "preset-clock-speed", "delete-all-registry-keys-before-applying-preset",
                           "restore-clock-speed-after-terminating-associated-application"}) {
      text += driven.Text(kManager + id) + "|";
    }
    return text;
  };
  for (const char* way : {"clear", "close"}) {
    driven.Press("main.pedit");
    driven.Type(kManager + "profile-name", "a");
    driven.Type(kManager + "associated-application", "b");
    driven.Tick(kManager + "preset-clock-speed");
    driven.Tick(kManager + "delete-all-registry-keys-before-applying-preset");
    driven.Tick(kManager + "restore-clock-speed-after-terminating-associated-application");
    EXPECT_EQ(told(), "a|b|300|on|on|on|");
    EXPECT_EQ(driven.Get<controls::TextBox>(kManager + "associated-application").ToolTip(), "b");
    driven.Press(kManager + way);
    if (way == std::string("close")) driven.Press("main.pedit");
    EXPECT_EQ(told(), "||Core|off|off|off|");
    EXPECT_EQ(driven.Get<controls::TextBox>(kManager + "associated-application").ToolTip(), "");
  }
}

TEST(ProfileManagerTest, ItIsNoModalWindowAndBelongsToTheMainOne) {
  FakeMachine machine;
  Driven driven(machine);
  driven.Press("main.pedit");
  driven.Press("main.tf2");
  EXPECT_EQ(driven.State("ActivePage"), "6");
  EXPECT_TRUE(driven.Visible("profile-manager"));
  driven.program.Main().TheWindow().UseClose();
  EXPECT_FALSE(driven.Visible("profile-manager"));
}

/// The browse window open over a folder tree.
class Browsing {
 public:
  Browsing() {
    for (const char* file : {"games/doom/doom.exe", "games/doom/readme.txt", "games/Setup.EXE"}) {
      machine.Files().Put(folder + file, "");
    }
    driven.Press("main.pedit");
    driven.Press(kManager + "browse");
    std::string path = folder + "games";
    for (std::size_t at = 1; at < path.size();) {
      const std::size_t end = std::min(path.find('/', at), path.size());
      Go(path.substr(at, end - at));
      at = end + 1;
    }
  }
  void Go(const std::string& name) {
    auto& list = driven.Get<controls::ListBox>(kBrowse + "folders");
    EXPECT_TRUE(list.Choose(list.ItemFor(name))) << name;
  }
  void ChooseFile(int position) {
    EXPECT_TRUE(driven.Get<controls::ListBox>(kBrowse + "files").Choose(position));
  }
  std::string Items(const std::string& list) {
    return Joined(driven.Get<controls::ListBox>(kBrowse + list).Items());
  }

  const std::string folder = "/home/anna/";
  FakeMachine machine;
  Driven driven{machine};
};

TEST(BrowseTest, FoldersLeadToProgramsAndBack) {
  Browsing browsing;
  Driven& driven = browsing.driven;
  EXPECT_EQ(driven.Caption(kBrowse + "folders-label"), browsing.folder + "games");
  EXPECT_EQ(browsing.Items("folders"), ".., doom");
  EXPECT_EQ(browsing.Items("files"), "Setup.EXE");
  browsing.Go("doom");
  EXPECT_EQ(browsing.Items("files"), "doom.exe");
  browsing.ChooseFile(0);
  EXPECT_EQ(driven.Text(kBrowse + "path"), browsing.folder + "games/doom/doom.exe");
  EXPECT_EQ(driven.Text(kManager + "application-folder"), browsing.folder + "games/doom");
  EXPECT_EQ(driven.Text(kManager + "associated-application"), "");
  driven.Press(kBrowse + "confirm");
  EXPECT_FALSE(driven.Visible("associated-application"));
  EXPECT_EQ(driven.Text(kManager + "associated-application"),
            browsing.folder + "games/doom/doom.exe");
  // What is typed is another application, of which no folder is known.
  driven.Type(kManager + "associated-application", "quake.exe");
  EXPECT_EQ(driven.Text(kManager + "application-folder"), "");
}

TEST(BrowseTest, CancelKeepsTheApplicationAndTheFolderThatWasSet) {
  Browsing browsing;
  browsing.ChooseFile(0);
  browsing.driven.Press(kBrowse + "cancel");
  EXPECT_EQ(browsing.driven.Text(kManager + "associated-application"), "");
  EXPECT_EQ(browsing.driven.Text(kManager + "application-folder"), browsing.folder + "games");
  browsing.driven.Press(kManager + "browse");
  EXPECT_EQ(browsing.driven.Caption(kBrowse + "folders-label"), "/");
  EXPECT_EQ(browsing.driven.Text(kBrowse + "path"), "");
}

TEST(BrowseTest, AFolderThatIsGoneLeavesTheListsAsTheyAre) {
  Browsing browsing;
  browsing.machine.Files().TakeAway(browsing.folder + "games/doom");
  browsing.Go("doom");
  EXPECT_EQ(browsing.driven.Caption(kBrowse + "folders-label"), browsing.folder + "games");
  browsing.Go("..");
  EXPECT_EQ(browsing.driven.Caption(kBrowse + "folders-label") + "/", browsing.folder);
}

}  // namespace
}  // namespace kestrune::forms
