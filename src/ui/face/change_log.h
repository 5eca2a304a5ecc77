#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/tracing.h"

namespace kestrune::face {

/// What an act changed: a quiet line for a person, and the whole of it as a trace.
struct ChangeNote {
  std::string line;
  std::string trace;
};

/// Collects the changes of the registry that a trace tells, so that a face can say what came of an
/// act.
class ChangeLog {
 public:
  /// Where the trace tells them; good for as long as this lives.
  platform::TraceSink Sink();
  /// What was changed since the last call: the first change, how many more there were. Nothing
  /// where nothing was.
  std::optional<ChangeNote> Take();

 private:
  std::vector<std::string> changes_;
};

}  // namespace kestrune::face
