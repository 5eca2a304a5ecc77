#include "mock_dialog.h"

#include <QFont>

namespace kestrune::pictures {
namespace {

constexpr int kTitleHeight = 28;
constexpr int kTextSize = 12;  // pixels
constexpr int kMark = 14;      // side of a check box

QFont PageFont(bool bold) {
  QFont font(QStringLiteral("sans-serif"));
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(kTextSize);
  font.setBold(bold);
  return font;
}

QRect MarkArea(QPoint leftMiddle) {
  return {leftMiddle.x(), leftMiddle.y() - kMark / 2, kMark, kMark};
}

}  // namespace

MockDialog::MockDialog(const QString& title)
    : image_(kDialogWidth, kDialogHeight, QImage::Format_RGB32), painter_(&image_) {
  painter_.setRenderHint(QPainter::Antialiasing);
  image_.fill(palette::kFace);
  painter_.fillRect(0, 0, kDialogWidth, kTitleHeight, palette::kTitleBar);
  Text(QRect(12, 0, kDialogWidth - 60, kTitleHeight), Qt::AlignLeft, title, Qt::white, true);
  painter_.setPen(QPen(Qt::white, 1.6));
  painter_.drawLine(QPointF(380.5, 10), QPointF(388.5, 18));
  painter_.drawLine(QPointF(388.5, 10), QPointF(380.5, 18));
  painter_.setPen(QPen(palette::kBorder, 1));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(QRectF(0.5, 0.5, kDialogWidth - 1, kDialogHeight - 1));
}

void MockDialog::Text(QRect area, int alignment, const QString& text, const QColor& colour,
                      bool bold) {
  painter_.setFont(PageFont(bold));
  painter_.setPen(colour);
  painter_.drawText(area, alignment | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

void MockDialog::Label(QPoint leftMiddle, const QString& text, const QColor& colour) {
  Text(QRect(leftMiddle.x(), leftMiddle.y() - 10, kDialogWidth, 20), Qt::AlignLeft, text, colour);
}

void MockDialog::Value(QRect field, const QString& text) {
  painter_.setPen(QPen(palette::kBorder, 1));
  painter_.setBrush(palette::kField);
  painter_.drawRect(QRectF(field).adjusted(0.5, 0.5, -0.5, -0.5));
  Text(field.adjusted(6, 0, -6, 0), Qt::AlignRight, text, palette::kText);
}

void MockDialog::Group(QRect area, const QString& caption) {
  painter_.setPen(QPen(palette::kBorder, 1));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  const int width = QFontMetrics(PageFont(false)).horizontalAdvance(caption);
  painter_.fillRect(area.x() + 9, area.y() - 2, width + 8, 5, palette::kFace);
  Label({area.x() + 13, area.y()}, caption, palette::kAccent);
}

void MockDialog::CheckBox(QPoint leftMiddle, const QString& caption, bool checked) {
  const QRectF mark = QRectF(MarkArea(leftMiddle)).adjusted(0.5, 0.5, -0.5, -0.5);
  painter_.setPen(QPen(checked ? palette::kAccent : palette::kBorder, 1));
  painter_.setBrush(checked ? palette::kAccent : palette::kField);
  painter_.drawRoundedRect(mark, 2, 2);
  if (checked) {
    painter_.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF tick[] = {mark.topLeft() + QPointF(3, 6.8), mark.topLeft() + QPointF(5.6, 9.4),
                            mark.topLeft() + QPointF(10.2, 3.8)};
    painter_.drawPolyline(tick, 3);
  }
  Label(leftMiddle + QPoint(kMark + 8, 0), caption);
}

void MockDialog::OptionButton(QPoint leftMiddle, const QString& caption, bool chosen) {
  const QRectF mark = QRectF(MarkArea(leftMiddle)).adjusted(0.5, 0.5, -0.5, -0.5);
  painter_.setPen(QPen(chosen ? palette::kAccent : palette::kBorder, chosen ? 1.6 : 1));
  painter_.setBrush(palette::kField);
  painter_.drawEllipse(mark);
  if (chosen) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(palette::kAccent);
    painter_.drawEllipse(mark.adjusted(3.5, 3.5, -3.5, -3.5));
  }
  Label(leftMiddle + QPoint(kMark + 8, 0), caption);
}

void MockDialog::Slider(QRect track, double position, const QStringList& captions) {
  const double middle = track.center().y() + 0.5;
  const double thumb = track.x() + position * track.width();
  const double step = captions.size() > 1 ? track.width() / double(captions.size() - 1) : 0;
  for (qsizetype i = 0; i < captions.size(); ++i) {
    const double x = track.x() + step * static_cast<double>(i);
    painter_.setPen(QPen(palette::kBorder, 1));
    painter_.drawLine(QPointF(x, middle + 11), QPointF(x, middle + 15));
    Text(QRect(qRound(x) - 40, qRound(middle) + 15, 80, 16), Qt::AlignHCenter, captions[i],
         palette::kMuted);
  }
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(palette::kBorder);
  painter_.drawRoundedRect(QRectF(track.x(), middle - 2, track.width(), 4), 2, 2);
  painter_.setBrush(palette::kAccent);
  painter_.drawRoundedRect(QRectF(track.x(), middle - 2, thumb - track.x(), 4), 2, 2);
  painter_.setPen(QPen(palette::kAccent, 1.5));
  painter_.setBrush(palette::kField);
  painter_.drawRoundedRect(QRectF(thumb - 5, middle - 9, 10, 18), 3, 3);
}

void MockDialog::ComboBox(QRect field, const QString& text) {
  painter_.setPen(QPen(palette::kBorder, 1));
  painter_.setBrush(palette::kField);
  painter_.drawRoundedRect(QRectF(field).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
  Text(field.adjusted(8, 0, -22, 0), Qt::AlignLeft, text, palette::kText);
  painter_.setPen(QPen(palette::kMuted, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF middle(field.right() - 12, field.center().y() + 1);
  const QPointF arrow[] = {middle + QPointF(-4, -2), middle + QPointF(0, 2),
                           middle + QPointF(4, -2)};
  painter_.drawPolyline(arrow, 3);
}

void MockDialog::Button(QRect area, const QString& caption) {
  painter_.setPen(QPen(palette::kBorder, 1));
  painter_.setBrush(QColor(0xE6, 0xE9, 0xEE));
  painter_.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  Text(area, Qt::AlignHCenter, caption, palette::kText);
}

void MockDialog::Table(QRect area, std::span<const QStringList> rows, int split, int chosenRow) {
  constexpr int kRowHeight = 21;
  painter_.setPen(QPen(palette::kBorder, 1));
  painter_.setBrush(palette::kField);
  painter_.drawRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5));
  int index = 0;
  for (const QStringList& row : rows) {
    const QRect line(area.x() + 1, area.y() + 2 + index * kRowHeight, area.width() - 2, kRowHeight);
    if (index == chosenRow) painter_.fillRect(line, palette::kAccentSoft);
    Text(line.adjusted(8, 0, 0, 0), Qt::AlignLeft, row.value(0), palette::kText);
    Text(line.adjusted(split, 0, 0, 0), Qt::AlignLeft, row.value(1), palette::kAccent);
    ++index;
  }
}

QRect MockDialog::Monitor(QRect area) {
  constexpr int kBezel = 6, kStand = 16;
  const QRect body = area.adjusted(0, 0, 0, -kStand);
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(palette::kMuted);
  painter_.drawRect(QRectF(area.center().x() - 8, body.bottom(), 17, kStand - 4));
  painter_.drawRoundedRect(QRectF(area.center().x() - 28, area.bottom() - 5, 57, 6), 3, 3);
  painter_.setBrush(palette::kTitleBar);
  painter_.drawRoundedRect(QRectF(body), 5, 5);
  const QRect screen = body.adjusted(kBezel, kBezel, -kBezel, -kBezel);
  painter_.fillRect(screen, QColor(0x5B, 0x9B, 0xC9));
  return screen;
}

QImage MockDialog::Finish() {
  painter_.end();
  return image_;
}

}  // namespace kestrune::pictures
