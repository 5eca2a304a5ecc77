#pragma once

#include <QWidget>

#include "controls/controls.h"

namespace kestrune::face {
class Scale;
}

namespace kestrune::qt {

/// Paints what a graph remembers over a grid, on the same dark ground in every colour scheme.
class GraphWidget : public QWidget {
 public:
  GraphWidget(const controls::Graph& graph, const face::Scale& scale, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const controls::Graph& graph_;
  const face::Scale& scale_;
};

}  // namespace kestrune::qt
