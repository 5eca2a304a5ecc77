#pragma once

#include <QRect>
#include <QString>
#include <string_view>

#include "ui/face/scale.h"

namespace kestrune::qt {

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline face::PixelRect FromQt(const QRect& rect) {
  return {rect.x(), rect.y(), rect.width(), rect.height()};
}

inline QRect ToQt(const face::PixelRect& rect) {
  return QRect(rect.left, rect.top, rect.width, rect.height);
}

}  // namespace kestrune::qt
