#pragma once

#include <optional>
#include <ostream>

#include "platform/windowless_dialog.h"

namespace kestrune::cli {

/// Prints messages and notes, and answers each message with the same button, or with its preset one
/// where none is given.
class TerminalDialog : public platform::WindowlessDialog {
 public:
  TerminalDialog(std::ostream& out, std::optional<platform::Answer> answer)
      : out_(out), answer_(answer) {}

  platform::Answer Ask(std::string_view title, std::string_view text,
                       const platform::Question& question) override;
  void Notify(std::string_view sentence) override;

 private:
  std::ostream& out_;
  std::optional<platform::Answer> answer_;
};

}  // namespace kestrune::cli
