#include "ui/qt/face_style.h"

#include <QPainter>
#include <QStyleOptionComboBox>

namespace kestrune::qt {

namespace {

constexpr int kDarkLightness = 128;
constexpr int kTitleGap = 3;
constexpr float kFrameStrength = 0.2F;
constexpr float kOutlineStrength = 0.45F;

bool IsDark(const QStyleOption& option) {
  return option.palette.color(QPalette::Window).lightness() < kDarkLightness;
}

/// A colour between the window's and, at full strength, that of its text.
QColor Mixed(const QPalette& palette, float strength) {
  const QColor ground = palette.color(QPalette::Window);
  const QColor text = palette.color(QPalette::WindowText);
  const auto mix = [strength](float from, float to) { return from + (to - from) * strength; };
  return QColor::fromRgbF(mix(ground.redF(), text.redF()), mix(ground.greenF(), text.greenF()),
                          mix(ground.blueF(), text.blueF()));
}

void DrawOutline(const QStyleOption& option, QPainter& painter, qreal radius) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Mixed(option.palette, kOutlineStrength));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  painter.restore();
}

/// The style's own frame is a bitmap that is slow to load and hardly seen on dark backgrounds.
void DrawGroupFrame(const QStyleOption& option, QPainter& painter) {
  const int title = option.fontMetrics.height() + kTitleGap;
  const QRect frame = option.rect.adjusted(0, title, -1, -1);
  painter.setPen(Mixed(option.palette, kFrameStrength));
  painter.drawRect(frame);
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
