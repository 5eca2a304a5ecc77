#pragma once

#include <QWidget>
#include <unordered_map>
#include <vector>

#include "controls/controls.h"
#include "ui/forms/form.h"
#include "ui/qt/widget_maker.h"

namespace kestrune::qt {

class FaceContext;

/// One form as a window of the desktop.
///
/// Widgets are children of each other as their controls are. A frame that stands directly in the
/// window (a page, a help topic) is built with all that is in it when it is first shown. The tab
/// order is that of the form. The form must outlive the view.
class FormView : public QWidget {
 public:
  FormView(forms::Form& form, FaceContext& context, QWidget* owner);

  /// Appears where and whenever the form's window does, from now on.
  void FollowWindow();

  const controls::Window& TheWindow() const { return window_; }
  /// The widget of a control; null while it isn't built.
  QWidget* WidgetOf(const controls::Control& control) const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void Build();
  void BuildUnder(const controls::Control& top);
  void BuildOne(controls::Control& control);
  bool StandsIn(const controls::Control& control, const controls::Control& top) const;
  void ChainTabOrder();
  void RedrawWindow();
  void PlaceWindow();
  void ReportPlace();
  controls::Rect PresentBounds() const;
  void ReportPlaceLater();

  forms::Form& form_;
  FaceContext& context_;
  controls::Window& window_;
  std::unordered_map<const controls::Control*, QWidget*> widgets_;
  std::vector<controls::Subscription> subscriptions_;
  WidgetMaker maker_;
  bool report_pending_ = false;
};

}  // namespace kestrune::qt
