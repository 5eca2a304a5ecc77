#include "ui/qt/focus_mark.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QWidget>

namespace kestrune::qt {

void DrawFocusMark(QPainter& painter, const QWidget& widget) {
  if (!widget.hasFocus()) return;
  QStyleOptionFocusRect option;
  option.initFrom(&widget);
  option.state |= QStyle::State_KeyboardFocusChange;
  widget.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &widget);
}

}  // namespace kestrune::qt
