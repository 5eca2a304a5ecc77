#include "monitor/recording.h"

#include <gtest/gtest.h>

namespace kestrune::monitor {
namespace {

/// A recording as text: "2: 1/2/3 - 4/5/6", with "-" for a sample that is left out.
std::string Shown(std::string_view bytes) {
  const std::optional<Recording> recording = ReadRecording(bytes);
  if (!recording) return "unknown";
  std::string text = recording->two_processors ? "2:" : "1:";
  for (const std::optional<Sample>& sample : recording->samples) {
    text += sample ? ' ' + std::to_string(sample->cpu1) + '/' + std::to_string(sample->cpu2) + '/' +
                         std::to_string(sample->free_percent)
                   : " -";
  }
  return text;
}

TEST(RecordingTest, SamplesAreReadFieldByField) {
  const std::string title = "\"Monitoring file\"\r\n";
  const std::string one = title + "\"0\"\r\n";
  const std::string two = title + "\"1\"\r\n";
  struct Case {
    std::string bytes;
    const char* samples;
  };
  for (const Case& c : {
           Case{"", "unknown"},
           Case{"\r\n\r\n", "unknown"},
           Case{"\"monitoring file\"\r\n\"0\"\r\n", "unknown"},
           Case{"\"Monitoring fi", "unknown"},
           Case{title, "1:"},
           Case{one, "1:"},
           Case{two, "2:"},
           Case{title + "\"2\"\r\n\"5\"\r\n\"6\"\r\n", "1: 5/0/6"},
           Case{title + "\"yes\"\r\n\"5\"\r\n\"6\"\r\n", "1: 5/0/6"},
           Case{one + "\"37\"\r\n\"25\"\r\n\"0\"\r\n\"100\"\r\n", "1: 37/0/25 0/0/100"},
           Case{two + "\"37\"\r\n\"42\"\r\n\"25\"\r\n", "2: 37/42/25"},
           Case{two + "37,42,25\n1 , 2, 3", "2: 37/42/25 1/2/3"},
           Case{one + "\"-5\"\r\n\"300\"\r\n", "1: -5/0/300"},
           Case{one + "\"x\"\r\n\"1\"\r\n\"2\"\r\n\"3\"\r\n", "1: - 2/0/3"},
           Case{two + "\"1\"\r\n\"\"\r\n\"2\"\r\n\"3\"\r\n\"4\"\r\n\"5\"\r\n", "2: - 3/4/5"},
           Case{two + "\"1\"\r\n\"2\"\r\n\"3.5\"\r\n\"3\"\r\n\"4\"\r\n\"5\"\r\n", "2: - 3/4/5"},
           Case{one + "\"2147483648\"\r\n\"1\"\r\n", "1: -"},
           Case{one + "\"1\"\r\n\"2\"\r\n\"3\"\r\n", "1: 1/0/2 -"},
           Case{one + "\"1\"\r\n\"2\"\r\n\"3\"\r\n\"4", "1: 1/0/2 -"},
           Case{one + "\"1\"\r\n\"2\"\r\n\"3", "1: 1/0/2 -"},
           Case{one + "\"1\"\r\n\"2\"", "1: 1/0/2"},
       }) {
    EXPECT_EQ(Shown(c.bytes), c.samples) << c.bytes;
  }
}

TEST(RecordingTest, WhatWasWrittenIsReadAgain) {
  const Sample samples[] = {{37, 42, 25, 128}, {0, 100, 137, 1}};
  for (const bool two_processors : {false, true}) {
    std::string bytes = kMonitoringFormat.beginning(two_processors);
    for (const Sample& sample : samples) {
      bytes += kMonitoringFormat.sample(sample, 0, two_processors);
    }
    EXPECT_EQ(Shown(bytes), two_processors ? "2: 37/42/25 0/100/137" : "1: 37/0/25 0/0/137");
  }
  EXPECT_EQ(kMonitoringFormat.beginning(true) + kMonitoringFormat.sample(samples[0], 1, true),
            "\"Monitoring file\"\r\n\"1\"\r\n\"37\"\r\n\"42\"\r\n\"25\"\r\n");
}

TEST(RecordingTest, ATableHasTheSamplesThatCanBeReadUnderTheirNumbers) {
  const std::optional<Recording> two =
      ReadRecording("\"Monitoring file\"\r\n1\n1,2,3\nx,5,6\n7,8,9\n");
  ASSERT_TRUE(two);
  EXPECT_EQ(two->LeftOut(), 1);
  EXPECT_EQ(CsvOf(*two), "sample,cpu1,cpu2,free\r\n1,1,2,3\r\n3,7,8,9\r\n");
  EXPECT_EQ(CsvOf({}), "sample,cpu1,free\r\n");
}

}  // namespace
}  // namespace kestrune::monitor
