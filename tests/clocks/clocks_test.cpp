// The clocks, by their page, on machines whose driver answers.

#include <gtest/gtest.h>

#include "fake_machine.h"
#include "read_all.h"

namespace kestrune::clocks {
namespace {

using platform::DescribedClocks;
using test::Driven;
using test::FakeMachine;
using test::MachineKind;

const std::string kPage = "overclocking.";
const std::string kCoreBox = kPage + "core-clock";
const std::string kMemoryBox = kPage + "memory-clock";
const std::string kApply = kPage + "apply";
const std::string kDefault = kPage + "default";
const std::string k3D = kPage + "3d-speed";
const std::string kEnable = kPage + "enable-overclocking";

// Core and memory, the same of the 3D pair, the driver's own number.
const DescribedClocks kOnePair = {300, 650, {}, {}, 1000, {}};
const DescribedClocks kTwoPairs = {325, 700, 350, 700, 1000, {}};
const MachineKind kXp = {3, 8178, "0281", kOnePair};
const MachineKind kXpTwoPairs = {3, 8178, "0041", kTwoPairs};

/// The machine, and a program on it with the page shown.
struct ClocksShown {
  explicit ClocksShown(const MachineKind& kind) : machine(kind) { Restart(); }

  /// Starts the program again, as the next day.
  void Restart() {
    driven.emplace(machine);
    machine.TakeTrace();
    driven->program.GoToPage(3);
  }

  /// The clock key without its root.
  std::string Key() const { return driven->State("HardwareKey"); }
  std::string Stored(const std::string& name) { return machine.Stored(R"(HKCU\)" + Key(), name); }
  std::string Caption(const std::string& name) const { return driven->Caption(kPage + name); }

  FakeMachine machine;
  std::optional<Driven> driven;
};

/// The changes since the last call, with U and L for the clock keys below the two roots.
std::string Told(ClocksShown& shown) {
  std::string text;
  for (std::string line : shown.machine.TakeTrace()) {
    for (const auto& [what, with] :
         {std::pair(R"(HKCU\)" + shown.Key(), "U"), std::pair(R"(HKLM\)" + shown.Key(), "L"),
          std::pair(std::string("REG_DWORD "), ""), std::pair(std::string("REG_SZ "), "")}) {
      const std::size_t at = line.find(what);
      if (at != std::string::npos) line.replace(at, what.size(), with);
    }
    text += line + "\n";
  }
  return text;
}

TEST(ClocksTest, EachStepIsDoneInOrderOnEverySystem) {
  const std::pair<const char*, MachineKind> kinds[] = {
      {"Windows 98, driver 22.00", {0, 2200, "0281", kOnePair}},
      {"Windows 98, driver 22.81", {0, 2281, "0281", kOnePair}},
      {"Windows 98, driver 24.99", {0, 2499, "0281", kOnePair}},
      {"Windows 98, driver 26.00", {0, 2600, "0281", kOnePair}},
      {"Windows 2000, driver 40.00", {2, 4000, "0281", kOnePair}},
      {"Windows XP, driver 55.00", {3, 5500, "0281", kOnePair}},
      {"Windows XP, driver 55.01", {3, 5501, "0281", kOnePair}},
      {"Windows XP, driver 81.78", kXp},
      {"Windows XP, driver 81.78, two pairs", kXpTwoPairs}};
  std::string transcript;
  for (const auto& [title, kind] : kinds) {
    ClocksShown shown(kind);
    const auto tell = [&, title = title](const std::string& what) {
      transcript += "== " + std::string(title) + ": " + what + "\n" + Told(shown);
    };
    tell("read");
    shown.driven->Type(kCoreBox, "310");
    shown.driven->Press(kApply);
    tell("set");
    shown.driven->Press(kDefault);
    tell("set to the defaults");
    if (kind.device == "0041") {
      shown.driven->Press(k3D);
      tell("read the 3D pair");
      shown.driven->Type(kCoreBox, "360");
      shown.driven->Press(kApply);
      tell("set the 3D pair");
    }
    shown.driven->Tick(kEnable, false);
    tell("reset");
  }
  const std::string expected = platform::ReadAll(KESTRUNE_TEST_FOLDER "/clocks/transcripts.txt");
  if (transcript != expected) std::fputs(transcript.c_str(), stdout);
  EXPECT_TRUE(transcript == expected) << "the transcript above differs from transcripts.txt";
}

TEST(ClocksTest, ReadingLeavesTheStoredValuesAsTheyWere) {
  FakeMachine machine(kXp);
  Driven driven(machine);
  const std::string key = R"(HKCU\)" + driven.State("HardwareKey");
  const std::pair<std::string, std::string> values[] = {{"Homer", "REG_DWORD 70000"},
                                                        {"Bart", "REG_DWORD -515814531"},
                                                        {"Krusty", ""},
                                                        {"Marge", "REG_DWORD 1"}};
  for (const auto& [name, value] : values) {
    if (!value.empty()) machine.Store(key, name, value);
  }
  driven.program.GoToPage(3);
  for (const auto& [name, value] : values) EXPECT_EQ(machine.Stored(key, name), value) << name;
}

TEST(ClocksTest, StayInForceUntilTheDefaultsAreSetAgain) {
  ClocksShown shown(kXpTwoPairs);
  EXPECT_EQ(shown.Caption("default-core-speed"), "Default Core speed: 325 MHz");
  shown.driven->Type(kCoreBox, "358");
  shown.driven->Type(kMemoryBox, "770");
  shown.driven->Press(kApply);

  shown.Restart();
  EXPECT_EQ(shown.Caption("current-core-speed"), "Current Core speed: 358 MHz");
  EXPECT_EQ(shown.Caption("current-memory-speed"), "Current Memory speed: 770 MHz");
  EXPECT_EQ(shown.driven->Text(kPage + "core-clock-slider"), "358");

  shown.driven->Press(kDefault);
  EXPECT_EQ(shown.Caption("current-core-speed"), "Current Core speed: 325 MHz");
  EXPECT_EQ(shown.Stored("Krusty"), "");
}

TEST(ClocksTest, TheNextRevisionIsTriedWhileTheDefaultsAreImplausible) {
  const std::tuple<const char*, const char*, bool> cases[] = {{"A1", "REV_A1&", false},
                                                              {"A2", "REV_A2&", false},
                                                              {"A5", "REV_A5&", false},
                                                              {"B1", "REV_A6&", true}};
  for (const auto& [answers_at, ends_at, gives_up] : cases) {
    const ClocksShown shown({2, 4000, "0150", DescribedClocks{200, 333, {}, {}, 1000, answers_at}});
    EXPECT_NE(shown.Key().find(ends_at), std::string::npos) << answers_at;
    EXPECT_EQ(shown.machine.messages.size(), gives_up ? 1U : 0U) << answers_at;
    EXPECT_EQ(shown.driven->State("DefaultCoreMHz") == "200", !gives_up) << answers_at;
  }
}

TEST(ClocksTest, ADriverThatNeverAnswersIsTold) {
  const ClocksShown shown({3, 8178, "0281"});
  ASSERT_EQ(shown.machine.messages.size(), 1U);
  EXPECT_NE(shown.machine.messages.front().find("028"), std::string::npos);
}

TEST(OverclockingPageTest, IsPreparedWhenItIsFirstShown) {
  FakeMachine machine(kXpTwoPairs);
  Driven driven(machine);
  machine.TakeTrace();
  EXPECT_EQ(driven.Text(kEnable), "on");
  EXPECT_FALSE(driven.Enabled(kApply));
  EXPECT_TRUE(driven.Enabled(k3D));
  driven.program.GoToPage(3);
  EXPECT_TRUE(driven.Enabled(kApply));
  EXPECT_FALSE(machine.TakeTrace().empty());
  driven.program.GoToPage(4);
  driven.program.GoToPage(3);
  EXPECT_TRUE(machine.TakeTrace().empty()) << "showing the page again reads nothing";
}

TEST(OverclockingPageTest, EverythingIsGreyWhileItIsOff) {
  ClocksShown shown(kXpTwoPairs);
  for (const bool on : {false, true}) {
    shown.driven->Tick(kEnable, on);
    for (const char* id : {"settings", "apply-settings-at-startup", "2d-speed", "3d-speed",
                           "core-clock", "memory-clock", "core-clock-slider", "memory-clock-slider",
                           "apply", "default", "default-core-speed", "current-memory-speed"}) {
      EXPECT_EQ(shown.driven->Enabled(kPage + id), on) << id;
    }
  }
}

TEST(OverclockingPageTest, KeepsTheChosenPair) {
  const std::string key = R"(HKCU\Software\NVIDIA Corporation\Global\NVTweak)";
  ClocksShown shown(kXpTwoPairs);
  shown.driven->Press(k3D);
  EXPECT_EQ(shown.machine.Stored(key, "PerfLevel"), "REG_DWORD 2");
  EXPECT_EQ(shown.Caption("default-core-speed"), "Default Core speed: 350 MHz");
  shown.Restart();
  EXPECT_EQ(shown.driven->Text(k3D), "on");
  EXPECT_FALSE(shown.driven->Enabled(kMemoryBox));
  shown.driven->Press(kPage + "2d-speed");
  EXPECT_EQ(shown.machine.Stored(key, "PerfLevel"), "REG_DWORD 0");
  EXPECT_TRUE(shown.driven->Enabled(kMemoryBox));
}

TEST(OverclockingPageTest, StartsTheDriversSettingsAtLogOn) {
  const std::string key = R"(HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Run)";
  const std::string box = kPage + "apply-settings-at-startup";
  ClocksShown shown(kXp);
  shown.driven->Tick(box);
  EXPECT_EQ(shown.machine.Stored(key, "NvCplDaemon"),
            R"(REG_SZ RUNDLL32.EXE C:\WINDOWS\System32\NvCpl.dll,NvStartup)");
  EXPECT_EQ(shown.machine.messages.size(), 1U);
  shown.Restart();
  EXPECT_EQ(shown.driven->Text(box), "on");
  shown.driven->Tick(box, false);
  EXPECT_EQ(shown.machine.Stored(key, "NvCplDaemon"), "");
  EXPECT_EQ(shown.machine.messages.size(), 1U);
}

TEST(OverclockingPageTest, RefusesWhatIsNoWholeNumber) {
  const std::pair<const char*, bool> cases[] = {
      {"310", true},    {" 310 ", true}, {"+310", true}, {"-32768", true}, {"32768", false},
      {"310.5", false}, {"", false},     {"abc", false}, {"3e2", false}};
  for (const auto& [text, applied] : cases) {
    ClocksShown shown(kXp);
    shown.machine.TakeTrace();
    shown.driven->Type(kCoreBox, "305");
    shown.driven->Type(kMemoryBox, text);
    shown.driven->Press(kApply);
    EXPECT_EQ(shown.machine.TakeTrace().empty(), !applied) << text;
    EXPECT_EQ(shown.machine.messages.size(), applied ? 0U : 1U) << text;
    if (applied) continue;
    EXPECT_EQ(shown.driven->Text(kMemoryBox), text);
    EXPECT_TRUE(shown.driven->Get<controls::TextBox>(kMemoryBox).Marked()) << text;
  }
}

TEST(OverclockingPageTest, ASliderMovesItsBoxAndNotTheOtherWay) {
  ClocksShown shown(kXp);
  shown.machine.TakeTrace();
  const auto& slider = shown.driven->Get<controls::Slider>(kPage + "core-clock-slider");
  // 300 MHz divided and multiplied by 1.3.
  EXPECT_EQ(slider.Minimum(), 231);
  EXPECT_EQ(slider.Maximum(), 390);
  shown.driven->Move(slider.Id(), 320);
  EXPECT_EQ(shown.driven->Text(kCoreBox), "320");
  shown.driven->Type(kCoreBox, "240");
  EXPECT_EQ(slider.Value(), 320);
  EXPECT_TRUE(shown.machine.TakeTrace().empty()) << "nothing is written before Apply";
}

}  // namespace
}  // namespace kestrune::clocks
