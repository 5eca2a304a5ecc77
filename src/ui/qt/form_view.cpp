#include "ui/qt/form_view.h"

#include <QCloseEvent>
#include <QMetaObject>

#include "ui/qt/face_context.h"
#include "ui/qt/tool_button.h"

namespace kestrune::qt {

namespace {

controls::Window& WindowOf(const forms::Form& form) {
  return dynamic_cast<controls::Window&>(*form.Controls().front());
}

}  // namespace

FormView::FormView(forms::Form& form, FaceContext& context, QWidget* owner)
    : QWidget(owner, Qt::Window),
      form_(form),
      context_(context),
      window_(WindowOf(form)),
      maker_(form, context, subscriptions_) {
  setObjectName(QString::fromStdString(window_.Id()));
  setMouseTracking(true);
  widgets_[&window_] = this;
  Build();
}

void FormView::FollowWindow() {
  subscriptions_.push_back(window_.Observe([this] { RedrawWindow(); }));
  RedrawWindow();
}

QWidget* FormView::WidgetOf(const controls::Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second;
}

void FormView::Build() {
  for (const auto& control : form_.Controls()) {
    if (control->Parent() != &window_ || control->Visible()) continue;
    auto* frame = dynamic_cast<controls::Frame*>(control.get());
    if (frame == nullptr) continue;
    subscriptions_.push_back(frame->Observe([this, frame] {
      if (frame->Visible() && WidgetOf(*frame) == nullptr) BuildUnder(*frame);
    }));
  }
  BuildUnder(window_);
}

void FormView::BuildUnder(const controls::Control& top) {
  for (const auto& control : form_.Controls()) {
    if (WidgetOf(*control) == nullptr && StandsIn(*control, top)) BuildOne(*control);
  }
  ChainTabOrder();
}

bool FormView::StandsIn(const controls::Control& control, const controls::Control& top) const {
  for (const controls::Control* each = &control; each != nullptr; each = each->Parent()) {
    if (each == &top) return true;
  }
  return false;
}

void FormView::BuildOne(controls::Control& control) {
  QWidget* parent = WidgetOf(*control.Parent());
  const bool waits = parent == this && !control.Visible() &&
                     dynamic_cast<const controls::Frame*>(&control) != nullptr;
  if (parent == nullptr || waits) return;
  if (QWidget* widget = maker_.Make(control, parent)) widgets_[&control] = widget;
}

void FormView::ChainTabOrder() {
  QWidget* before = nullptr;
  for (const auto& control : form_.Controls()) {
    QWidget* widget = WidgetOf(*control);
    if (widget == nullptr || widget->focusPolicy() == Qt::NoFocus) continue;
    if (before != nullptr) setTabOrder(before, widget);
    before = widget;
  }
}

void FormView::RedrawWindow() {
  setWindowTitle(QString::fromStdString(window_.Caption()));
  PlaceWindow();
  if (window_.Visible() == isVisible()) return;
  setAttribute(Qt::WA_ShowWithoutActivating, context_.Hovering());
  setVisible(window_.Visible());
}

void FormView::PlaceWindow() {
  if (isMaximized() && !window_.Maximised()) setWindowState(windowState() & ~Qt::WindowMaximized);
  const QRect bounds = context_.TheScale().ToPixels(window_.Bounds());
  if (bounds.topLeft() != QPoint(0, 0) && bounds.topLeft() != pos()) move(bounds.topLeft());
  setFixedSize(bounds.size());
}

void FormView::ReportPlaceLater() {
  if (report_pending_ || !isVisible()) return;
  report_pending_ = true;
  // The window system speaks of one change in several events, and is not to be answered within
  // them.
  QMetaObject::invokeMethod(
      this, [this] { ReportPlace(); }, Qt::QueuedConnection);
}

void FormView::ReportPlace() {
  report_pending_ = false;
  if (isMinimized()) return;
  const bool maximised = isMaximized();
  const controls::Rect bounds = maximised ? window_.Bounds() : PresentBounds();
  if (bounds == window_.Bounds() && maximised == window_.Maximised()) return;
  context_.Act([&] { window_.UseResized(bounds, maximised); });
}

controls::Rect FormView::PresentBounds() const {
  // Pixels are coarser than twips: what looks the same has not changed.
  const QRect shown(pos(), size());
  const QRect known = context_.TheScale().ToPixels(window_.Bounds());
  const controls::Rect present = context_.TheScale().ToTwips(shown);
  controls::Rect bounds = window_.Bounds();
  if (shown.x() != known.x()) bounds.left = present.left;
  if (shown.y() != known.y()) bounds.top = present.top;
  if (shown.width() != known.width()) bounds.width = present.width;
  if (shown.height() != known.height()) bounds.height = present.height;
  return bounds;
}

void FormView::closeEvent(QCloseEvent* event) {
  // Whether it closes is the form's decision; it then hides the window.
  event->ignore();
  context_.Act([this] { window_.UseClose(); });
}

void FormView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) ReportPlaceLater();
  if (event->type() == QEvent::ActivationChange && isActiveWindow() && window_.on_activate) {
    context_.Act(window_.on_activate);
  }
}

void FormView::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  ReportPlaceLater();
}

void FormView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  ReportPlaceLater();
}

void FormView::mouseMoveEvent(QMouseEvent* event) {
  QWidget::mouseMoveEvent(event);
  context_.Hover(window_);
}

}  // namespace kestrune::qt
