#include "monitor/check_recording.h"

#include <string>

#include "core/field_reader.h"
#include "core/number.h"
#include "monitor/recording.h"

namespace kestrune::monitor {

namespace {

/// One sample; false at the end of the file.
bool CheckSample(core::FieldReader& fields, int parts, platform::Findings& findings) {
  const int first = fields.Line();
  for (int part = 0; part < parts; ++part) {
    const int line = fields.Line();
    const auto field = fields.Next();
    if (!field || fields.IsCutOff()) {
      findings.push_back({first, "the file ends in the middle of a sample"});
      return false;
    }
    if (!core::ParseWholeNumber(*field)) {
      findings.push_back({line, '"' + *field + "\" is no whole number"});
    }
  }
  return true;
}

}  // namespace

platform::Findings CheckRecording(std::string_view text) {
  core::FieldReader fields(text);
  if (fields.Next() != kRecordingTitle) {
    return {{1, "this is no recording: it doesn't begin with \"Monitoring file\""}};
  }
  platform::Findings findings;
  const int line = fields.Line();
  const std::string processors = fields.Next().value_or("");
  if (processors != "0" && processors != "1") {
    findings.push_back(
        {line, '"' + processors + "\" is neither 0 nor 1, for one or two processors"});
  }
  constexpr int kOneProcessor = 2;
  const int parts = processors == "1" ? kOneProcessor + 1 : kOneProcessor;
  while (!fields.AtEnd() && CheckSample(fields, parts, findings)) {
  }
  return findings;
}

}  // namespace kestrune::monitor
