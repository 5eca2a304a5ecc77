#include "monitor/recording.h"

#include <algorithm>

#include "core/field_reader.h"
#include "core/number.h"

namespace kestrune::monitor {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string Field(std::string_view text) {
  return '"' + std::string(text) + '"' + std::string(kLineEnd);
}

std::string Beginning(bool two_processors) {
  return Field(kRecordingTitle) + Field(two_processors ? "1" : "0");
}

std::string Fields(const Sample& sample, int /*number*/, bool two_processors) {
  return Field(std::to_string(sample.cpu1)) +
         (two_processors ? Field(std::to_string(sample.cpu2)) : "") +
         Field(std::to_string(sample.free_percent));
}

std::string Headings(bool two_processors) {
  return std::string(two_processors ? "sample,cpu1,cpu2,free" : "sample,cpu1,free") +
         std::string(kLineEnd);
}

std::string Values(const Sample& sample, int number, bool two_processors) {
  return std::to_string(number) + ',' + std::to_string(sample.cpu1) +
         (two_processors ? ',' + std::to_string(sample.cpu2) : "") + ',' +
         std::to_string(sample.free_percent) + std::string(kLineEnd);
}

/// The next field's number, which counts only where the field is whole.
bool TakeNumber(core::FieldReader& fields, int& number) {
  const std::optional<std::string> field = fields.Next();
  if (!field || fields.IsCutOff()) return false;
  const auto read = core::ParseWholeNumber(*field);
  if (read) number = read.Value();
  return read.Ok();
}

std::optional<Sample> TakeSample(core::FieldReader& fields, bool two_processors) {
  Sample sample;
  // All its fields are taken, whatever is wrong with one of them.
  bool is_whole = TakeNumber(fields, sample.cpu1);
  if (two_processors) is_whole = TakeNumber(fields, sample.cpu2) && is_whole;
  is_whole = TakeNumber(fields, sample.free_percent) && is_whole;
  return is_whole ? std::optional(sample) : std::nullopt;
}

}  // namespace

const RecordingFormat kMonitoringFormat = {Beginning, Fields};
const RecordingFormat kCsvFormat = {Headings, Values};

int Recording::LeftOut() const {
  return static_cast<int>(std::count(samples.begin(), samples.end(), std::nullopt));
}

std::optional<Recording> ReadRecording(std::string_view bytes) {
  core::FieldReader fields(bytes);
  if (fields.Next() != kRecordingTitle) return std::nullopt;
  Recording recording;
  int processors = 0;
  recording.two_processors = TakeNumber(fields, processors) && processors == 1;
  while (!fields.AtEnd()) {
    recording.samples.push_back(TakeSample(fields, recording.two_processors));
  }
  return recording;
}

std::string CsvOf(const Recording& recording) {
  std::string text = kCsvFormat.beginning(recording.two_processors);
  int number = 0;
  for (const std::optional<Sample>& sample : recording.samples) {
    ++number;
    if (sample) text += kCsvFormat.sample(*sample, number, recording.two_processors);
  }
  return text;
}

}  // namespace kestrune::monitor
