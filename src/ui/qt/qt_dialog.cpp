#include "ui/qt/qt_dialog.h"

#include <QApplication>
#include <QMessageBox>

#include "ui/qt/to_qt.h"

namespace kestrune::qt {

platform::Answer QtDialog::ShowMessage(std::string_view title, std::string_view text,
                                       platform::Buttons buttons) {
  const bool asks = buttons == platform::Buttons::kOkCancel;
  QMessageBox box(asks ? QMessageBox::Question : QMessageBox::Information, ToQt(title), ToQt(text),
                  asks ? QMessageBox::Ok | QMessageBox::Cancel : QMessageBox::Ok,
                  QApplication::activeWindow());
  // File names in a message are shown as they are, whatever they look like.
  box.setTextFormat(Qt::PlainText);
  return box.exec() == QMessageBox::Ok ? platform::Answer::kOk : platform::Answer::kCancel;
}

void QtDialog::RunPendingEvents() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace kestrune::qt
