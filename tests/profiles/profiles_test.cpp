// Saving and applying, by the whole program.

#include "profiles/profiles.h"

#include <gtest/gtest.h>

#include "fake_machine.h"
#include "ui/forms/windows.h"

namespace kestrune::profiles {
namespace {

using platform::ChildState;
using platform::DescribedClocks;
using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::MachineKind;

const std::string kManager = "profile-manager.";
const DescribedClocks kClocks = {300, 650, {}, {}, 1000, {}};
const MachineKind kXp = {3, 8178, "0281", kClocks};

/// A machine with databases of its own and a started program.
class Saved {
 public:
  explicit Saved(const MachineKind& kind = {}) : machine(kind) {
    char release[8];
    std::snprintf(release, sizeof release, "%04d", kind.driver);
    const std::string path = std::string("DATA/Database/") + release;
    machine.Lay(path + "d3d.dat", "D3D_D3D_1,?,x\nD3D_D3D_2,?,x\nshrt,?,x\nD3D_D3DOGL_3,?,x\n");
    machine.Lay(path + "ogl.dat", "OGL_Name,?,x\nOGL_Other,?,x\n");
    machine.Lay(path + "sys.dat", "CoolBits,?,x\n");
  }

  Driven& Start() {
    driven.emplace(machine);
    driven->program.TheWindows().Open("profile-manager");
    machine.TakeTrace();
    return *driven;
  }
  /// Saves under a name and gives the file's text, with bars for its line ends.
  std::string Save(const std::string& name) {
    driven->Type(kManager + "profile-name", name);
    driven->Press(kManager + "save");
    std::string text = machine.Files().ReadBytes(PathInProgramFolder(name)).value_or("no file");
    for (std::size_t at = text.find("\r\n"); at != text.npos; at = text.find("\r\n")) {
      text.replace(at, 2, "|");
    }
    std::erase(text, '"');
    return text;
  }
  /// Applies a text and tells what it changed, and the messages.
  std::string Apply(const std::string& text) {
    machine.TakeTrace();
    machine.messages.clear();
    (void)driven->program.ApplyProfile(machine.Files().Put("/home/a.ksp", text));
    std::string told = machine.TakeShortTrace();
    for (const std::string& message : machine.messages) told += "; " + message;
    return told;
  }

  FakeMachine machine;
  std::optional<Driven> driven;
};

TEST(ProfilesTest, SavesTheNumbersThatTheDatabasesName) {
  Saved saved({.driver = 8178});
  saved.machine.StoreDirect3D("D3D_1", 0xFFFFFFFF);
  saved.machine.Store(saved.machine.DriverKey(), "D3D_2", "REG_SZ fast");
  saved.machine.Store(saved.machine.DriverKey(), "D3DOGL_3", "REG_SZ  12 ");
  saved.machine.Store(saved.machine.DriverKey(), "shrt", "REG_DWORD 4");
  saved.machine.Store(saved.machine.DriverKey(), "OGL_Name", "REG_BINARY 01 00");
  saved.machine.Store(saved.machine.DriverKey(), "OGL_Other", "REG_BINARY 01 02 03 04 05 06 07 08");
  saved.Start();
  EXPECT_EQ(saved.Save("One"), "ksp|0091|0|0|D3D_1|-1|shrt|4|D3DOGL_3|12|OGL_Name|1|");
  EXPECT_EQ(Joined(saved.machine.messages), "Saving the profile has finished.");
  EXPECT_TRUE(saved.driven->program.Profiles().state.done);
  EXPECT_EQ(saved.machine.TakeShortTrace(), "nothing");
  EXPECT_EQ(Joined(saved.driven->Items(kManager + "load-profile")), "One");
}

TEST(ProfilesTest, DropsTheFilesOwnBeginningWhereTheSystemAndTheDriverDo) {
  struct Case {
    MachineKind kind;
    const char* values;
  };
  // What stands under each name: 1 D3D_1 without the file's beginning, 2 with it, 3 shrt, 4 Name,
  // 5 OGL_Name.
  const Case cases[] = {{{.family = 3, .driver = 2960}, "D3D_D3D_1|2|shrt|3|OGL_Name|5|"},
                        {{.family = 3, .driver = 2961}, "D3D_1|1|shrt|3|OGL_Name|5|"},
                        {{.family = 0, .driver = 2960}, "D3D_1|1|shrt|3|Name|4|"},
                        {{.family = 0, .driver = 8178}, "D3D_1|1|shrt|3|Name|4|"}};
  for (const auto& [kind, values] : cases) {
    Saved saved(kind);
    const std::pair<const char*, const char*> direct3d[] = {
        {"D3D_1", "1"}, {"D3D_D3D_1", "2"}, {"shrt", "3"}};
    for (const auto& [name, number] : direct3d) {
      saved.machine.Store(saved.machine.Direct3DKey(), name, std::string("REG_DWORD ") + number);
    }
    saved.machine.Store(saved.machine.OpenGLKey(), "Name", "REG_DWORD 4");
    saved.machine.Store(saved.machine.OpenGLKey(), "OGL_Name", "REG_DWORD 5");
    saved.Start();
    EXPECT_EQ(saved.Save("One"), std::string("ksp|0091|0|0|") + values)
        << kind.family << " " << kind.driver;
  }
}

TEST(ProfilesTest, SavesSwitchesClocksAndTheApplication) {
  Saved saved(kXp);
  Driven& driven = saved.Start();
  driven.Tick(kManager + "delete-all-registry-keys-before-applying-preset");
  driven.Tick(kManager + "restore-clock-speed-after-terminating-associated-application");
  driven.Tick(kManager + "preset-clock-speed");
  EXPECT_EQ(driven.Text(kManager + "core-clock") + driven.Text(kManager + "memory-clock"),
            "300650");
  driven.Type(kManager + "core-clock", " 310");
  driven.Type(kManager + "associated-application", "game.exe -fast");
  EXPECT_EQ(saved.Save("Game"), "ksp|0281|1|1|Clock speed| 310,650|App to run||game.exe -fast|");
  EXPECT_EQ(driven.Text(kManager + "preset-clock-speed"), "off");
  EXPECT_EQ(driven.Text(kManager + "core-clock") + driven.Text(kManager + "memory-clock"),
            "CoreMemory");
  EXPECT_FALSE(driven.Enabled(kManager + "memory-clock"));
}

TEST(ProfilesTest, RefusesWhatNoProfileCanHoldBeforeAnythingRuns) {
  struct Case {
    const char* box;
    const char* text;
    const char* message;
  };
  const Case cases[] = {
      {"profile-name", "a/b", "This name cannot be used for a profile. Please choose another one."},
      {"core-clock", "fast", "Type the clock speed as a whole number of MHz, for example 350."},
      {"memory-clock", "40000", "Type the clock speed as a whole number of MHz, for example 350."},
      {"associated-application", "say \"hi\"", "A profile cannot hold this folder or application."},
      {"application-folder", "\xD0\x96", "A profile cannot hold this folder or application."}};
  for (const auto& [box, text, message] : cases) {
    Saved saved(kXp);
    Driven& driven = saved.Start();
    driven.Tick(kManager + "preset-clock-speed");
    driven.Type(kManager + "profile-name", "One");
    driven.Type(kManager + box, text);
    driven.Press(kManager + "save");
    EXPECT_EQ(Joined(saved.machine.messages), message);
    EXPECT_FALSE(driven.program.Profiles().state.done);
    EXPECT_EQ(driven.Text(kManager + "preset-clock-speed"), "on") << box;
    EXPECT_TRUE(ListProfiles(saved.machine.Files()).empty());
  }
}

TEST(ProfilesTest, AFileThatCantBeWrittenIsSaidAndTheRestGoesOn) {
  Saved saved(kXp);
  saved.machine.Lay("DATA/Presets", "no folder");
  saved.Start();
  EXPECT_EQ(saved.Save("One"), "no file");
  ASSERT_EQ(saved.machine.notes.size(), 1u);
  EXPECT_TRUE(saved.machine.notes[0].starts_with("DATA/Presets/One.ksp can't be written: "))
      << saved.machine.notes[0];
  EXPECT_EQ(Joined(saved.machine.messages), "Saving the profile has finished.");
  EXPECT_FALSE(saved.driven->program.Profiles().state.done);
}

TEST(ProfilesTest, ValuesGoWhereTheSystemKeepsThemInBinary) {
  struct Case {
    MachineKind kind;
    const char* changes;
  };
  const Case cases[] = {
      {{.family = 3, .driver = 8178},
       "write K D3D_1 REG_BINARY FF FF FF FF, write K OGL_1 REG_BINARY 01 00 00 00, write K abcd "
       "REG_BINARY 02 00 00 00, write K d3D_x REG_BINARY 03 00 00 00, write K @ REG_BINARY 04 00 "
       "00 "
       "00"},
      {{.family = 0, .driver = 8178},
       "write K\\NVidia\\Direct3D D3D_1 REG_BINARY FF FF FF FF, write K\\NVidia\\OpenGL OGL_1 "
       "REG_BINARY 01 00 00 00, write K\\NVidia\\Direct3D d3D_x REG_BINARY 03 00 00 00"}};
  for (const auto& [kind, changes] : cases) {
    Saved saved(kind);
    Driven& driven = saved.Start();
    const std::string file = saved.machine.Files().Put(
        "/home/a.ksp", "ksp,999,0,0,D3D_1,-1,OGL_1,1,abcd,2,d3D_x,3,\"\",4\n");
    EXPECT_TRUE(driven.program.ApplyProfile(file));
    EXPECT_EQ(Joined(saved.machine.TakeTrace()), changes);
    EXPECT_EQ(driven.Text(kManager + "profile-name"), "");
  }
}

TEST(ProfilesTest, CleaningTakesEveryValueThatTheDatabasesList) {
  for (const int family : {0, 3}) {
    Saved saved({.family = family, .driver = 8178});
    saved.machine.StoreDirect3D("D3D_1", 1);
    saved.machine.StoreDirect3D("D3DOGL_3", 1);
    saved.machine.StoreDirect3D("shrt", 1);
    saved.machine.StoreOpenGL("Name", 1);
    saved.machine.StoreOpenGL("Unlisted", 1);
    saved.Start();
    EXPECT_EQ(saved.Apply("ksp,999,1,0"), "delete GL Name, delete D3D D3D_1, delete D3D D3DOGL_3");
  }
}

TEST(ProfilesTest, WhatStandsBeforeAFaultStays) {
  const std::pair<const char*, const char*> cases[] = {
      {"b,x,c,3", "Error: Type mismatch 13"},
      {"b,1.5,c,3", "Error: Type mismatch 13"},
      {"b,9999999999,c,3", "Error: Overflow 6"},
      {"b", "Error: Input past end of file 62"},
      {"\"Clock speed\",400,c,3", "Error: Type mismatch 13"},
      {"\"App to run\",\"\"", "Error: Input past end of file 62"},
      {"\"App to run\",\"\",\"  \",c,3", "Error: Invalid procedure call or argument 5"}};
  for (const auto& [rest, message] : cases) {
    Saved saved(kXp);
    Driven& driven = saved.Start();
    EXPECT_EQ(saved.Apply("ksp,999,0,0,OGL_a,1," + std::string(rest)),
              std::string("GL a = 1; ") + message)
        << rest;
    EXPECT_FALSE(driven.program.Profiles().state.done);
    EXPECT_FALSE(driven.Visible("profile-manager"));
    EXPECT_EQ(driven.Text(kManager + "profile-name"), "");
  }
}

TEST(ProfilesTest, WhatIsNoProfileChangesNothing) {
  for (const char* text : {"", "kap,999,1,0,OGL_a,1", "\r\n\r\n", "ksp2,999"}) {
    Saved saved(kXp);
    Driven& driven = saved.Start();
    EXPECT_EQ(saved.Apply(text), "nothing; This file is not a speed profile.") << text;
    EXPECT_TRUE(driven.Visible("profile-manager")) << text;
    EXPECT_FALSE(driven.program.Profiles().state.done);
  }
}

TEST(ProfilesTest, AFileThatCantBeReadIsAnError) {
  Saved saved(kXp);
  saved.Start();
  saved.machine.Files().Put("/home/a.ksp", "");
  const std::pair<std::string, const char*> cases[] = {
      {"/home/none.ksp", "Error: File not found 53"},
      {"/home/none/none.ksp", "Error: Path not found 76"},
      {"/home/", "Error: Path/File access error 75"},
      {PathOf(saved.machine.Files(), "none"), "Error: Path not found 76"}};
  for (const auto& [path, message] : cases) {
    saved.machine.messages.clear();
    EXPECT_FALSE(saved.driven->program.ApplyProfile(path));
    EXPECT_EQ(Joined(saved.machine.messages), message) << path;
  }
}

/// The clocks in force as the overclocking page shows them.
std::string InForce(Driven& driven) {
  driven.program.GoToPage(3);
  return driven.Text("overclocking.core-clock") + "," + driven.Text("overclocking.memory-clock");
}

TEST(ProfilesTest, ClocksAreForTheirCardAlone) {
  const std::pair<const char*, const char*> cases[] = {
      {"0281", "310,660"}, {"0141", "300,650"}, {"999", "310,660"}, {"", "300,650"}};
  for (const auto& [card, clocks] : cases) {
    Saved saved(kXp);
    Driven& driven = saved.Start();
    // A clock text of another card isn't even read.
    const std::string text = card == std::string("0141") ? "fast" : "\"310,660\"";
    saved.Apply("ksp," + std::string(card) + ",0,0,OGL_a,1,\"Clock speed\"," + text + ",OGL_b,2");
    EXPECT_EQ(saved.machine.messages.size(), 0u) << card;
    EXPECT_EQ(saved.machine.Stored(saved.machine.DriverKey(), "OGL_b"), "REG_BINARY 02 00 00 00");
    EXPECT_EQ(InForce(driven), clocks) << card;
  }
}

TEST(ProfilesTest, ImplausibleClocksStopTheRest) {
  MachineKind kind = kXp;
  kind.clocks = DescribedClocks{3000, 650, {}, {}, 1000, {}};
  Saved saved(kind);
  Driven& driven = saved.Start();
  saved.Apply("ksp,999,0,0,OGL_a,1,\"Clock speed\",\"310,660\",OGL_b,2");
  EXPECT_EQ(Joined(saved.machine.messages), "O/C Error");
  EXPECT_EQ(saved.machine.Stored(saved.machine.DriverKey(), "OGL_a"), "REG_BINARY 01 00 00 00");
  EXPECT_EQ(saved.machine.Stored(saved.machine.DriverKey(), "OGL_b"), "");
  EXPECT_TRUE(driven.Visible("profile-manager"));
  EXPECT_FALSE(driven.program.Profiles().state.done);
}

TEST(ProfilesTest, TheApplicationIsWaitedForAndTheClocksComeBack) {
  struct Case {
    const char* restore;
    const char* clocks;
    int waits;
    const char* in_force;
  };
  const Case cases[] = {{"1", "\"Clock speed\",\"310,660\",", 3, "300,650"},
                        {"0", "\"Clock speed\",\"310,660\",", 0, "310,660"},
                        {"1", "", 0, "300,650"}};
  for (const auto& [restore, clocks, waits, in_force] : cases) {
    Saved saved(kXp);
    Driven& driven = saved.Start();
    saved.machine.child_states = {ChildState::kRuns, ChildState::kRuns};
    saved.machine.log.clear();
    EXPECT_TRUE(driven.program.ApplyProfile(saved.machine.Files().Put(
        "/home/a.ksp", "ksp,999,0," + std::string(restore) + "," + clocks +
                           "\"App to run\",/games,\"play.exe now\",never,read")));
    const auto& log = saved.machine.log;
    EXPECT_EQ(std::count(log.begin(), log.end(), "wait"), waits) << restore << clocks;
    EXPECT_EQ(std::count(log.begin(), log.end(), "folder /games"), 1);
    EXPECT_EQ(std::count(log.begin(), log.end(), "run\tplay.exe now"), 1);
    // The pages are not read, and the box keeps the path.
    EXPECT_NE(driven.Text(kManager + "profile-name"), "");
    EXPECT_EQ(InForce(driven), in_force) << restore << clocks;
  }
}

TEST(ProfilesTest, AnApplicationThatCantBeStartedIsAnError) {
  const std::pair<platform::StartFault, const char*> cases[] = {
      {platform::StartFault::kNotFound, "Error: File not found 53"},
      {platform::StartFault::kNoFolder, "Error: Path not found 76"},
      {platform::StartFault::kNotExecutable, "Error: Invalid procedure call or argument 5"}};
  for (const auto& [fault, message] : cases) {
    Saved saved(kXp);
    saved.Start();
    saved.machine.start_fault = fault;
    saved.Apply("ksp,999,0,1,\"Clock speed\",\"310,660\",\"App to run\",,x");
    EXPECT_EQ(Joined(saved.machine.messages), message);
    // The clocks stay, as everything before a fault.
    EXPECT_EQ(InForce(*saved.driven), "310,660");
  }
  Saved saved(kXp);
  saved.Start();
  saved.machine.has_folders = false;
  EXPECT_EQ(saved.Apply("ksp,999,0,0,OGL_a,1,\"App to run\",/none,x"),
            "GL a = 1; Error: Path not found 76");
}

TEST(ProfilesTest, AProfileOfOneMachineIsAppliedOnAnother) {
  Saved from({.family = 3, .driver = 8178});
  from.machine.StoreDirect3D("D3D_1", 7);
  from.machine.StoreOpenGL("Name", 9);
  from.Start();
  from.Save("Mine");
  Saved to({.family = 0, .driver = 4523, .device = "0281"});
  to.Start();
  const std::string text = *from.machine.Files().ReadBytes(PathInProgramFolder("Mine"));
  EXPECT_EQ(to.Apply(text),
            "D3D D3D_1 = REG_BINARY 07 00 00 00, GL OGL_Name = REG_BINARY 09 00 00 00");
}

TEST(ProfilesTest, OnTheCommandLineNoWindowIsShownAndTheProgramEnds) {
  Saved saved(kXp);
  saved.machine.Store(test::kOptionsKey, "LVP", "REG_DWORD 5");
  const std::string file = saved.machine.Files().Put("/home/a b.ksp", "ksp,999,0,0,OGL_a,1");
  const Driven driven(saved.machine, file);
  EXPECT_TRUE(driven.started);
  EXPECT_TRUE(driven.program.Ended());
  EXPECT_FALSE(driven.Visible("main"));
  EXPECT_FALSE(driven.Visible("profile-manager"));
  EXPECT_EQ(saved.machine.Stored(saved.machine.DriverKey(), "OGL_a"), "REG_BINARY 01 00 00 00");
  EXPECT_EQ(saved.machine.Stored(test::kOptionsKey, "LVP"), "REG_DWORD 5");
  const Driven failed(saved.machine, "/none/none.ksp");
  EXPECT_FALSE(failed.started);
  EXPECT_EQ(Joined(saved.machine.messages), "Error: Path not found 76");
}

}  // namespace
}  // namespace kestrune::profiles
