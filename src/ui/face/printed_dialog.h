#pragma once

#include "platform/dialog_api.h"

namespace kestrune::face {

/// Messages where nobody could press a button: they are printed on standard error, and the first
/// button counts.
class PrintedDialog : public platform::DialogApi {
 public:
  platform::Answer ShowMessage(std::string_view title, std::string_view text,
                               platform::Buttons buttons) override;
  void RunPendingEvents() override {}
};

}  // namespace kestrune::face
