#pragma once

#include "platform/dialog_api.h"

namespace kestrune::qt {

/// Messages as boxes over the active window. Needs a running QApplication.
class QtDialog : public platform::DialogApi {
 public:
  platform::Answer ShowMessage(std::string_view title, std::string_view text,
                               platform::Buttons buttons) override;
  void RunPendingEvents() override;
};

}  // namespace kestrune::qt
