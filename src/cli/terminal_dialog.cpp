#include "cli/terminal_dialog.h"

#include "cli/control_text.h"
#include "platform/plain_text.h"

namespace kestrune::cli {

platform::Answer TerminalDialog::Ask(std::string_view /*title*/, std::string_view text,
                                     const platform::Question& question) {
  out_ << "message: " << platform::PlainText(text) << '\n';
  if (question.buttons == platform::Buttons::kOk) return platform::Answer::kOk;
  return answer_.value_or(question.preset);
}

void TerminalDialog::Notify(std::string_view sentence) {
  out_ << "note: " << platform::PlainText(sentence) << '\n';
}

}  // namespace kestrune::cli
