#pragma once

#include <QTimer>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "controls/controls.h"
#include "platform/files_api.h"
#include "ui/face/change_log.h"
#include "ui/face/context.h"
#include "ui/face/failure_notice.h"
#include "ui/forms/program.h"
#include "ui/qt/edge_line.h"
#include "ui/qt/form_view.h"
#include "ui/qt/qt_dialog.h"
#include "ui/qt/timer_driver.h"

namespace kestrune::qt {

/// What a face can tell beyond what the program itself shows.
struct FaceOptions {
  face::StoreFailure store_failure = {};
  std::string machine_title = {};      ///< empty for the computer that the program runs on
  face::ChangeLog* changes = nullptr;  ///< of the program's registry; it outlives the face
  QtDialog* dialog = nullptr;          ///< whose notices the face shows; it outlives the face
};

/// A started program on the desktop: a window for each form that is visible, the clock of its
/// timers, the focus, and what there is to say about the store. Needs a QApplication; when the
/// program ends, so does the application's event loop. The program must outlive it.
class Face {
 public:
  Face(forms::Program& program, platform::FilesApi& files, FaceOptions options = {});
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
  controls::Control& Edge() const;
  void AfterAct();
  /// Puts a sentence at the edge of the lower panel, behind those that were put there before.
  void Notify(const std::string& sentence);
  /// Puts a sentence behind them in the place of the last one that this put there.
  void NotifyInPassing(const std::string& sentence);
  void SayNotice(const QString& text);
  /// Says for some seconds what an act changed, unless there is a notice.
  void SayChange(const face::ChangeNote& note);

  forms::Program& program_;
  face::FailureNotice failure_;
  face::Context context_;
  TimerDriver timers_;
  // Views before subscriptions: the latter end first.
  std::unique_ptr<FormView> main_view_;
  std::unordered_map<const forms::Form*, FormView*> views_;
  std::vector<controls::Subscription> subscriptions_;
  face::ChangeLog* changes_;
  QtDialog* dialog_;
  EdgeNotice* notice_ = nullptr;
  QString lasting_notice_;
  EdgeLine* change_line_ = nullptr;
  QTimer change_is_new_;
};

}  // namespace kestrune::qt
