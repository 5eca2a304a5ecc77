#include "ui/qt/form_view.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMetaObject>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QWindow>

#include "ui/face/context.h"
#include "ui/face/placement.h"
#include "ui/qt/label_widget.h"
#include "ui/qt/to_qt.h"

namespace kestrune::qt {

namespace {

controls::Window& WindowOf(const forms::Form& form) {
  return dynamic_cast<controls::Window&>(*form.Controls().front());
}

/// The toolkit abbreviates the names of some keys.
QKeySequence KeysOf(const controls::Shortcut& shortcut) {
  return QKeySequence::fromString(ToQt(shortcut.keys).replace("Page", "Pg"),
                                  QKeySequence::PortableText);
}

}  // namespace

FormView::FormView(forms::Form& form, face::Context& context, QWidget* owner)
    : QScrollArea(owner),
      form_(form),
      context_(context),
      window_(WindowOf(form)),
      maker_(form, context, subscriptions_),
      builder_(
          form, [this](controls::Control& control) { MakeWidget(control); },
          [this] {
            ChainTabOrder();
            TieLabels();
          }) {
  setObjectName(ToQt(window_.Id()));
  setWindowFlags(Qt::Window);
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidget(new QWidget);
  for (QWidget* each : {static_cast<QWidget*>(this), viewport(), Content()}) {
    each->setMouseTracking(true);
  }
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now != nullptr && Content()->isAncestorOf(now)) ensureWidgetVisible(now);
  });
  if (window_.Modal()) setWindowModality(Qt::ApplicationModal);
  widgets_[&window_] = this;
  ConnectShortcuts();
  builder_.Start();
}

void FormView::FollowWindow() {
  subscriptions_.push_back(window_.Observe([this] { RedrawWindow(); }));
  RedrawWindow();
}

QWidget* FormView::WidgetOf(const controls::Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second;
}

const controls::Control* FormView::ControlOf(const QWidget* widget) const {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    for (const auto& [control, made] : widgets_) {
      if (made == widget) return control;
    }
  }
  return nullptr;
}

void FormView::MakeWidget(controls::Control& control) {
  QWidget* parent = control.Parent() == &window_ ? Content() : WidgetOf(*control.Parent());
  QWidget* widget = maker_.Make(control, parent);
  widgets_[&control] = widget;
  auto* button = qobject_cast<QPushButton*>(widget);
  if (button != nullptr && &control == window_.DefaultKey()) button->setDefault(true);
}

void FormView::ChainTabOrder() {
  QWidget* before = nullptr;
  for (const auto& control : form_.Controls()) {
    QWidget* widget = WidgetOf(*control);
    if (widget == nullptr || !face::TakesFocus(*control)) continue;
    if (before != nullptr) setTabOrder(before, widget);
    before = widget;
  }
}

void FormView::TieLabels() {
  for (const auto& control : form_.Controls()) {
    const auto* label = dynamic_cast<const controls::Label*>(control.get());
    if (label == nullptr || label->Names() == nullptr) continue;
    auto* widget = dynamic_cast<LabelWidget*>(WidgetOf(*label));
    if (widget != nullptr) widget->setBuddy(WidgetOf(*label->Names()));
  }
}

void FormView::ConnectShortcuts() {
  for (const controls::Shortcut& shortcut : window_.Shortcuts()) {
    auto* keys = new QShortcut(KeysOf(shortcut), this);
    connect(keys, &QShortcut::activated, this, [this, &shortcut] { context_.Use(shortcut); });
  }
}

void FormView::RedrawWindow() {
  setWindowTitle(ToQt(context_.TitleOf(window_)));
  setWindowOpacity(window_.Opacity() / 255.0);
  // A place that the user is just changing must stay, whatever else is drawn anew.
  if (window_.Bounds() != placed_ || window_.Maximised() != isMaximized()) PlaceWindow();
  if (window_.Visible() == isVisible()) return;
  setAttribute(Qt::WA_ShowWithoutActivating, context_.Hovering());
  setVisible(window_.Visible());
}

void FormView::PlaceWindow() {
  placed_ = window_.Bounds();
  if (isMaximized() && !window_.Maximised()) setWindowState(windowState() & ~Qt::WindowMaximized);
  const face::PixelRect content = context_.TheScale().ToPixels(window_.Bounds());
  Content()->setFixedSize(content.width, content.height);
  shown_ = face::Fitted(content, Room(), style()->pixelMetric(QStyle::PM_ScrollBarExtent));
  if (face::StandsBesideOwner(window_)) shown_ = BesideOwner(shown_);
  const QRect place = ToQt(shown_);
  if (face::HasPlace(shown_) && place.topLeft() != pos()) move(place.topLeft());
  if (!window_.Resizable()) {
    setFixedSize(place.size());
  } else if (!isMaximized()) {
    resize(place.size());
  }
}

face::PixelRect FormView::Room() const {
  const QMargins frame = windowHandle() != nullptr ? windowHandle()->frameMargins() : QMargins();
  return FromQt(screen()->availableGeometry().marginsRemoved(frame));
}

face::PixelRect FormView::BesideOwner(const face::PixelRect& window) const {
  const QWidget* owner = parentWidget();
  if (owner == nullptr) return window;
  // The frame of a window that has not been shown is that of its owner.
  const QSize frame = owner->frameSize() - owner->size();
  const face::PixelRect place =
      face::Beside(FromQt(owner->frameGeometry()),
                   {0, 0, window.width + frame.width(), window.height + frame.height()},
                   FromQt(owner->screen()->availableGeometry()));
  return {place.left, place.top, window.width, window.height};
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
  const controls::Rect& known = window_.Bounds();
  const face::PixelRect seen = {x(), y(), width(), height()};
  const controls::Rect bounds = maximised ? known : context_.TheScale().Moved(known, shown_, seen);
  if (bounds == known && maximised == window_.Maximised()) return;
  context_.Act(window_, [&] {
    window_.UseResized(bounds, maximised);
    return true;
  });
  PlaceWindow();
}

void FormView::showEvent(QShowEvent* event) {
  QScrollArea::showEvent(event);
  // Only now does the desktop say how large its frame is.
  QMetaObject::invokeMethod(
      this, [this] { PlaceWindow(); }, Qt::QueuedConnection);
}

void FormView::closeEvent(QCloseEvent* event) {
  // Whether it closes is the form's decision; it then hides the window.
  event->ignore();
  context_.Act(window_, [this] {
    window_.UseClose();
    return true;
  });
}

void FormView::changeEvent(QEvent* event) {
  QScrollArea::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) ReportPlaceLater();
  if (event->type() == QEvent::ActivationChange && isActiveWindow() && window_.on_activate) {
    context_.Act(window_, [this] {
      window_.on_activate();
      return true;
    });
  }
}

controls::Control* FormView::DefaultKey() const {
  const auto* box = dynamic_cast<const controls::TextBox*>(ControlOf(focusWidget()));
  return box != nullptr && box->DefaultKey() != nullptr ? box->DefaultKey() : window_.DefaultKey();
}

void FormView::keyPressEvent(QKeyEvent* event) {
  const bool is_enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  controls::Control* pressed = is_enter                         ? DefaultKey()
                               : event->key() == Qt::Key_Escape ? window_.CancelKey()
                                                                : nullptr;
  if (pressed == nullptr) {
    QScrollArea::keyPressEvent(event);
  } else {
    context_.Press(*pressed);
  }
}

void FormView::moveEvent(QMoveEvent* event) {
  QScrollArea::moveEvent(event);
  ReportPlaceLater();
}

void FormView::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  ReportPlaceLater();
}

void FormView::mouseMoveEvent(QMouseEvent* event) {
  QScrollArea::mouseMoveEvent(event);
  context_.Hover(window_);
}

}  // namespace kestrune::qt
