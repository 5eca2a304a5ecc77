#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "monitor/sampler.h"

namespace kestrune::monitor {

/// The program file that samples are recorded in.
inline constexpr std::string_view kRecordingFile = "sm.dat";
/// The first field of every recording.
inline constexpr std::string_view kRecordingTitle = "Monitoring file";

/// A way to write samples down, in lines that end with CR LF: what a file begins with, and what
/// each sample, counted from 1, adds to it.
struct RecordingFormat {
  std::string (*beginning)(bool two_processors);
  std::string (*sample)(const Sample& sample, int number, bool two_processors);
};

/// The recording itself: a title and whether there are two processors, then one field a line.
extern const RecordingFormat kMonitoringFormat;
/// Comma-separated values under a line of headings.
extern const RecordingFormat kCsvFormat;

/// What a recording holds.
struct Recording {
  bool two_processors = false;
  /// In their order. Nothing stands for one with a field that is missing, cut off or no whole
  /// number.
  std::vector<std::optional<Sample>> samples;

  int LeftOut() const;
};

/// Reads a recording; nothing for a file of another type.
std::optional<Recording> ReadRecording(std::string_view bytes);

/// The samples that can be read, under the numbers that they have in the recording.
std::string CsvOf(const Recording& recording);

}  // namespace kestrune::monitor
