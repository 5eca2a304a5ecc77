#pragma once

#include <QLabel>

namespace kestrune::qt {

/// A label that ends in an ellipsis where its text doesn't fit, over as many lines as it has room
/// for. It shows when it has the focus.
class LabelWidget : public QLabel {
 public:
  explicit LabelWidget(QWidget* parent) : QLabel(parent) {}

  /// `marked` is the caption with a mnemonic, which leads to the label's buddy. A caption of
  /// several lines shows none.
  void SetCaption(const QString& caption, const QString& marked);
  void SetHeading();
  /// Underlines it: the colour that palettes have for links is not legible in all of them.
  void SetLink();
  bool IsLink() const { return font().underline(); }
  /// Whether some of the caption is not shown at its present size.
  bool IsCut() const { return is_cut_; }

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool HasLines() const;
  void Fit();

  QString caption_;
  QString marked_;
  QString shown_text_;  ///< what fits of the caption at `fitted_size_`
  QSize fitted_size_;
  bool is_cut_ = false;
};

}  // namespace kestrune::qt
