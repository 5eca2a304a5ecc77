#pragma once

#include <functional>
#include <string>

#include "platform/dialog_api.h"

namespace kestrune::qt {

/// Messages as boxes over the active window, and notices wherever a face shows them; without one
/// they are printed on standard error. Needs a running QApplication.
class QtDialog : public platform::DialogApi {
 public:
  platform::Answer Ask(std::string_view title, std::string_view text,
                       const platform::Question& question) override;
  void Notify(std::string_view sentence) override;
  void RunPendingEvents() override;
  void WaitWhile(const std::function<bool()>& goes_on) override;

  /// Empty: they are printed.
  void ShowNoticesBy(std::function<void(const std::string&)> show) {
    show_notice_ = std::move(show);
  }

 private:
  std::function<void(const std::string&)> show_notice_;
};

}  // namespace kestrune::qt
