// Draws the likeness of a driver page: a window with a title bar and plain controls on it.
#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRect>
#include <QString>
#include <QStringList>
#include <span>

namespace kestrune::pictures {

inline constexpr int kDialogWidth = 400;
inline constexpr int kDialogHeight = 260;

// Colours shared by everything that is drawn on a page.
namespace palette {
inline constexpr QColor kFace(0xF3, 0xF4, 0xF6);
inline constexpr QColor kField(0xFF, 0xFF, 0xFF);
inline constexpr QColor kBorder(0xA9, 0xB1, 0xBC);
inline constexpr QColor kText(0x22, 0x29, 0x33);
inline constexpr QColor kMuted(0x6B, 0x75, 0x82);
inline constexpr QColor kAccent(0x2F, 0x6F, 0xB3);
inline constexpr QColor kAccentSoft(0xD6, 0xE5, 0xF5);
inline constexpr QColor kTitleBar(0x3B, 0x4A, 0x5E);
}  // namespace palette

// All positions are pixels of the finished picture; the title bar takes the upper 28.
class MockDialog {
 public:
  explicit MockDialog(const QString& title);

  void Label(QPoint leftMiddle, const QString& text, const QColor& colour = palette::kText);
  void Value(QRect field, const QString& text);
  void Group(QRect area, const QString& caption);
  void CheckBox(QPoint leftMiddle, const QString& caption, bool checked);
  void OptionButton(QPoint leftMiddle, const QString& caption, bool chosen);
  // `position` runs from 0 (left end) to 1. Captions are spread evenly under the track.
  void Slider(QRect track, double position, const QStringList& captions);
  void ComboBox(QRect field, const QString& text);
  void Button(QRect area, const QString& caption);
  // Rows of two columns, the second from `split` pixels on; `chosenRow` is marked, -1 for none.
  void Table(QRect area, std::span<const QStringList> rows, int split, int chosenRow);
  // A monitor on its stand, with `content` to be drawn on by the caller. Returns the screen area.
  QRect Monitor(QRect area);

  QPainter& painter() { return painter_; }
  // Ends drawing; nothing may be drawn afterwards.
  QImage Finish();

 private:
  void Text(QRect area, int alignment, const QString& text, const QColor& colour,
            bool bold = false);

  QImage image_;
  QPainter painter_;
};

}  // namespace kestrune::pictures
