#include "cli/terminal_dialog.h"

#include "cli/control_text.h"
#include "platform/plain_text.h"

namespace kestrune::cli {

platform::Answer TerminalDialog::ShowMessage(std::string_view /*title*/, std::string_view text,
                                             platform::Buttons buttons) {
  out_ << "message: " << platform::PlainText(text) << '\n';
  return buttons == platform::Buttons::kOk ? platform::Answer::kOk : answer_;
}

void TerminalDialog::Notify(std::string_view sentence) {
  out_ << "note: " << platform::PlainText(sentence) << '\n';
}

}  // namespace kestrune::cli
