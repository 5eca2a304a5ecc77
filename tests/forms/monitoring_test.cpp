// The monitoring page and the window that draws a recording, driven as a person at them does.

#include <gtest/gtest.h>

#include "fake_machine.h"
#include "ui/forms/main_form.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {
namespace {

using controls::Graph;
using controls::GraphLine;
using test::Driven;
using test::FakeMachine;
using test::Joined;

const std::string kPage = "info.monitoring.";
const std::string kWindow = "monitoring.";

/// A recording whose samples are 1, 2, 3 and so on in every field.
std::string Samples(int count, bool two_processors = false) {
  std::string bytes =
      std::string("\"Monitoring file\"\r\n\"") + (two_processors ? "1" : "0") + "\"\r\n";
  for (int i = 1; i <= count; ++i) {
    for (int field = 0; field < (two_processors ? 3 : 2); ++field) {
      bytes += '"' + std::to_string(i) + "\"\r\n";
    }
  }
  return bytes;
}

/// A chart as "0:2030-2010" for each of its lines in a colour.
std::string Lines(const Driven& driven, const std::string& chart, const char* colour) {
  std::string text;
  for (const auto& shape : driven.Get<Graph>(kWindow + chart).Shapes()) {
    const auto& line = std::get<GraphLine>(shape);
    EXPECT_EQ(line.x2, line.x1 + 50);
    EXPECT_EQ(line.width, chart == "cpu" ? 15 : 30);
    if (line.colour != colour) continue;
    text += (text.empty() ? "" : " ") + std::to_string(line.x1) + ':' + std::to_string(line.y1) +
            '-' + std::to_string(line.y2);
  }
  return text;
}

std::size_t Count(const Driven& driven, const std::string& chart) {
  return driven.Get<Graph>(kWindow + chart).Shapes().size();
}

/// "1 to 201 more" for the axis and the button behind it.
std::string Axis(const Driven& driven) {
  return driven.Text(kWindow + "first-sample") + " to " + driven.Text(kWindow + "last-sample") +
         (driven.Enabled(kWindow + "next") ? " more" : "");
}

struct MonitoringTest : testing::Test {
  void Open(const std::string& recording) {
    machine.Lay("sm.dat", recording);
    driven.program.TheWindows().Open("monitoring");
  }
  bool IsThere(std::string_view file) { return machine.Files().Locate(file).has_value(); }

  FakeMachine machine;
  Driven driven{machine};
};

TEST_F(MonitoringTest, ASpeedStartsAWholeInterval) {
  struct Case {
    const char* option;
    long long interval;
  };
  controls::Scheduler& timers = driven.program.Timers();
  EXPECT_EQ(timers.UntilNext(), 1000);
  EXPECT_EQ(driven.Text(kPage + "slow"), "on");
  timers.Advance(700);
  for (const auto& [option, interval] : {Case{"slow", 1000}, Case{"fast", 200}, Case{"normal", 400},
                                         Case{"normal", 400}, Case{"slow", 1000}}) {
    driven.Press(kPage + option);
    EXPECT_EQ(driven.Text(kPage + option), "on");
    EXPECT_EQ(timers.UntilNext(), interval) << option;
    timers.Advance(150);
  }
}

TEST_F(MonitoringTest, SamplesAreTakenOnAnyPageUntilTheProgramEnds) {
  driven.program.GoToPage(0);
  machine.log.clear();
  driven.program.Timers().Advance(3000);
  EXPECT_EQ(std::count(machine.log.begin(), machine.log.end(), "collect"), 3);
  driven.program.Main().TheWindow().UseClose();
  driven.program.Timers().Advance(3000);
  EXPECT_EQ(std::count(machine.log.begin(), machine.log.end(), "collect"), 3);
}

TEST_F(MonitoringTest, StopShowsWhatWasRecorded) {
  machine.loads = {{0, 0}};
  machine.memory = {512 << 20, 127 << 20};
  driven.Press(kPage + "rec");
  EXPECT_EQ(driven.State("Recording"), "1");
  driven.program.Timers().Advance(1000);
  machine.loads = {{100, 0}};
  driven.program.Timers().Advance(2000);
  driven.Press(kPage + "stop");
  EXPECT_EQ(driven.State("Recording"), "0");
  EXPECT_TRUE(driven.Visible("monitoring"));
  EXPECT_EQ(Lines(driven, "cpu", "#00ff00"), "0:2050-50 50:50-50");
  EXPECT_EQ(Lines(driven, "memory", "#0000ff"), "0:1550-1550 50:1550-1550");
  EXPECT_EQ(Axis(driven), "1 to 3");
  // No recording starts beneath it.
  EXPECT_EQ(driven.program.Gate().Check(*driven.program.Find(kPage + "rec")),
            controls::Refusal::kBehindModal);
  driven.Press(kWindow + "close");
  EXPECT_FALSE(driven.Visible("monitoring"));
  EXPECT_FALSE(IsThere("sm.dat"));
}

TEST_F(MonitoringTest, TwoProcessorsHaveALineEach) {
  Open("\"Monitoring file\"\r\n1\n10,20,30\n11,21,31\n");
  EXPECT_EQ(Lines(driven, "cpu", "#00ff00"), "0:1850-1830");
  EXPECT_EQ(Lines(driven, "cpu", "#ff0000"), "0:1650-1630");
  EXPECT_EQ(Lines(driven, "memory", "#0000ff"), "0:1450-1430");
}

TEST_F(MonitoringTest, ARecordingIsShownPageByPage) {
  struct Case {
    int samples;
    std::vector<std::pair<std::string, std::size_t>> pages;  ///< the axis and the segments
  };
  for (const auto& [samples, pages] : {
           Case{0, {{" to ", 0}}},
           Case{1, {{" to ", 0}}},
           Case{3, {{"1 to 3", 2}}},
           Case{201, {{"1 to 201", 200}}},
           Case{202, {{"1 to 201 more", 200}, {" to ", 0}}},
           Case{250, {{"1 to 201 more", 200}, {"202 to 250", 48}}},
           Case{403, {{"1 to 201 more", 200}, {"202 to 402 more", 200}, {" to ", 0}}},
       }) {
    Open(Samples(samples));
    for (const auto& [axis, segments] : pages) {
      EXPECT_EQ(Axis(driven), axis) << samples;
      EXPECT_EQ(Count(driven, "cpu"), segments) << samples;
      EXPECT_EQ(Count(driven, "memory"), segments) << samples;
      EXPECT_EQ(driven.Text(kWindow + "note"), "") << samples;
      if (driven.Enabled(kWindow + "next")) driven.Press(kWindow + "next");
    }
    driven.Press(kWindow + "close");
  }
}

TEST_F(MonitoringTest, ASampleThatIsLeftOutTakesNoRoomAndKeepsItsNumber) {
  std::string recording = Samples(0);
  for (int i = 1; i <= 205; ++i) recording += i == 1 || i == 3 ? "x,1\n" : "50,50\n";
  Open(recording);
  EXPECT_EQ(Axis(driven), "2 to 203 more");
  EXPECT_EQ(Count(driven, "cpu"), 200u);
  EXPECT_EQ(driven.Text(kWindow + "note"), "Samples left out: 2");
  driven.Press(kWindow + "next");
  EXPECT_EQ(Axis(driven), "204 to 205");
  EXPECT_EQ(Lines(driven, "cpu", "#00ff00"), "0:1050-1050");
  EXPECT_EQ(driven.Text(kWindow + "note"), "Samples left out: 2");
}

TEST_F(MonitoringTest, AFileOfAnotherTypeOpensNoWindowAndStays) {
  for (const char* bytes : {"", "something else\r\n"}) {
    Open(bytes);
    EXPECT_FALSE(driven.Visible("monitoring"));
    EXPECT_EQ(driven.program.Gate().Modal(), nullptr);
    EXPECT_EQ(Joined(std::exchange(machine.messages, {})), "Unknown file type");
    EXPECT_TRUE(IsThere("sm.dat"));
  }
  Open(Samples(250));
  EXPECT_TRUE(driven.Visible("monitoring"));
  machine.Lay("sm.dat", "something else");
  driven.Press(kWindow + "next");
  EXPECT_FALSE(driven.Visible("monitoring"));
  EXPECT_TRUE(IsThere("sm.dat"));
}

TEST_F(MonitoringTest, WithoutARecordingTheChartsAreEmpty) {
  driven.program.TheWindows().Open("monitoring");
  EXPECT_TRUE(driven.Visible("monitoring"));
  EXPECT_EQ(Axis(driven), " to ");
  EXPECT_EQ(Joined(machine.messages), "");
  driven.Press(kWindow + "close");
  EXPECT_FALSE(driven.Visible("monitoring"));
}

TEST_F(MonitoringTest, TheCloseBoxDiscardsTheRecordingAndTheProgramsEndDoesNot) {
  Open(Samples(3));
  driven.Get<controls::Window>("monitoring").UseClose();
  EXPECT_FALSE(driven.Visible("monitoring"));
  EXPECT_FALSE(IsThere("sm.dat"));
  Open(Samples(3));
  driven.program.Main().TheWindow().UseClose();
  EXPECT_FALSE(driven.Visible("monitoring"));
  EXPECT_TRUE(IsThere("sm.dat"));
}

TEST_F(MonitoringTest, ARecordingIsSavedUnderANameThatNothingHas) {
  Open(Samples(2) + "x\r\n3\r\n");
  machine.Lay("Recording-2.csv", "mine");
  for (const char* name : {"recording.csv", "recording-3.csv"}) {
    driven.Press(kWindow + "save-recording");
    EXPECT_EQ(machine.Files().ReadBytes(name), "sample,cpu1,free\r\n1,1,1\r\n2,2,2\r\n");
    EXPECT_EQ(driven.Text(kWindow + "note"),
              "Samples left out: 1   " + machine.Files().Locate(name).value());
  }
  EXPECT_EQ(machine.Files().ReadBytes("recording-2.csv"), "mine");
  EXPECT_TRUE(IsThere("sm.dat"));
}

}  // namespace
}  // namespace kestrune::forms
