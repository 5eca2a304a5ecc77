#pragma once

#include <QScrollArea>
#include <unordered_map>
#include <vector>

#include "controls/controls.h"
#include "ui/face/builder.h"
#include "ui/face/scale.h"
#include "ui/forms/form.h"
#include "ui/qt/widget_maker.h"

namespace kestrune::face {
class Context;
}

namespace kestrune::qt {

/// One form as a window of the desktop. Widgets are children of each other as their controls are,
/// and are made when face::Builder says so. A window larger than the screen scrolls. The form must
/// outlive the view.
class FormView : public QScrollArea {
 public:
  FormView(forms::Form& form, face::Context& context, QWidget* owner);

  /// Appears where and whenever the form's window does, from now on.
  void FollowWindow();

  const controls::Window& TheWindow() const { return window_; }
  /// What the widgets of the window's own parts stand in.
  QWidget* Content() const { return widget(); }
  /// The widget of a control; null while it isn't built.
  QWidget* WidgetOf(const controls::Control& control) const;
  /// The control whose widget this is or stands around it; null for none of this form.
  const controls::Control* ControlOf(const QWidget* widget) const;

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void MakeWidget(controls::Control& control);
  void ChainTabOrder();
  /// Tells the toolkit which label names which widget.
  void TieLabels();
  void ConnectShortcuts();
  /// What Enter presses where the focus is.
  controls::Control* DefaultKey() const;
  void RedrawWindow();
  void PlaceWindow();
  /// The screen's work area without the desktop's own frame around this window.
  face::PixelRect Room() const;
  face::PixelRect BesideOwner(const face::PixelRect& window) const;
  void ReportPlace();
  void ReportPlaceLater();

  forms::Form& form_;
  face::Context& context_;
  controls::Window& window_;
  std::unordered_map<const controls::Control*, QWidget*> widgets_;
  std::vector<controls::Subscription> subscriptions_;
  WidgetMaker maker_;
  face::Builder builder_;
  controls::Rect placed_;  ///< where the form last put the window
  face::PixelRect shown_;  ///< where the face then put it
  bool report_pending_ = false;
};

}  // namespace kestrune::qt
