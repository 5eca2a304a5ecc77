#include "ui/qt/graph_widget.h"

#include <QPainter>

#include "ui/face/scale.h"
#include "ui/qt/to_qt.h"

namespace kestrune::qt {

namespace {

constexpr QColor kGround(0, 0, 0);
constexpr QColor kGridColour(56, 56, 56);

/// Draws shapes in twips with the painter's pixels.
class ShapePainter {
 public:
  ShapePainter(QPainter& painter, const face::Scale& scale) : painter_(painter), scale_(scale) {}

  void operator()(const controls::GraphLine& line) const {
    SetPen(line.colour, line.width);
    painter_.drawLine(At(line.x1, line.y1), At(line.x2, line.y2));
  }
  void operator()(const controls::GraphPoint& point) const {
    SetPen(point.colour, point.width);
    painter_.drawPoint(At(point.x, point.y));
  }

 private:
  QPoint At(int x, int y) const { return {scale_.ToPixels(x), scale_.ToPixels(y)}; }
  void SetPen(const std::string& colour, int width) const {
    painter_.setPen(QPen(QColor(ToQt(colour)), std::max(1, scale_.ToPixels(width))));
  }

  QPainter& painter_;
  const face::Scale& scale_;
};

void DrawGrid(QPainter& painter, const QSize& size, int step) {
  painter.setPen(kGridColour);
  for (int x = step; x < size.width(); x += step) painter.drawLine(x, 0, x, size.height());
  for (int y = size.height() - step; y > 0; y -= step) painter.drawLine(0, y, size.width(), y);
}

}  // namespace

GraphWidget::GraphWidget(const controls::Graph& graph, const face::Scale& scale, QWidget* parent)
    : QWidget(parent), graph_(graph), scale_(scale) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void GraphWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), kGround);
  DrawGrid(painter, size(), std::max(1, scale_.ToPixels(face::kGraphGrid)));
  const ShapePainter shapes(painter, scale_);
  for (const controls::GraphShape& shape : graph_.Shapes()) std::visit(shapes, shape);
}

}  // namespace kestrune::qt
