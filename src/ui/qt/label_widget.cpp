#include "ui/qt/label_widget.h"

#include <QPainter>
#include <QTextLayout>

#include "ui/qt/focus_mark.h"

namespace kestrune::qt {

namespace {

/// The text broken into the lines that fit, the last of them cut short where more would follow.
QString Wrapped(const QString& text, const QFont& font, const QSize& room) {
  const QFontMetrics metrics(font);
  const int fitting = std::max(1, room.height() / metrics.lineSpacing());
  QTextLayout layout(text, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QString result;
  layout.beginLayout();
  for (int count = 1;; ++count) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(room.width());
    const int start = line.textStart();
    if (count == fitting) {
      result += metrics.elidedText(text.mid(start).simplified(), Qt::ElideRight, room.width());
      break;
    }
    result += text.mid(start, line.textLength()).trimmed() + '\n';
  }
  layout.endLayout();
  return result;
}

}  // namespace

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

bool LabelWidget::HasLines() const { return height() >= 2 * fontMetrics().lineSpacing(); }

void LabelWidget::Fit() {
  fitted_size_ = size();
  if (HasLines()) {
    shown_text_ = Wrapped(caption_, font(), size());
    is_cut_ = shown_text_.simplified() != caption_.simplified();
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
