#pragma once

#include <QComboBox>

#include "controls/controls.h"

namespace kestrune::qt {

class FaceContext;

/// A combo that shows its control's text whether or not that is an item, and hands choices and
/// finished typing to it. Typing ends with Enter or with leaving; Escape takes it back. A typed
/// text that is an item, whatever its case, is chosen.
class ComboWidget : public QComboBox {
 public:
  ComboWidget(controls::ComboBox& control, FaceContext& context, QWidget* parent);

  /// Shows what the control holds; an unfinished text is kept while the control's own text stays.
  void Redraw();
  /// Whether some of the text is not shown.
  bool IsCut() const;

  void showPopup() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Choose(int position);
  void FinishTyping();
  void ShowControlText();
  void RedrawItems();
  int TextWidth() const;

  controls::ComboBox& control_;
  FaceContext& context_;
  QString drawn_text_;
};

}  // namespace kestrune::qt
