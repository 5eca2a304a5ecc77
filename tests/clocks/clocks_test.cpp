#include <gtest/gtest.h>

#include <functional>

#include "clocks/clock_machine.h"

namespace kestrune::test {
namespace {

constexpr char kTwoPairs[] =
    "core = 325\nmemory = 700\ncore_3d = 350\nmemory_3d = 700\nhomer = 1000\n";

const ClockSetup kSetups[] = {
    {"Windows 98, driver 22.00", 0, 2200},
    {"Windows 98, driver 22.81", 0, 2281},
    {"Windows 98, driver 24.99", 0, 2499},
    {"Windows 98, driver 26.00", 0, 2600},
    {"Windows 2000, driver 40.00", 2, 4000},
    {"Windows XP, driver 55.00", 3, 5500},
    {"Windows XP, driver 55.01", 3, 5501},
    {"Windows XP, driver 81.78", 3, 8178},
    {"Windows XP, driver 81.78, two pairs", 3, 8178, "0041", kTwoPairs},
};

/// What is done to the clocks, with the page prepared before it.
void TellAll(const ClockSetup& setup, std::string& transcript) {
  ClockMachine machine(setup);
  const auto tell = [&](std::string_view what) {
    transcript += "== " + setup.title + ": " + std::string(what) + "\n";
    for (const std::string& line : machine.TakeTrace()) transcript += line + "\n";
  };
  machine.Program().GoToPage(3);
  tell("read");
  machine.Type("core-clock", "310");
  machine.Press("apply");
  tell("set");
  machine.Press("default");
  tell("set to the defaults");
  if (setup.device == "0041") {
    machine.Choose("3d-speed");
    tell("read the 3D pair");
    machine.Type("core-clock", "360");
    machine.Press("apply");
    tell("set the 3D pair");
  }
  machine.Tick("enable-overclocking", false);
  tell("reset");
}

TEST(Clocks, DoEachStepInOrderOnEverySystem) {
  std::string transcript;
  for (const ClockSetup& setup : kSetups) TellAll(setup, transcript);
  const std::string expected = platform::ReadAll(KESTRUNE_TEST_FOLDER "/clocks/transcripts.txt");
  if (transcript != expected) std::fputs(transcript.c_str(), stdout);
  EXPECT_TRUE(transcript == expected) << "the transcript above differs from transcripts.txt";
}

TEST(Clocks, ReadingLeavesTheStoredValuesAsTheyWere) {
  ClockMachine machine({"", 3, 8178, "0281"});
  const std::string key = "HKCU\\" + machine.ClockKey();
  struct Stored {
    std::string_view name;
    std::optional<std::int32_t> number;
  };
  const Stored values[] = {{"Homer", 70000}, {"Bart", -515814531}, {"Krusty", {}}, {"Marge", 1}};
  for (const Stored& value : values) {
    if (value.number) machine.Store(key, value.name, *value.number);
  }
  machine.Program().GoToPage(3);
  for (const Stored& value : values) {
    EXPECT_EQ(machine.Stored(key, value.name), value.number ? std::to_string(*value.number) : "")
        << value.name;
  }
}

TEST(Clocks, StayInForceUntilTheDefaultsAreSetAgain) {
  ClockMachine machine({"", 3, 8178, "0041", kTwoPairs});
  machine.Program().GoToPage(3);
  EXPECT_EQ(machine.Text("default-core-speed"), "Default Core speed: 325 MHz");
  machine.Type("core-clock", "358");
  machine.Type("memory-clock", "770");
  machine.Press("apply");

  machine.Restart();
  machine.Program().GoToPage(3);
  EXPECT_EQ(machine.Text("current-core-speed"), "Current Core speed: 358 MHz");
  EXPECT_EQ(machine.Text("current-memory-speed"), "Current Memory speed: 770 MHz");
  EXPECT_EQ(machine.Text("core-clock-slider"), "358");

  machine.Press("default");
  EXPECT_EQ(machine.Text("current-core-speed"), "Current Core speed: 325 MHz");
  EXPECT_EQ(machine.Stored("HKCU\\" + machine.ClockKey(), "Krusty"), "");
}

TEST(Clocks, TryTheNextRevisionWhileTheDefaultsAreImplausible) {
  struct Case {
    std::string_view answers_at;
    std::string_view ends_at;
    bool gives_up;
  };
  constexpr Case kCases[] = {{"A1", "REV_A1&", false},
                             {"A2", "REV_A2&", false},
                             {"A5", "REV_A5&", false},
                             {"B1", "REV_A6&", true}};
  for (const Case& each : kCases) {
    ClockMachine machine({"", 2, 4000, "0150",
                          "core = 200\nmemory = 333\nhomer = 1000\nkey_revision = '" +
                              std::string(each.answers_at) + "'\n"});
    machine.Program().GoToPage(3);
    EXPECT_NE(machine.ClockKey().find(each.ends_at), std::string::npos) << each.answers_at;
    EXPECT_EQ(machine.messages.size(), each.gives_up ? 1u : 0u) << each.answers_at;
    EXPECT_EQ(machine.State("DefaultCoreMHz") == 200, !each.gives_up) << each.answers_at;
  }
}

TEST(Clocks, SayWhenTheDriverNeverAnswers) {
  ClockMachine machine({"", 3, 8178, "0281", ""});
  machine.Program().GoToPage(3);
  ASSERT_EQ(machine.messages.size(), 1u);
  EXPECT_NE(machine.messages.front().find("028"), std::string::npos);
}

TEST(OverclockingPage, IsPreparedWhenItIsFirstShown) {
  ClockMachine machine({"", 3, 8178, "0041", kTwoPairs});
  EXPECT_EQ(machine.Text("enable-overclocking"), "on");
  EXPECT_FALSE(machine.Program().Find("overclocking.apply")->Enabled());
  EXPECT_TRUE(machine.Program().Find("overclocking.3d-speed")->Enabled());
  machine.Program().GoToPage(3);
  EXPECT_TRUE(machine.Program().Find("overclocking.apply")->Enabled());
  EXPECT_FALSE(machine.TakeTrace().empty());
  machine.Program().GoToPage(4);
  machine.Program().GoToPage(3);
  EXPECT_TRUE(machine.TakeTrace().empty()) << "showing the page again reads nothing";
}

TEST(OverclockingPage, GreysEverythingWhileItIsOff) {
  constexpr std::string_view kControls[] = {"settings",
                                            "apply-settings-at-startup",
                                            "2d-speed",
                                            "3d-speed",
                                            "core-clock",
                                            "memory-clock",
                                            "core-clock-slider",
                                            "memory-clock-slider",
                                            "apply",
                                            "default",
                                            "default-core-speed",
                                            "current-memory-speed"};
  ClockMachine machine({"", 3, 8178, "0041", kTwoPairs});
  machine.Program().GoToPage(3);
  for (const bool on : {false, true}) {
    machine.Tick("enable-overclocking", on);
    for (const std::string_view id : kControls) {
      EXPECT_EQ(machine.Program().Find("overclocking." + std::string(id))->Enabled(), on) << id;
    }
  }
}

TEST(OverclockingPage, KeepsTheChosenPair) {
  ClockMachine machine({"", 3, 8178, "0041", kTwoPairs});
  const std::string key = R"(HKCU\Software\NVIDIA Corporation\Global\NVTweak)";
  machine.Program().GoToPage(3);
  machine.Choose("3d-speed");
  EXPECT_EQ(machine.Stored(key, "PerfLevel"), "2");
  EXPECT_EQ(machine.Text("default-core-speed"), "Default Core speed: 350 MHz");
  machine.Restart();
  machine.Program().GoToPage(3);
  EXPECT_EQ(machine.Text("3d-speed"), "on");
  EXPECT_FALSE(machine.Program().Find("overclocking.memory-clock")->Enabled());
  machine.Choose("2d-speed");
  EXPECT_EQ(machine.Stored(key, "PerfLevel"), "0");
  EXPECT_TRUE(machine.Program().Find("overclocking.memory-clock")->Enabled());
}

TEST(OverclockingPage, StartsTheDriversSettingsAtLogOn) {
  const std::string key = R"(HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Run)";
  ClockMachine machine({"", 3, 8178});
  machine.Program().GoToPage(3);
  machine.Tick("apply-settings-at-startup", true);
  EXPECT_EQ(machine.Stored(key, "NvCplDaemon"),
            R"(RUNDLL32.EXE C:\WINDOWS\System32\NvCpl.dll,NvStartup)");
  EXPECT_EQ(machine.messages.size(), 1u);
  machine.Restart();
  machine.Program().GoToPage(3);
  EXPECT_EQ(machine.Text("apply-settings-at-startup"), "on");
  machine.Tick("apply-settings-at-startup", false);
  EXPECT_EQ(machine.Stored(key, "NvCplDaemon"), "");
  EXPECT_EQ(machine.messages.size(), 1u);
}

TEST(OverclockingPage, RefusesWhatIsNoWholeNumber) {
  struct Case {
    std::string_view text;
    bool applied;
  };
  constexpr Case kCases[] = {{"310", true},    {" 310 ", true},  {"+310", true},
                             {"-32768", true}, {"32768", false}, {"310.5", false},
                             {"", false},      {"abc", false},   {"3e2", false}};
  for (const Case& each : kCases) {
    ClockMachine machine({"", 3, 8178});
    machine.Program().GoToPage(3);
    machine.TakeTrace();
    machine.Type("core-clock", "305");
    machine.Type("memory-clock", each.text);
    machine.Press("apply");
    EXPECT_EQ(machine.TakeTrace().empty(), !each.applied) << each.text;
    EXPECT_EQ(machine.messages.size(), each.applied ? 0u : 1u) << each.text;
    if (each.applied) continue;
    EXPECT_EQ(machine.Text("memory-clock"), each.text);
    const auto& box = dynamic_cast<const controls::TextBox&>(
        *machine.Program().Find("overclocking.memory-clock"));
    EXPECT_TRUE(box.Marked()) << each.text;
  }
}

TEST(OverclockingPage, LetsASliderMoveItsBoxAndNotTheOtherWay) {
  ClockMachine machine({"", 3, 8178});
  machine.Program().GoToPage(3);
  machine.TakeTrace();
  auto& slider =
      dynamic_cast<controls::Slider&>(*machine.Program().Find("overclocking.core-clock-slider"));
  // 300 MHz divided and multiplied by 1.3.
  EXPECT_EQ(slider.Minimum(), 231);
  EXPECT_EQ(slider.Maximum(), 390);
  EXPECT_TRUE(slider.Use(320));
  EXPECT_EQ(machine.Text("core-clock"), "320");
  machine.Type("core-clock", "240");
  EXPECT_EQ(slider.Value(), 320);
  EXPECT_TRUE(machine.TakeTrace().empty()) << "nothing is written before Apply";
}

}  // namespace
}  // namespace kestrune::test
