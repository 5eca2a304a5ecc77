#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "controls/controls.h"
#include "platform/files_api.h"
#include "ui/face/context.h"
#include "ui/face/failure_notice.h"
#include "ui/forms/program.h"
#include "ui/qt/form_view.h"
#include "ui/qt/timer_driver.h"

namespace kestrune::qt {

/// A started program on the desktop: a window for each form that is visible, the clock of its
/// timers, the focus, and what there is to say about the store. Needs a QApplication; when the
/// program ends, so does the application's event loop. The program must outlive it.
class Face {
 public:
  Face(forms::Program& program, platform::FilesApi& files, face::StoreFailure store_failure = {});
  ~Face();
  Face(const Face&) = delete;
  Face& operator=(const Face&) = delete;

  /// The window of a form; null while it has not been shown.
  FormView* ViewOf(const forms::Form& form) const;

 private:
  void ShowWhenVisible(forms::Form& form);
  void Show(forms::Form& form);
  QWidget* OwnerOf(const controls::Window& window) const;
  void TieFocus();
  void AfterAct();

  forms::Program& program_;
  face::FailureNotice failure_;
  face::Context context_;
  TimerDriver timers_;
  // Views before subscriptions: the latter end first.
  std::unique_ptr<FormView> main_view_;
  std::unordered_map<const forms::Form*, FormView*> views_;
  std::vector<controls::Subscription> subscriptions_;
};

}  // namespace kestrune::qt
