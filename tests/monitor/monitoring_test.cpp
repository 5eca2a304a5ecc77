#include "monitor/monitoring.h"

#include <gtest/gtest.h>

#include <optional>

#include "fake_machine.h"
#include "ui/forms/main_form.h"

namespace kestrune::monitor {
namespace {

using controls::Graph;
using controls::GraphLine;
using controls::GraphPoint;
using platform::MemoryStatus;
using platform::ProcessorLoads;

/// The monitoring page on a machine, without the rest of the program.
struct Monitored {
  explicit Monitored(int two_cpu = 0, int family = detect::kWindowsXp) {
    program.TwoCPU = two_cpu;
    versions.OSFamily = family;
    main.AddTo(controls);
    language.LoadLanguage();
    monitoring.emplace(machine.Services(), timers, program, versions, language.LangText, controls);
    monitoring->Start();
    machine.log.clear();
  }

  void Tick() { timers.Advance(timers.UntilNext()); }
  std::string Text(std::string_view id) const {
    const controls::Control& control = *controls.Find("info.monitoring." + std::string(id));
    return control.Visible() ? control.ValueText() : "hidden";
  }
  bool Enabled(std::string_view id) const {
    return controls.Find("info.monitoring." + std::string(id))->Enabled();
  }
  /// The shapes of a graph since its last clearing: "60:1050-670 green" and "60:1040 green".
  std::string Shapes(std::string_view id) const {
    std::string text;
    for (const auto& shape : controls.Get<Graph>("info.monitoring." + std::string(id)).Shapes()) {
      text += (text.empty() ? "" : ", ") +
              std::visit([](const auto& each) { return Shown(each); }, shape);
    }
    return text;
  }
  std::string Recorded() { return machine.Files().ReadBytes("sm.dat").value_or("none"); }

  static std::string Shown(const GraphLine& line) {
    EXPECT_EQ(line.x1, line.x2);
    EXPECT_EQ(line.width, 30);
    return std::to_string(line.x1) + ':' + std::to_string(line.y1) + '-' + std::to_string(line.y2) +
           ' ' + line.colour;
  }
  static std::string Shown(const GraphPoint& point) {
    EXPECT_EQ(point.width, 30);
    return std::to_string(point.x) + ':' + std::to_string(point.y) + ' ' + point.colour;
  }

  test::FakeMachine machine;
  core::basRegistry registry{machine.Services().registry};
  lang::Language language{registry, machine.Files(), machine};
  forms::MainForm main;
  controls::ControlSet controls;
  controls::Scheduler timers;
  core::ProgramState program;
  detect::VersionState versions;
  std::optional<Monitoring> monitoring;
};

constexpr MemoryStatus kQuarter{512 << 20, 127 << 20};

TEST(MonitoringTest, ASampleIsShownAsTextsAndBars) {
  struct Case {
    int two_cpu;
    int family;
    ProcessorLoads loads;
    MemoryStatus memory;
    const char* shown;
  };
  for (const auto& [two_cpu, family, loads, memory, shown] : {
           Case{0, 3, {{37, 42}}, kQuarter, "CPU1 37% 370 hidden hidden 25%    (128 MB free)"},
           Case{1, 3, {{37, 42}}, kQuarter, "CPU1 37% 370 CPU2 42% 420 25%    (128 MB free)"},
           Case{1, 0, {{37, 42}}, kQuarter, "CPU1 37% 370 CPU2 0% 0 25%    (128 MB free)"},
           Case{1, 1, {{0.5, 1.5}}, kQuarter, "CPU1 0% 0 CPU2 2% 20 25%    (128 MB free)"},
           Case{1, 4, {{100, {}}}, kQuarter, "CPU1 100% 1000 CPU2 0% 0 25%    (128 MB free)"},
           Case{0, 3, {}, {0, 5 << 20}, "CPU1 0% 0 hidden hidden 0%    (6 MB free)"},
           Case{0, 3, {}, {100 << 20, 199 << 20}, "CPU1 0% 0 hidden hidden 200%    (200 MB free)"},
       }) {
    Monitored page(two_cpu, family);
    EXPECT_EQ(page.Text("cpu-1"), "0%");
    page.machine.loads = loads;
    page.machine.memory = memory;
    page.Tick();
    EXPECT_EQ(page.Text("cpu-1") + ' ' + page.Text("cpu-1-bar") + ' ' + page.Text("cpu-2") + ' ' +
                  page.Text("cpu-2-bar") + ' ' + page.Text("free-memory"),
              shown);
  }
}

TEST(MonitoringTest, WhatCannotBeReadStaysAsItWas) {
  Monitored page(1);
  page.machine.loads = {{37, 42}};
  page.machine.memory = kQuarter;
  page.Tick();
  page.machine.loads = {{{}, 50}};
  page.machine.memory = {0, 0};
  page.Tick();
  EXPECT_EQ(page.Text("cpu-1") + ' ' + page.Text("cpu-2") + ' ' + page.Text("free-memory"),
            "CPU1 37% CPU2 50% 25%    (1 MB free)");
}

TEST(MonitoringTest, TheCountersAreOpenedOnceAndCollectedOnceATick) {
  Monitored page(1);
  for (int i = 0; i < 3; ++i) page.Tick();
  EXPECT_EQ(test::Joined(page.machine.log), "open counters, collect, collect, collect");
}

TEST(MonitoringTest, LoadsAreDrawnAsPointsAndLinesAboveTheirGround) {
  Monitored page(1);
  page.machine.memory = kQuarter;
  ASSERT_EQ(page.controls.Find("info.monitoring.cpu-graph")->Bounds().height, 1140);
  page.machine.loads = {{50, 0}};
  page.Tick();
  page.machine.loads = {{0, 100}};
  page.Tick();
  EXPECT_EQ(page.Shapes("cpu-graph"),
            "60:1050-540 #00ff00, 90:1040 #ff0000, 120:1040 #00ff00, 150:1050-40 #ff0000");
  EXPECT_EQ(page.Shapes("memory-graph"), "60:1140-890 #0000ff, 120:1140-890 #0000ff");
}

TEST(MonitoringTest, OneProcessorDrawsNothingForASecond) {
  Monitored page(0);
  page.machine.loads = {{1, 99}};
  page.Tick();
  EXPECT_EQ(page.Shapes("cpu-graph"), "60:1050-1030 #00ff00");
}

TEST(MonitoringTest, AFullGraphIsClearedBeforeTheMemoryIsDrawn) {
  Monitored page;
  page.machine.loads = {{50, 0}};
  page.machine.memory = kQuarter;
  const int width = page.controls.Find("info.monitoring.cpu-graph")->Bounds().width;
  for (int x = 60; x < width; x += 60) page.Tick();
  const auto& graph = page.controls.Get<Graph>("info.monitoring.cpu-graph");
  EXPECT_EQ(graph.Shapes().size(), static_cast<std::size_t>((width - 1) / 60));
  page.Tick();
  EXPECT_EQ(page.Shapes("cpu-graph"), "");
  EXPECT_EQ(page.Shapes("memory-graph"), "0:1140-890 #0000ff");
  page.Tick();
  EXPECT_EQ(page.Shapes("cpu-graph"), "60:1050-540 #00ff00");
  EXPECT_EQ(page.Shapes("memory-graph"), "0:1140-890 #0000ff, 60:1140-890 #0000ff");
}

TEST(MonitoringTest, AGraphThatIsNoMultipleOfAStepIsFullOnceItWasPassed) {
  Monitored page;
  auto& graph = page.controls.Get<Graph>("info.monitoring.cpu-graph");
  graph.SetBounds({0, 0, 10000, 1500});
  page.timers.Advance(166000);
  EXPECT_EQ(graph.Shapes().size(), 166u);
  page.Tick();
  EXPECT_EQ(graph.Shapes().size(), 0u);
}

TEST(MonitoringTest, EachSampleIsRecordedByTheProcessorsThatThereAre) {
  struct Case {
    int two_cpu;
    int family;
    std::string recorded;
  };
  const std::string title = "\"Monitoring file\"\r\n";
  for (const auto& [two_cpu, family, recorded] : {
           Case{0, 3, title + "\"0\"\r\n\"37\"\r\n\"25\"\r\n\"5\"\r\n\"25\"\r\n"},
           Case{1, 3,
                title + "\"1\"\r\n\"37\"\r\n\"42\"\r\n\"25\"\r\n\"5\"\r\n\"6\"\r\n\"25\"\r\n"},
           Case{1, 0, title + "\"1\"\r\n\"37\"\r\n\"0\"\r\n\"25\"\r\n\"5\"\r\n\"0\"\r\n\"25\"\r\n"},
       }) {
    Monitored page(two_cpu, family);
    page.machine.memory = kQuarter;
    page.machine.Lay("sm.dat", "an old one");
    page.Tick();
    page.monitoring->StartRecording();
    page.machine.loads = {{37, 42}};
    page.Tick();
    page.machine.loads = {{5, 6}};
    page.Tick();
    page.monitoring->StopRecording();
    page.Tick();
    EXPECT_EQ(page.Recorded(), recorded);
  }
}

/// What can be used: "rec speeds stop".
std::string Usable(const Monitored& page) {
  std::string text;
  for (const char* id : {"rec", "fast", "normal", "slow", "monitoring-speed", "stop"}) {
    if (page.Enabled(id)) text += std::string(text.empty() ? "" : " ") + id;
  }
  return text;
}

constexpr const char* kIdle = "rec fast normal slow monitoring-speed";

TEST(MonitoringTest, TheSpeedStandsWhileItIsRecorded) {
  Monitored page;
  EXPECT_EQ(Usable(page), kIdle);
  page.monitoring->StartRecording();
  EXPECT_EQ(Usable(page), "stop");
  EXPECT_EQ(page.program.Recording, 1);
  page.monitoring->StopRecording();
  EXPECT_EQ(Usable(page), kIdle);
  EXPECT_EQ(page.program.Recording, 0);
}

TEST(MonitoringTest, ARecordingThatCannotBeginOrGoOnSaysSo) {
  Monitored page;
  page.machine.Lay("sm.dat/x", "");
  page.monitoring->StartRecording();
  EXPECT_EQ(Usable(page), kIdle);
  EXPECT_EQ(page.program.Recording, 0);
  EXPECT_EQ(test::Joined(page.machine.notes), "The recording could not be started.");

  Monitored other;
  other.monitoring->StartRecording();
  other.Tick();
  ASSERT_TRUE(other.machine.Files().RemoveFile("sm.dat"));
  other.Tick();
  other.Tick();
  EXPECT_EQ(Usable(other), kIdle);
  EXPECT_EQ(other.program.Recording, 0);
  EXPECT_EQ(other.Recorded(), "none");
  EXPECT_EQ(test::Joined(other.machine.notes), "The recording has been stopped.");
  EXPECT_EQ(other.Shapes("memory-graph").substr(0, 3), "60:");
  EXPECT_NE(other.Shapes("memory-graph").find("180:"), std::string::npos);
}

}  // namespace
}  // namespace kestrune::monitor
