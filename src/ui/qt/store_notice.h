#pragma once

#include "ui/qt/label_widget.h"

namespace kestrune::controls {
class Control;
}

namespace kestrune::face {
class Context;
}

namespace kestrune::qt {

/// A sentence about a store that failed, at the edge of the lower panel. It stands in the place of
/// the label there and does its work, and a keyboard and a screen reader find it.
class StoreNotice : public LabelWidget {
 public:
  StoreNotice(const QString& sentence, controls::Control& edge, face::Context& context,
              QWidget* window);
};

}  // namespace kestrune::qt
