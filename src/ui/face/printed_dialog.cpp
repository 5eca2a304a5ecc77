#include "ui/face/printed_dialog.h"

#include <cstdio>

#include "platform/plain_text.h"

namespace kestrune::face {

platform::Answer PrintedDialog::Ask(std::string_view, std::string_view text,
                                    const platform::Question& question) {
  std::fprintf(stderr, "message: %s\n", platform::PlainText(text).c_str());
  const bool times_out = question.seconds > 0 && question.buttons == platform::Buttons::kOkCancel;
  return times_out ? platform::Answer::kCancel : question.preset;
}

void PrintedDialog::Notify(std::string_view sentence) {
  std::fprintf(stderr, "kestrune: %s\n", platform::PlainText(sentence).c_str());
}

}  // namespace kestrune::face
