#include <gtest/gtest.h>

#include <algorithm>

#include "fake_machine.h"

namespace kestrune::forms {
namespace {

using platform::ChildState;
using test::Driven;
using test::FakeMachine;
using test::Joined;

constexpr std::size_t kMostWaits = 1500;  // of 20 ms: 30 seconds

std::string Report(const Driven& driven) {
  return Joined(driven.Get<controls::ListBox>("info.directx.report").Items(), "|");
}

void ShowPage(Driven& driven) { driven.Press("main.basicdx"); }

TEST(DirectXPageTest, TheReportIsMadeOnceWhenThePageIsFirstShown) {
  FakeMachine machine;
  machine.Lay("DATA/d3d_adapter_info.txt", "first\r\n\r\n  third\nlast");
  machine.child_states = {ChildState::kRuns, ChildState::kEnded};
  Driven driven(machine);
  EXPECT_EQ(Report(driven), "");
  machine.log.clear();
  ShowPage(driven);
  EXPECT_EQ(Report(driven), "first||  third|last");
  const std::string start = "run\t" KESTRUNE_DATA_FOLDER R"(\data\d3dinfo.exe)";
  const std::string steps[] = {"events", start, "wait", "goes on",
                               R"(file \DATA\d3d_adapter_info.txt)"};
  auto at = machine.log.begin();
  for (const std::string& step : steps) {
    at = std::find(at, machine.log.end(), step);
    ASSERT_NE(at, machine.log.end()) << step;
  }
  EXPECT_EQ(machine.last_window, platform::WindowState::kNormal);
  driven.Press("main.basic");
  machine.TakeTrace();
  ShowPage(driven);
  EXPECT_EQ(Joined(machine.TakeTrace()), "");
}

TEST(DirectXPageTest, WhatFailsLeavesWhatThereIs) {
  struct Case {
    std::optional<platform::StartFault> fault;
    bool has_report;
    std::size_t waits;
    ChildState last;
    std::string shown;
    bool is_ended;
  };
  const std::string wait = "Please wait ...";
  const Case cases[] = {
      {platform::StartFault::kNotFound, true, 0, ChildState::kEnded, "old", false},
      {platform::StartFault::kNotFound, false, 0, ChildState::kEnded, wait, false},
      {{}, false, 3, ChildState::kEnded, wait, false},
      {{}, true, 3, ChildState::kInterrupted, "old", false},
      {{}, true, kMostWaits - 1, ChildState::kEnded, "old", false},
      {{},
       true,
       kMostWaits,
       ChildState::kEnded,
       wait + "|The DirectX report could not be created.",
       true}};
  for (const Case& each : cases) {
    FakeMachine machine;
    machine.start_fault = each.fault;
    machine.child_states.assign(each.waits, ChildState::kRuns);
    machine.child_states.push_back(each.last);
    if (each.has_report) machine.Lay("data/D3D_adapter_info.TXT", "old\n");
    Driven driven(machine);
    ShowPage(driven);
    EXPECT_EQ(Report(driven), each.shown);
    EXPECT_EQ(std::count(machine.log.begin(), machine.log.end(), "end"), each.is_ended ? 1 : 0);
  }
}

}  // namespace
}  // namespace kestrune::forms
