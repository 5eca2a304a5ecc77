#pragma once

#include <QPainter>
#include <QScrollBar>

#include "ui/qt/focus_mark.h"

namespace kestrune::qt {

/// A scroll bar that the keyboard reaches, and that shows it.
class ScrollBarWidget : public QScrollBar {
 public:
  explicit ScrollBarWidget(QWidget* parent) : QScrollBar(parent) {
    setFocusPolicy(Qt::StrongFocus);
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    QScrollBar::paintEvent(event);
    QPainter painter(this);
    DrawFocusMark(painter, *this);
  }
};

}  // namespace kestrune::qt
