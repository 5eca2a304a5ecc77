#pragma once

#include "platform/dialog_api.h"

namespace kestrune::platform {

/// Dialogs where there is no window: there are no events, a message is answered by its first button
/// at once, and nothing is told. What a face can print or answer otherwise, it overrides.
class WindowlessDialog : public DialogApi {
 public:
  Answer ShowMessage(std::string_view, std::string_view, Buttons) override { return Answer::kOk; }
  void Notify(std::string_view) override {}
  void RunPendingEvents() override {}
  void WaitWhile(const std::function<bool()>& goes_on) override {
    while (goes_on()) {
    }
  }
};

}  // namespace kestrune::platform
