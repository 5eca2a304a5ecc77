#pragma once

#include <unistd.h>

#include <QEvent>
#include <QObject>
#include <QTimer>
#include <QWidget>

namespace kestrune::bench {

/// Ends the process, without the toolkit's own farewell, as soon as a window has been painted for
/// the first time with everything in it.
class EndAfterFirstPaint : public QObject {
 public:
  explicit EndAfterFirstPaint(QWidget& window) { window.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    // What stands in the window is painted before the next event is dealt with.
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, [] { _exit(0); });
    return QObject::eventFilter(watched, event);
  }
};

}  // namespace kestrune::bench
