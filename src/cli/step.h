#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"
#include "ui/forms/window_table.h"

namespace kestrune::cli {

/// One step of what a person does.
struct Step {
  enum class Kind { kSet, kPress, kPrint, kHover, kOpen, kClose, kPage, kWait, kShow };

  Kind kind = Kind::kPress;
  std::string id = {};     ///< of a control, page or window; empty for all pages that are shown
  std::string value = {};  ///< of a set
  long long wait_ms = 0;
  bool opens_window = false;  ///< the window that it names, or that its control stands in, first
};

/// Reads one step of `do`; nothing when it has no such form.
std::optional<Step> ParseStep(const std::string& text);

/// The ids that there are, whatever the machine: those of the forms' own tables.
class KnownIds {
 public:
  KnownIds() : rows_(forms::AllRows()) {}

  /// The sentence that says why a step can't be meant for anything, with the nearest ids.
  platform::Result<void> Check(const Step& step) const;

 private:
  const forms::ControlRow* Find(std::string_view id) const;
  bool Knows(Step::Kind kind, std::string_view id) const;
  std::vector<std::string_view> Candidates(const Step& step) const;

  std::vector<forms::ControlRow> rows_;
};

}  // namespace kestrune::cli
