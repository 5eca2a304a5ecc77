#pragma once

#include <QObject>
#include <functional>
#include <utility>

class QWidget;

namespace kestrune::controls {
class Control;
}

namespace kestrune::face {
class Context;
}

namespace kestrune::qt {

/// Watches one widget for what is the same in all of them: the mouse moving over it, the keyboard
/// focus, and the wheel, which changes no value. It belongs to the widget.
class InputWatcher : public QObject {
 public:
  InputWatcher(controls::Control& control, face::Context& context, QWidget* widget);

  /// Watches a part of the widget too.
  void Watch(QWidget* part);
  /// Makes Enter, Space and clicks press the control, and the widget reachable by keyboard.
  void MakeLink();
  /// Calls `move` for each arrow key, which then does nothing else: forwards for Right and Down.
  void OnArrows(std::function<void(bool forwards)> move) { move_ = std::move(move); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool MouseMoves(QEvent* event);
  bool Presses(QEvent* event) const;
  bool ArrowMoves(QEvent* event) const;

  controls::Control& control_;
  face::Context& context_;
  QWidget* widget_;
  bool is_link_ = false;
  std::function<void(bool)> move_;
};

}  // namespace kestrune::qt
