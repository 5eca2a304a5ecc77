#pragma once

#include <QProxyStyle>

namespace kestrune::qt {

/// The desktop-neutral style, with outlines and frames that can be told from a dark background: its
/// own are darker than the window, whatever the window's colour.
class FaceStyle : public QProxyStyle {
 public:
  FaceStyle() : QProxyStyle("fusion") {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
};

}  // namespace kestrune::qt
