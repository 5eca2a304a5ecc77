#pragma once

#include <QPainter>
#include <QWidget>

namespace kestrune::qt {

/// A bar filled with the colour of what is selected.
class BarWidget : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter(this).fillRect(rect(), palette().color(QPalette::Highlight));
  }
};

}  // namespace kestrune::qt
