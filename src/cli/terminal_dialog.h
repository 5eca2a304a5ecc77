#pragma once

#include <ostream>

#include "platform/dialog_api.h"

namespace kestrune::cli {

/// Prints messages and answers each with the same button.
class TerminalDialog : public platform::DialogApi {
 public:
  TerminalDialog(std::ostream& out, platform::Answer answer) : out_(out), answer_(answer) {}

  platform::Answer ShowMessage(std::string_view title, std::string_view text,
                               platform::Buttons buttons) override;
  void RunPendingEvents() override {}

 private:
  std::ostream& out_;
  platform::Answer answer_;
};

}  // namespace kestrune::cli
