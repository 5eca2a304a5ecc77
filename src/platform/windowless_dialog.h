#pragma once

#include "platform/dialog_api.h"

namespace kestrune::platform {

/// Dialogs where there is no window: there are no events, a message is answered by its preset
/// button at once, and nothing is told. What a face can print or answer otherwise, it overrides.
class WindowlessDialog : public DialogApi {
 public:
  Answer Ask(std::string_view, std::string_view, const Question& question) override {
    return question.preset;
  }
  void Notify(std::string_view) override {}
  void RunPendingEvents() override {}
  void WaitWhile(const std::function<bool()>& goes_on) override {
    while (goes_on()) {
    }
  }
};

}  // namespace kestrune::platform
