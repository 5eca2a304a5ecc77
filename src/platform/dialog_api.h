#pragma once

#include <string_view>

namespace kestrune::platform {

enum class Buttons { kOk, kOkCancel };
enum class Answer { kOk, kCancel };

/// What a face shows on behalf of the logic.
class DialogApi {
 public:
  virtual ~DialogApi() = default;

  /// Shows a message and waits for its answer. Timers go on meanwhile.
  virtual Answer ShowMessage(std::string_view title, std::string_view text, Buttons buttons) = 0;
  /// Lets pending window events run once.
  virtual void RunPendingEvents() = 0;
};

}  // namespace kestrune::platform
