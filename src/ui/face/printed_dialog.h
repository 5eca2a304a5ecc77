#pragma once

#include "platform/windowless_dialog.h"

namespace kestrune::face {

/// Messages where nobody could press a button: they are printed on standard error, and the preset
/// button counts, or the last one where the time for an answer is limited.
class PrintedDialog : public platform::WindowlessDialog {
 public:
  platform::Answer Ask(std::string_view title, std::string_view text,
                       const platform::Question& question) override;
  void Notify(std::string_view sentence) override;
};

}  // namespace kestrune::face
