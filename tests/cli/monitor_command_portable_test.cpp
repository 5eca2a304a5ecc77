#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/command_line_run.h"

namespace kestrune::cli {
namespace {

using MonitorCommandTest = CommandLineTest;

std::string WithBlanks(std::string text) {
  std::replace(text.begin(), text.end(), '\t', ' ');
  return text;
}

TEST_F(MonitorCommandTest, SamplesComeAfterEachInterval) {
  const Outcome outcome =
      Run({"monitor", "--interval", "50", "--count", "2", "--record", folder / "a.CSV"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  int first = 0;
  int second = 0;
  char rest[64] = "";
  char other_rest[64] = "";
  ASSERT_EQ(std::sscanf(outcome.out.c_str(), "%d\t37\t%63[^\n]\n%d\t37\t%63[^\n]", &first, rest,
                        &second, other_rest),
            4)
      << outcome.out;
  EXPECT_GE(first, 50);
  EXPECT_GE(second, first + 1);
  EXPECT_STREQ(rest, other_rest);
  EXPECT_TRUE(std::string_view(rest).ends_with("68\t1401")) << rest;
  const std::string table = platform::ReadAll(folder / "a.CSV");
  EXPECT_TRUE(table.starts_with("sample,cpu1")) << table;
  EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 3);
  EXPECT_NE(table.find("\r\n2,37,"), std::string::npos) << table;
}

TEST_F(MonitorCommandTest, ARecordingIsWrittenInItsOwnFormat) {
  const Outcome outcome =
      Run({"monitor", "--interval", "50", "--count", "1", "--record", folder / "a.dat"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  const std::string recording = platform::ReadAll(folder / "a.dat");
  EXPECT_TRUE(recording.starts_with("\"Monitoring file\"\r\n")) << recording;
  EXPECT_TRUE(recording.ends_with("\"68\"\r\n")) << recording;
  EXPECT_NE(recording.find("\"37\"\r\n"), std::string::npos) << recording;
  ASSERT_EQ(
      Run({"--dry-run", "monitor", "--interval=50", "--count=1", "--record=" + (folder / "b")})
          .status,
      0);
  EXPECT_FALSE(std::filesystem::exists(folder / "b"));
}

TEST_F(MonitorCommandTest, WhatCannotBeSampledIsRefused) {
  for (const char* word : {"--interval=49", "--interval=x", "--interval=-100", "--count=0",
                           "--count=1.5", "--count=99999999999"}) {
    ExpectRefused(2, "is no number", {"monitor", word});
  }
  ExpectRefused(3, "can't be written: No such file", {"monitor", "--record", folder / "no/file"});
  ExpectRefused(3, "can't be written: Is a directory", {"monitor", "--record", folder / ""});
}

TEST_F(MonitorCommandTest, AnIntervalThatGoesByIsNotMadeUpFor) {
  const Outcome outcome = Run({"--json", "monitor", "--interval", "60", "--count", "3"});
  const auto samples = nlohmann::json::parse(outcome.out);
  ASSERT_EQ(samples.size(), 3u);
  long long former = 0;
  for (const auto& sample : samples) {
    const long long at = sample["milliseconds"];
    EXPECT_GT(at / 60, former / 60) << outcome.out;
    former = at;
    EXPECT_EQ(sample["cpu1"], 37);
    EXPECT_EQ(sample["free"], 68);
    EXPECT_EQ(sample["free_mb"], 1401);
  }
}

TEST_F(MonitorCommandTest, TimeThatIsMovedByHandChangesNoLoad) {
  const std::vector<std::string> steps = {"do", "wait:60000", "wait:60000",
                                          "?info.monitoring.cpu-1"};
  EXPECT_EQ(Run(steps, "host").out, "CPU1 0%\n");
  EXPECT_EQ(Run(steps, "winxp-geforce7800").out, "CPU1 37%\n");
}

TEST_F(MonitorCommandTest, ARecordingIsToldWhenItBeginsAndWhenItIsGone) {
  const std::vector<std::string> steps = {"do",
                                          "info.monitoring.rec",
                                          "wait:2000",
                                          "info.monitoring.stop",
                                          "?monitoring.last-sample",
                                          "monitoring.close"};
  const auto run = [&](const char* option) {
    std::vector<std::string> words = steps;
    words.insert(words.begin(), option);
    const Outcome outcome = Run(words);
    return std::to_string(outcome.status) + "|" + WithBlanks(outcome.out + "|" + outcome.err);
  };
  EXPECT_EQ(run("--trace"), "0|2\n|file write sm.dat\nfile delete sm.dat\n");
  EXPECT_EQ(run("--dry-run"), "0|\n|file write sm.dat\nfile delete sm.dat\n");
  EXPECT_FALSE(std::filesystem::exists(program_folder + "/sm.dat"));
}

TEST_F(MonitorCommandTest, TheWindowOpensOnWhateverRecordingIsThereUnlessOneRuns) {
  ExpectRefused(3, "info.monitoring.rec is disabled",
                {"do", "info.monitoring.rec", "wait:3000", "open:monitoring"});
  EXPECT_EQ(Run({"get", "monitoring.first-sample", "monitoring.last-sample"}).out, "1\n3\n");
  ExpectRefused(3, "can't be used while monitoring is open",
                {"do", "open:monitoring", "info.monitoring.rec"});
  // A program that ends with the window open leaves the recording.
  EXPECT_TRUE(std::filesystem::exists(program_folder + "/sm.dat"));
  const Outcome closed = Run(
      {"do", "open:monitoring", "close:monitoring", "open:monitoring", "?monitoring.last-sample"});
  EXPECT_EQ(closed.out, "\n");
  EXPECT_FALSE(std::filesystem::exists(program_folder + "/sm.dat"));
}

}  // namespace
}  // namespace kestrune::cli
