#pragma once

#include <QKeyEvent>
#include <QListWidget>

#include "controls/controls.h"

namespace kestrune::face {
class Context;
}

namespace kestrune::qt {

/// A list that hands the user's choice of a line to its control, also of the line that was chosen
/// before.
class ListWidget : public QListWidget {
 public:
  ListWidget(controls::ListBox& control, face::Context& context, QWidget* parent);

  void Redraw();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void SelectionChanged();
  void Choose(int row);
  void RedrawItems();

  controls::ListBox& control_;
  face::Context& context_;
  int row_before_press_ = -1;
  int edition_ = 0;  ///< of the lines that are drawn
};

}  // namespace kestrune::qt
