#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "controls/controls.h"
#include "platform/files_api.h"
#include "ui/forms/program.h"
#include "ui/qt/face_context.h"
#include "ui/qt/form_view.h"
#include "ui/qt/timer_driver.h"

namespace kestrune::qt {

class StoreNotice;

/// Tells whether something could not be read or kept, in one sentence; nothing while all is well.
using StoreFailure = std::function<std::optional<std::string>()>;

/// A started program on the desktop: a window for each form that is visible, the clock of its
/// timers, and what there is to say about the store. Needs a QApplication; when the program ends,
/// so does the application's event loop. The program must outlive it.
class Face {
 public:
  Face(forms::Program& program, platform::FilesApi& files, StoreFailure store_failure = {});
  ~Face();
  Face(const Face&) = delete;
  Face& operator=(const Face&) = delete;

  /// The window of a form; null while it has not been shown.
  FormView* ViewOf(const forms::Form& form) const;

 private:
  void ShowForm(forms::Form& form, FormView* owner);
  void AfterAct();

  forms::Program& program_;
  StoreFailure store_failure_;
  FaceContext context_;
  TimerDriver timers_;
  // Views before subscriptions: the latter end first.
  std::unique_ptr<FormView> main_view_;
  std::unordered_map<const forms::Form*, FormView*> views_;
  StoreNotice* store_notice_ = nullptr;
  std::vector<controls::Subscription> subscriptions_;
};

}  // namespace kestrune::qt
