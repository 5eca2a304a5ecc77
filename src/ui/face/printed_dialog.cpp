#include "ui/face/printed_dialog.h"

#include <cstdio>

namespace kestrune::face {

platform::Answer PrintedDialog::ShowMessage(std::string_view, std::string_view text,
                                            platform::Buttons) {
  std::fprintf(stderr, "message: %.*s\n", static_cast<int>(text.size()), text.data());
  return platform::Answer::kOk;
}

}  // namespace kestrune::face
