#pragma once

#include <QPixmap>
#include <QWidget>
#include <cstddef>

#include "controls/controls.h"

namespace kestrune::face {
class Scale;
}

namespace kestrune::qt {

/// Shows what a graph remembers over a grid, on the same dark ground in every colour scheme. What
/// was drawn once stays in a picture, so that only what is new is drawn.
class GraphWidget : public QWidget {
 public:
  GraphWidget(const controls::Graph& graph, const face::Scale& scale, QWidget* parent);

  /// Says that the graph has changed.
  void Follow();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void DrawNewShapes();

  const controls::Graph& graph_;
  const face::Scale& scale_;
  QPixmap picture_;           ///< null where it is to be drawn anew
  std::size_t followed_ = 0;  ///< shapes that were asked to be shown
  std::size_t drawn_ = 0;     ///< shapes in the picture
};

}  // namespace kestrune::qt
