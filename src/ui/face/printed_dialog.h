#pragma once

#include "platform/windowless_dialog.h"

namespace kestrune::face {

/// Messages where nobody could press a button: they are printed on standard error, and the first
/// button counts.
class PrintedDialog : public platform::WindowlessDialog {
 public:
  platform::Answer ShowMessage(std::string_view title, std::string_view text,
                               platform::Buttons buttons) override;
  void Notify(std::string_view sentence) override;
};

}  // namespace kestrune::face
