#include "ui/qt/face_style.h"

#include <QPainter>
#include <QStyleOptionSlider>

#include "ui/face/contrast.h"

namespace kestrune::qt {

namespace {

constexpr int kTitleGap = 3;
/// The style shades what it fills, so that more contrast to the palette is needed to have enough.
constexpr double kShading = 1.35;

struct TextRow {
  QPalette::ColorRole text;
  QPalette::ColorRole ground;
};

/// What is read on what.
constexpr TextRow kTexts[] = {{QPalette::WindowText, QPalette::Window},
                              {QPalette::Text, QPalette::Base},
                              {QPalette::Text, QPalette::Window},
                              {QPalette::Text, QPalette::Button},
                              {QPalette::ButtonText, QPalette::Button},
                              {QPalette::ButtonText, QPalette::Window},
                              {QPalette::HighlightedText, QPalette::Highlight},
                              {QPalette::ToolTipText, QPalette::ToolTipBase},
                              {QPalette::PlaceholderText, QPalette::Base},
                              {QPalette::PlaceholderText, QPalette::Button}};

face::Colour ToFace(const QColor& colour) {
  return {colour.redF(), colour.greenF(), colour.blueF()};
}

QColor Contrasting(const QColor& colour, const QColor& ground, double ratio) {
  const face::Colour found = face::Contrasting(ToFace(colour), ToFace(ground), ratio);
  return QColor::fromRgbF(static_cast<float>(found.red), static_cast<float>(found.green),
                          static_cast<float>(found.blue));
}

/// A line is seen against the window around it and against what it encloses.
QColor Line(const QPalette& palette, const QColor& colour) {
  QColor line = colour;
  for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base, QPalette::Button}) {
    line =
        Contrasting(line, palette.color(QPalette::Active, ground), face::kLineContrast * kShading);
  }
  return line;
}

QColor LineFor(const QStyleOption& option) {
  return option.state.testFlag(QStyle::State_HasFocus) ? FaceStyle::FocusColour(option.palette)
                                                       : FaceStyle::LineColour(option.palette);
}

void DrawOutline(QPainter& painter, const QRect& place, const QColor& colour, qreal radius) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(colour);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
  painter.restore();
}

/// The style's own frame is a bitmap that is slow to load.
void DrawGroupFrame(const QStyleOption& option, QPainter& painter) {
  const int title = option.fontMetrics.height() + kTitleGap;
  const QRect frame = option.rect.adjusted(0, title, -1, -1);
  painter.setPen(FaceStyle::LineColour(option.palette));
  painter.drawRect(frame);
}

}  // namespace

QColor FaceStyle::LineColour(const QPalette& palette) {
  return Line(palette, palette.color(QPalette::Active, QPalette::Window));
}

QColor FaceStyle::FocusColour(const QPalette& palette) {
  return Line(palette, palette.color(QPalette::Active, QPalette::Highlight));
}

void FaceStyle::polish(QPalette& palette) {
  QProxyStyle::polish(palette);
  for (const QPalette::ColorGroup group :
       {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    const double ratio =
        group == QPalette::Disabled ? face::kDisabledContrast : face::kTextContrast;
    for (const TextRow& row : kTexts) {
      const QColor text = palette.color(group, row.text);
      const QColor seen = Contrasting(text, palette.color(group, row.ground), ratio * kShading);
      if (seen != text) palette.setColor(group, row.text, seen);
    }
  }
}

void FaceStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
  if (element == PE_FrameGroupBox) {
    DrawGroupFrame(*option, *painter);
    return;
  }
  if (element == PE_FrameFocusRect) {
    DrawOutline(*painter, option->rect, FocusColour(option->palette), 2);
    return;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  switch (element) {
    case PE_IndicatorCheckBox:
    case PE_FrameLineEdit:
    case PE_Frame:
    case PE_PanelMenu:
    case PE_PanelButtonCommand:
      DrawOutline(*painter, option->rect, LineFor(*option), element == PE_PanelMenu ? 0 : 2);
      break;
    case PE_IndicatorRadioButton:
      DrawOutline(*painter, option->rect, LineFor(*option), option->rect.width() / 2.0);
      break;
    default:
      break;
  }
}

void FaceStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  const auto outline = [&](SubControl part) {
    DrawOutline(*painter, subControlRect(control, option, part, widget), LineFor(*option), 2);
  };
  const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control == CC_Slider && slider != nullptr) {
    // The handle lies over the groove's line.
    for (const SubControl part : {SC_SliderGroove, SC_SliderHandle}) {
      QStyleOptionSlider drawn = *slider;
      drawn.subControls = part;
      QProxyStyle::drawComplexControl(control, &drawn, painter, widget);
      outline(part);
    }
    return;
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_ComboBox) DrawOutline(*painter, option->rect, LineFor(*option), 2);
  if (control == CC_ScrollBar) outline(SC_ScrollBarSlider);
}

}  // namespace kestrune::qt
