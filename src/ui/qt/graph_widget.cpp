#include "ui/qt/graph_widget.h"

#include <QPainter>
#include <algorithm>

#include "ui/face/scale.h"
#include "ui/qt/to_qt.h"

namespace kestrune::qt {

namespace {

constexpr QColor kGround(0, 0, 0);
constexpr QColor kGridColour(56, 56, 56);

QPoint At(const face::Scale& scale, int x, int y) { return {scale.ToPixels(x), scale.ToPixels(y)}; }

/// The pixels that a shape in twips takes, ends and width included.
class ShapeBounds {
 public:
  explicit ShapeBounds(const face::Scale& scale) : scale_(scale) {}

  QRect operator()(const controls::GraphLine& line) const {
    return Around(QRect(At(scale_, line.x1, line.y1), At(scale_, line.x2, line.y2)).normalized(),
                  line.width);
  }
  QRect operator()(const controls::GraphPoint& point) const {
    return Around(QRect(At(scale_, point.x, point.y), QSize(1, 1)), point.width);
  }

 private:
  QRect Around(const QRect& place, int width) const {
    const int room = scale_.ToPixels(width) + 1;
    return place.adjusted(-room, -room, room, room);
  }

  const face::Scale& scale_;
};

/// Draws shapes in twips with the painter's pixels.
class ShapePainter {
 public:
  ShapePainter(QPainter& painter, const face::Scale& scale) : painter_(painter), scale_(scale) {}

  void operator()(const controls::GraphLine& line) const {
    SetPen(line.colour, line.width);
    painter_.drawLine(At(scale_, line.x1, line.y1), At(scale_, line.x2, line.y2));
  }
  void operator()(const controls::GraphPoint& point) const {
    SetPen(point.colour, point.width);
    painter_.drawPoint(At(scale_, point.x, point.y));
  }

 private:
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

void GraphWidget::Follow() {
  const std::vector<controls::GraphShape>& shapes = graph_.Shapes();
  if (shapes.empty()) {
    picture_ = {};
    followed_ = 0;
    update();
  }
  for (; followed_ < shapes.size(); ++followed_) {
    update(std::visit(ShapeBounds(scale_), shapes[followed_]));
  }
}

void GraphWidget::DrawNewShapes() {
  const QSize size = (QSizeF(this->size()) * devicePixelRatioF()).toSize();
  const bool is_new = picture_.size() != size;
  if (is_new) {
    picture_ = QPixmap(size);
    picture_.setDevicePixelRatio(devicePixelRatioF());
    picture_.fill(kGround);
    drawn_ = 0;
  }
  QPainter painter(&picture_);
  if (is_new) DrawGrid(painter, this->size(), std::max(1, scale_.ToPixels(face::kGraphGrid)));
  const ShapePainter draw(painter, scale_);
  for (; drawn_ < graph_.Shapes().size(); ++drawn_) std::visit(draw, graph_.Shapes()[drawn_]);
}

void GraphWidget::paintEvent(QPaintEvent* /*event*/) {
  DrawNewShapes();
  QPainter(this).drawPixmap(0, 0, picture_);
}

}  // namespace kestrune::qt
