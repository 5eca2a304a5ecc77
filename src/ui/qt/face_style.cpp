#include "ui/qt/face_style.h"

#include <QPainter>
#include <QStyleOptionComboBox>

namespace kestrune::qt {

namespace {

constexpr int kDarkLightness = 128;
constexpr int kTitleGap = 3;

bool IsDark(const QStyleOption& option) {
  return option.palette.color(QPalette::Window).lightness() < kDarkLightness;
}

void DrawOutline(const QStyleOption& option, QPainter& painter, qreal radius) {
  QColor colour = option.palette.color(QPalette::WindowText);
  colour.setAlphaF(0.45F);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(colour);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  painter.restore();
}

/// The style's own frame is a bitmap that is slow to load and hardly seen on dark backgrounds.
void DrawGroupFrame(const QStyleOption& option, QPainter& painter) {
  QColor line = option.palette.color(QPalette::WindowText);
  line.setAlphaF(0.2F);
  QColor ground = line;
  ground.setAlphaF(0.02F);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(line);
  painter.setBrush(ground);
  const int title = option.fontMetrics.height() + kTitleGap;
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, title + 0.5, -0.5, -0.5), 2, 2);
  painter.restore();
}

}  // namespace

void FaceStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
  if (element == PE_FrameGroupBox) {
    DrawGroupFrame(*option, *painter);
    return;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (!IsDark(*option) || option->state.testFlag(State_HasFocus)) return;
  if (element == PE_IndicatorCheckBox || element == PE_FrameLineEdit) {
    DrawOutline(*option, *painter, 1);
  } else if (element == PE_IndicatorRadioButton) {
    DrawOutline(*option, *painter, option->rect.width() / 2.0);
  }
}

void FaceStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
  if (combo == nullptr || !combo->editable || !IsDark(*combo)) return;
  if (!combo->state.testFlag(State_HasFocus)) DrawOutline(*combo, *painter, 2);
}

}  // namespace kestrune::qt
