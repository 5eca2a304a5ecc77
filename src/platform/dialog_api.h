#pragma once

#include <functional>
#include <string_view>

namespace kestrune::platform {

enum class Buttons { kOk, kOkCancel };
enum class Answer { kOk, kCancel };

/// A message and how it can be answered.
struct Question {
  Buttons buttons = Buttons::kOk;
  Answer preset = Answer::kOk;  ///< what Enter presses, and what counts where nobody presses
  int seconds = 0;  ///< after so many the last button counts as pressed; 0: it waits for ever
};

/// What a face shows on behalf of the logic.
class DialogApi {
 public:
  virtual ~DialogApi() = default;

  /// Shows a message and waits for its answer. Timers go on meanwhile.
  virtual Answer Ask(std::string_view title, std::string_view text, const Question& question) = 0;
  Answer ShowMessage(std::string_view title, std::string_view text, Buttons buttons) {
    return Ask(title, text, {.buttons = buttons});
  }
  /// Tells a person something and waits for nobody.
  virtual void Notify(std::string_view sentence) = 0;
  /// Lets pending window events run once.
  virtual void RunPendingEvents() = 0;
  /// Asks `goes_on` again and again until it says no. Windows are drawn and timers go on meanwhile;
  /// what a person does is dropped. `goes_on` itself waits a little, some 20 ms, before it answers.
  virtual void WaitWhile(const std::function<bool()>& goes_on) = 0;
};

}  // namespace kestrune::platform
