#include "ui/face/change_log.h"

#include <utility>

namespace kestrune::face {

namespace {

/// The fields of a line: what happened, the key, the value's name, its type and data.
std::vector<std::string> FieldsOf(const std::string& line) {
  std::vector<std::string> fields(1);
  for (const char c : line) {
    if (c == '\t') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  fields.resize(4);
  return fields;
}

/// "NAME = DATA"; a dash stands for a value that isn't set any more.
std::string InShort(const std::string& line) {
  const std::vector<std::string> fields = FieldsOf(line);
  const std::string& stored = fields[3];
  const std::size_t type_end = stored.find(' ');
  const std::string data = type_end == std::string::npos ? "" : stored.substr(type_end + 1);
  return fields[2] + " = " + (stored.empty() ? "-" : data);
}

}  // namespace

platform::TraceSink ChangeLog::Sink() {
  return [this](platform::TraceKind kind, const std::string& line) {
    if (kind == platform::TraceKind::kChange) changes_.push_back(line);
  };
}

std::optional<ChangeNote> ChangeLog::Take() {
  const std::vector<std::string> changes = std::exchange(changes_, {});
  if (changes.empty()) return std::nullopt;
  ChangeNote note = {InShort(changes.front()), ""};
  if (changes.size() > 1) note.line += "   +" + std::to_string(changes.size() - 1);
  for (const std::string& change : changes) {
    note.trace += (note.trace.empty() ? "" : "\n") + change;
  }
  return note;
}

}  // namespace kestrune::face
