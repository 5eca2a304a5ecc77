#pragma once

class QPainter;
class QWidget;

namespace kestrune::qt {

/// Marks a widget that has the focus, for widgets that the style draws no mark on.
void DrawFocusMark(QPainter& painter, const QWidget& widget);

}  // namespace kestrune::qt
