#include "ui/qt/input_watcher.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSlider>
#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

#include "controls/control.h"
#include "ui/face/context.h"

namespace kestrune::qt {

namespace {

bool WheelChangesValue(const QWidget& widget) {
  return qobject_cast<const QComboBox*>(&widget) != nullptr ||
         qobject_cast<const QSlider*>(&widget) != nullptr;
}

/// Shows a tip as the text that it is: the toolkit would take one that looks like markup for
/// markup.
void ShowTip(QWidget* widget, const QHelpEvent& event) {
  const QString tip = widget->toolTip();
  const QString shown = Qt::mightBeRichText(tip) ? "<qt>" + tip.toHtmlEscaped() + "</qt>" : tip;
  QToolTip::showText(event.globalPos(), shown, widget);
}

}  // namespace

InputWatcher::InputWatcher(controls::Control& control, face::Context& context, QWidget* widget)
    : QObject(widget), control_(control), context_(context), widget_(widget) {
  Watch(widget);
}

void InputWatcher::Watch(QWidget* part) {
  part->setMouseTracking(true);
  part->installEventFilter(this);
}

void InputWatcher::MakeLink() {
  is_link_ = true;
  widget_->setFocusPolicy(Qt::StrongFocus);
  widget_->setCursor(Qt::PointingHandCursor);
}

bool InputWatcher::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseMove:
      return MouseMoves(event);
    case QEvent::FocusIn: {
      // Coming back to the window is no act on the control.
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      context_.Focused(control_, reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                                     reason == Qt::ShortcutFocusReason);
      return false;
    }
    case QEvent::ToolTip:
      if (widget_->toolTip().isEmpty()) return false;
      ShowTip(widget_, *static_cast<QHelpEvent*>(event));
      return true;
    case QEvent::Wheel:
      // Values are written at once, so a wheel turned in passing must not change one.
      if (!WheelChangesValue(*widget_)) return false;
      event->ignore();
      return true;
    default:
      if (move_ && ArrowMoves(event)) return true;
      if (!is_link_ || !Presses(event)) return false;
      context_.Press(control_);
      return true;
  }
}

bool InputWatcher::MouseMoves(QEvent* event) {
  context_.Hover(control_);
  // Only the innermost control is hovered over; a drag still reaches the widget.
  return static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton;
}

bool InputWatcher::ArrowMoves(QEvent* event) const {
  if (event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  const bool forwards = key == Qt::Key_Right || key == Qt::Key_Down;
  if (!forwards && key != Qt::Key_Left && key != Qt::Key_Up) return false;
  move_(forwards);
  return true;
}

bool InputWatcher::Presses(QEvent* event) const {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
  }
  if (event->type() != QEvent::MouseButtonRelease) return false;
  const auto* mouse = static_cast<QMouseEvent*>(event);
  return mouse->button() == Qt::LeftButton && widget_->rect().contains(mouse->position().toPoint());
}

}  // namespace kestrune::qt
