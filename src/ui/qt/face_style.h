#pragma once

#include <QProxyStyle>

namespace kestrune::qt {

/// The desktop-neutral style with colours that can be told from each other in every palette: its
/// own outlines and grooves nearly vanish, and so do disabled texts.
class FaceStyle : public QProxyStyle {
 public:
  FaceStyle() : QProxyStyle("fusion") {}

  /// Gives the texts of a palette enough contrast to what they stand on.
  void polish(QPalette& palette) override;
  using QProxyStyle::polish;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;

  /// The colour of lines that show where something is, and that of those around the focus.
  static QColor LineColour(const QPalette& palette);
  static QColor FocusColour(const QPalette& palette);
};

}  // namespace kestrune::qt
