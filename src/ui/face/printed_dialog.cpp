#include "ui/face/printed_dialog.h"

#include <cstdio>

#include "platform/plain_text.h"

namespace kestrune::face {

platform::Answer PrintedDialog::ShowMessage(std::string_view, std::string_view text,
                                            platform::Buttons) {
  std::fprintf(stderr, "message: %s\n", platform::PlainText(text).c_str());
  return platform::Answer::kOk;
}

void PrintedDialog::Notify(std::string_view sentence) {
  std::fprintf(stderr, "kestrune: %s\n", platform::PlainText(sentence).c_str());
}

}  // namespace kestrune::face
