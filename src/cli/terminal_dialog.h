#pragma once

#include <ostream>

#include "platform/windowless_dialog.h"

namespace kestrune::cli {

/// Prints messages and notes, and answers each message with the same button.
class TerminalDialog : public platform::WindowlessDialog {
 public:
  TerminalDialog(std::ostream& out, platform::Answer answer) : out_(out), answer_(answer) {}

  platform::Answer ShowMessage(std::string_view title, std::string_view text,
                               platform::Buttons buttons) override;
  void Notify(std::string_view sentence) override;

 private:
  std::ostream& out_;
  platform::Answer answer_;
};

}  // namespace kestrune::cli
