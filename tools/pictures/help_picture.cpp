#include "help_picture.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include "picture_file.h"

namespace kestrune::pictures {
namespace {

constexpr int kSide = 96;  // pixels

constexpr QColor kInk(0x24, 0x4E, 0x86);

// A ticked check box with its caption as two grey bars.
void DrawControl(QPainter& painter) {
  painter.setPen(QPen(kInk, 3));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(9, 63, 22, 22), 4, 4);
  painter.setPen(QPen(kInk, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF tick[] = {{14, 74}, {19, 79}, {27, 68}};
  painter.drawPolyline(tick, 3);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0x7E, 0x93, 0xAD));
  painter.drawRoundedRect(QRectF(39, 72, 26, 6), 3, 3);
}

void DrawLens(QPainter& painter, QPointF centre, double radius) {
  const QPointF rim = centre + QPointF(radius, radius) * 0.72;
  painter.setPen(QPen(QColor(0xB9, 0x6A, 0x1E), 11, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(rim, centre + QPointF(radius, radius) * 1.22);
  QLinearGradient glass(centre - QPointF(radius, radius), centre + QPointF(radius, radius));
  glass.setColorAt(0, QColor(0xFF, 0xFF, 0xFF));
  glass.setColorAt(1, QColor(0xC4, 0xE2, 0xFA));
  painter.setPen(QPen(kInk, 5));
  painter.setBrush(glass);
  painter.drawEllipse(centre, radius, radius);
}

// A question mark as strokes, so that it looks the same with any fonts installed.
void DrawQuestionMark(QPainter& painter, QPointF centre, double size) {
  QPainterPath hook;
  const QRectF bow(centre.x() - size * 0.27, centre.y() - size * 0.52, size * 0.54, size * 0.54);
  hook.arcMoveTo(bow, 170);
  hook.arcTo(bow, 170, -215);
  hook.quadTo(centre + QPointF(0, size * 0.06), centre + QPointF(0, size * 0.22));
  painter.setPen(
      QPen(QColor(0xE0, 0x5A, 0x1C), size * 0.16, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(hook);
  painter.drawPoint(centre + QPointF(0, size * 0.48));
}

}  // namespace

QString WriteHelpPicture(const QString& folder) {
  QImage image(kSide, kSide, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient background(0, 0, 0, kSide);
  background.setColorAt(0, QColor(0xE4, 0xEF, 0xFA));
  background.setColorAt(1, QColor(0xB9, 0xD3, 0xEC));
  painter.fillRect(image.rect(), background);
  DrawControl(painter);
  DrawLens(painter, {52, 37}, 28);
  DrawQuestionMark(painter, {52, 36}, 36);
  painter.end();
  return WritePicture(image, folder, QStringLiteral("ps"));
}

}  // namespace kestrune::pictures
