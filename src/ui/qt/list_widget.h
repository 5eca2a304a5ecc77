#pragma once

#include <QListWidget>

#include "controls/controls.h"

namespace kestrune::qt {

class FaceContext;

/// A list that hands the user's choice of a line to its control, also of the line that was chosen
/// before.
class ListWidget : public QListWidget {
 public:
  ListWidget(controls::ListBox& control, FaceContext& context, QWidget* parent);

  void Redraw();

 protected:
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void SelectionChanged();
  void Choose(int row);
  void RedrawItems();

  controls::ListBox& control_;
  FaceContext& context_;
  int row_before_press_ = -1;
};

}  // namespace kestrune::qt
