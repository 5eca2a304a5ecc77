#include "ui/qt/label_widget.h"

#include <QEvent>
#include <QPainter>

#include "ui/qt/focus_mark.h"
#include "ui/qt/wrapped.h"

namespace kestrune::qt {

void LabelWidget::SetCaption(const QString& caption, const QString& marked) {
  caption_ = caption;
  marked_ = marked;
  Fit();
  // The toolkit's own text serves screen readers and the mnemonic; what is painted is ours.
  setTextFormat(Qt::PlainText);
  setText(marked);
}

void LabelWidget::SetHeading() {
  QFont bold = font();
  bold.setBold(true);
  setFont(bold);
}

void LabelWidget::SetLink() {
  QFont underlined = font();
  underlined.setUnderline(true);
  setFont(underlined);
}

bool LabelWidget::HasLines() const { return HasRoomForLines(font(), size()); }

void LabelWidget::Fit() {
  fitted_size_ = size();
  if (HasLines()) {
    shown_text_ = Wrapped(caption_, font(), size());
    is_cut_ = !IsWhole(shown_text_, caption_);
  } else {
    shown_text_ = fontMetrics().elidedText(marked_, Qt::ElideRight, width(), Qt::TextShowMnemonic);
    is_cut_ = shown_text_ != marked_;
  }
}

void LabelWidget::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) Fit();
}

void LabelWidget::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  if (size() != fitted_size_) Fit();
}

void LabelWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
  painter.setPen(palette().color(group, QPalette::WindowText));
  const int layout = HasLines() ? static_cast<int>(Qt::AlignTop)
                                : static_cast<int>(Qt::AlignVCenter) | Qt::TextShowMnemonic;
  painter.drawText(rect(), Qt::AlignLeft | layout, shown_text_);
  DrawFocusMark(painter, *this);
}

}  // namespace kestrune::qt
