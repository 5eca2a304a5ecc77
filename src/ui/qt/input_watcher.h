#pragma once

#include <QObject>

class QWidget;

namespace kestrune::controls {
class Control;
}

namespace kestrune::qt {

class FaceContext;

/// Watches one widget for what is the same in all of them: the mouse moving over it, the keyboard
/// focus, and a wheel turned by accident. It belongs to the widget.
class InputWatcher : public QObject {
 public:
  InputWatcher(controls::Control& control, FaceContext& context, QWidget* widget);

  /// Watches a part of the widget too.
  void Watch(QWidget* part);
  /// Makes Enter, Space and clicks press the control, and the widget reachable by keyboard.
  void MakeLink();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool MouseMoves(QEvent* event);
  bool Presses(QEvent* event) const;

  controls::Control& control_;
  FaceContext& context_;
  QWidget* widget_;
  bool is_link_ = false;
};

}  // namespace kestrune::qt
