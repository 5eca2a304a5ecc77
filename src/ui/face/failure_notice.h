#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "controls/control.h"

namespace kestrune::face {

/// Tells whether something could not be read or kept, in one sentence; nothing while all is well.
using StoreFailure = std::function<std::optional<std::string>()>;

/// Sees to it that a failure of the store is said once.
class FailureNotice {
 public:
  explicit FailureNotice(StoreFailure store_failure) : store_failure_(std::move(store_failure)) {}

  /// The sentence to say now; nothing while all is well, and once it has been said.
  std::optional<std::string> Next();

 private:
  StoreFailure store_failure_;  ///< empty once it has been said
};

/// Says that a file is missing which the texts of the window come from. There are none then, so it
/// says so in English.
std::string MissingFileSentence(const std::string& file);

/// Where the sentence stands: over the edge of the lower panel and the blank space around it, which
/// is room for two lines. In twips, as the edge's own place.
controls::Rect NoticeBounds(const controls::Rect& edge);

}  // namespace kestrune::face
