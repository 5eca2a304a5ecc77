#pragma once

#include <QComboBox>

#include "controls/controls.h"

namespace kestrune::face {
class Context;
}

namespace kestrune::qt {

/// A combo that shows its control's text whether or not that is an item, and hands choices in the
/// opened list and finished typing to it. Typing ends with Enter or with leaving; Escape takes it
/// back. Keys that would go through the closed list open it.
class ComboWidget : public QComboBox {
 public:
  ComboWidget(controls::ComboBox& control, face::Context& context, QWidget* parent);

  /// Shows what the control holds; an unfinished text is kept while the control's own text stays.
  void Redraw();
  /// What stands in the box: an unfinished text too, or the placeholder.
  QString ShownText() const;
  bool ListIsOpen() const;
  /// Whether a text would be shown whole.
  bool Fits(const QString& text) const;
  /// Whether some of the control's text is not shown.
  bool IsCut() const { return !Fits(drawn_text_); }

  void showPopup() override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Choose(int position);
  void FinishTyping();
  bool HasUnfinishedText() const;
  bool OpensList(const QKeyEvent& event) const;
  void ShowControlText();
  void RedrawItems();
  int TextWidth() const;

  controls::ComboBox& control_;
  face::Context& context_;
  QString drawn_text_;
};

}  // namespace kestrune::qt
