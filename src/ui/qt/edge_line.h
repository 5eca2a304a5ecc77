#pragma once

#include "ui/qt/label_widget.h"

namespace kestrune::controls {
class Control;
}

namespace kestrune::face {
class Context;
}

namespace kestrune::qt {

/// A line at the edge of the lower panel: it stands in the place of the label there and does its
/// work. Assistive technology is told when it speaks.
class EdgeLine : public LabelWidget {
 public:
  EdgeLine(controls::Control& edge, face::Context& context, QWidget* window);

  void Say(const QString& text, const QString& tip);
};

/// What has to be known, over two lines, which stays and which a keyboard finds.
class EdgeNotice : public EdgeLine {
 public:
  EdgeNotice(controls::Control& edge, face::Context& context, QWidget* window);
};

}  // namespace kestrune::qt
