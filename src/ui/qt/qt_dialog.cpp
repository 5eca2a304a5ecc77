#include "ui/qt/qt_dialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <chrono>

#include "ui/face/printed_dialog.h"
#include "ui/qt/to_qt.h"

namespace kestrune::qt {

namespace {

/// Drops what a person does in any window, for as long as it lives.
class InputDropper : public QObject {
 public:
  InputDropper() { qApp->installEventFilter(this); }

  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Close:
        // One that is accepted closes the window, whoever has seen it.
        event->ignore();
        return true;
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::MouseMove:
      case QEvent::Wheel:
      case QEvent::KeyPress:
      case QEvent::KeyRelease:
      case QEvent::Shortcut:
      case QEvent::ShortcutOverride:
      case QEvent::InputMethod:
      case QEvent::ContextMenu:
      case QEvent::TouchBegin:
      case QEvent::TouchUpdate:
      case QEvent::TouchEnd:
      case QEvent::TouchCancel:
      case QEvent::TabletPress:
      case QEvent::TabletMove:
      case QEvent::TabletRelease:
      case QEvent::NativeGesture:
      case QEvent::DragEnter:
      case QEvent::DragMove:
      case QEvent::Drop:
        return true;
      default:
        return false;
    }
  }
};

}  // namespace

platform::Answer QtDialog::Ask(std::string_view title, std::string_view text,
                               const platform::Question& question) {
  const bool asks = question.buttons == platform::Buttons::kOkCancel;
  QMessageBox box(asks ? QMessageBox::Question : QMessageBox::Information, ToQt(title), ToQt(text),
                  asks ? QMessageBox::Ok | QMessageBox::Cancel : QMessageBox::Ok,
                  QApplication::activeWindow());
  // File names in a message are shown as they are, whatever they look like.
  box.setTextFormat(Qt::PlainText);
  const bool presets_cancel = asks && question.preset == platform::Answer::kCancel;
  box.setDefaultButton(presets_cancel ? QMessageBox::Cancel : QMessageBox::Ok);
  if (question.seconds > 0) {
    QAbstractButton* last = box.button(asks ? QMessageBox::Cancel : QMessageBox::Ok);
    QTimer::singleShot(std::chrono::seconds(question.seconds), last, [last] { last->click(); });
  }
  return box.exec() == QMessageBox::Ok ? platform::Answer::kOk : platform::Answer::kCancel;
}

void QtDialog::Notify(std::string_view sentence) {
  if (show_notice_) {
    show_notice_(std::string(sentence));
  } else {
    face::PrintedDialog().Notify(sentence);
  }
}

void QtDialog::RunPendingEvents() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtDialog::WaitWhile(const std::function<bool()>& goes_on) {
  InputDropper dropper;
  while (goes_on()) QCoreApplication::processEvents();
  // What was done in the meantime has not arrived yet.
  QCoreApplication::processEvents();
}

}  // namespace kestrune::qt
