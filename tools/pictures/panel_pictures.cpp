#include "panel_pictures.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <array>

#include "mock_dialog.h"
#include "picture_file.h"

namespace kestrune::pictures {
namespace {

using Rows = std::span<const QStringList>;

QString Text(const char* text) { return QString::fromUtf8(text); }

void DrawClocks(MockDialog& page) {
  page.OptionButton({20, 50}, Text("Automatic"), false);
  page.OptionButton({140, 50}, Text("Manual"), true);
  page.Group({14, 74, 372, 66}, Text("Core clock"));
  page.Slider({34, 90, 230, 18}, 0.58, {Text("200"), Text("300"), Text("400"), Text("500")});
  page.Value({296, 88, 78, 24}, Text("375 MHz"));
  page.Group({14, 152, 372, 66}, Text("Memory clock"));
  page.Slider({34, 168, 230, 18}, 0.72, {Text("400"), Text("600"), Text("800"), Text("1000")});
  page.Value({296, 166, 78, 24}, Text("830 MHz"));
  page.Button({206, 226, 84, 26}, Text("Detect"));
  page.Button({300, 226, 84, 26}, Text("Apply"));
}

void DrawAgp(MockDialog& page) {
  page.Group({14, 48, 372, 72}, Text("Transfer rate"));
  page.Slider({44, 66, 300, 18}, 1.0, {Text("1x"), Text("2x"), Text("4x"), Text("8x")});
  page.CheckBox({28, 144}, Text("Fast writes"), true);
  page.CheckBox({28, 170}, Text("Sideband addressing"), true);
  page.Label({28, 202}, Text("Aperture size"));
  page.ComboBox({140, 190, 110, 25}, Text("128 MB"));
  page.Button({300, 226, 84, 26}, Text("Apply"));
}

void DrawAdditional(MockDialog& page) {
  const std::array<QStringList, 8> rows{{
      {Text("Processor"), Text("325 MHz core")},
      {Text("Memory"), Text("128 MB DDR, 256 bit")},
      {Text("Bus"), Text("AGP 8x")},
      {Text("Video BIOS"), Text("5.40.02.11")},
      {Text("Interrupt"), Text("16")},
      {Text("Memory range"), Text("D0000000 - DFFFFFFF")},
      {Text("Direct3D"), Text("9.0c")},
      {Text("Driver"), Text("6.14.10.7184")},
  }};
  page.Table({14, 42, 372, 174}, Rows(rows), 130, -1);
  page.Button({300, 226, 84, 26}, Text("Copy"));
}

void DrawWarningSign(QPainter& painter, QPointF top, double side) {
  QPainterPath sign;
  sign.moveTo(top);
  sign.lineTo(top + QPointF(side / 2, side * 0.87));
  sign.lineTo(top + QPointF(-side / 2, side * 0.87));
  sign.closeSubpath();
  painter.setPen(QPen(QColor(0xC2, 0x8B, 0x10), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(QColor(0xFB, 0xD0, 0x4B));
  painter.drawPath(sign);
  painter.setPen(QPen(palette::kText, side / 11, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(top + QPointF(0, side * 0.30), top + QPointF(0, side * 0.56));
  painter.drawPoint(top + QPointF(0, side * 0.72));
}

void DrawTroubleshooting(MockDialog& page) {
  DrawWarningSign(page.painter(), {56, 48}, 54);
  page.Label({104, 62}, Text("Something on the screen looks wrong?"));
  page.Label({104, 84}, Text("Switch parts of the driver off in turn."), palette::kMuted);
  page.Group({14, 120, 372, 98}, Text("Compatibility"));
  page.CheckBox({28, 142}, Text("Hardware cursor"), true);
  page.CheckBox({28, 168}, Text("Video acceleration"), true);
  page.CheckBox({28, 194}, Text("Write debug messages to a file"), false);
  page.Button({286, 226, 98, 26}, Text("Restore all"));
}

void DrawProfiles(MockDialog& page) {
  const std::array<QStringList, 6> games{{
      {Text("Flight trainer")},
      {Text("Rally racing")},
      {Text("Space arena")},
      {Text("3D chess")},
      {Text("Castle builder")},
      {Text("Golf course")},
  }};
  const std::array<QStringList, 6> settings{{
      {Text("Antialiasing"), Text("4x")},
      {Text("Anisotropic"), Text("8x")},
      {Text("Image quality"), Text("High")},
      {Text("Vertical sync"), Text("On")},
      {Text("Mipmaps"), Text("Trilinear")},
      {Text("Prerender"), Text("3")},
  }};
  page.Label({16, 46}, Text("Application"), palette::kMuted);
  page.Label({164, 46}, Text("Its settings"), palette::kMuted);
  page.Table({14, 58, 138, 156}, Rows(games), 138, 1);
  page.Table({162, 58, 224, 156}, Rows(settings), 130, -1);
  page.Button({14, 226, 84, 26}, Text("Add"));
  page.Button({106, 226, 84, 26}, Text("Remove"));
  page.Button({300, 226, 84, 26}, Text("Apply"));
}

// A number in the middle of a screen, and a task bar along its lower edge.
void DrawDesktop(QPainter& painter, QRect screen, const QString& number) {
  painter.fillRect(screen.adjusted(0, screen.height() - 9, 0, 0), palette::kFace);
  painter.fillRect(QRect(screen.x() + 2, screen.bottom() - 6, 18, 5), palette::kAccent);
  QFont font = painter.font();
  font.setPixelSize(40);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(screen.adjusted(0, 0, 0, -8), Qt::AlignCenter, number);
}

void DrawDisplays(MockDialog& page) {
  DrawDesktop(page.painter(), page.Monitor({36, 44, 156, 122}), Text("1"));
  DrawDesktop(page.painter(), page.Monitor({208, 44, 156, 122}), Text("2"));
  page.OptionButton({36, 188}, Text("Single display"), false);
  page.OptionButton({36, 212}, Text("Clone"), false);
  page.OptionButton({208, 188}, Text("Horizontal span"), true);
  page.OptionButton({208, 212}, Text("Vertical span"), false);
  page.Button({300, 228, 84, 26}, Text("Apply"));
}

// A film scene: the sun low over the sea. What leaves `clip` isn't seen.
void DrawFilm(QPainter& painter, QRect film, QRect clip) {
  painter.save();
  painter.setClipRect(clip);
  QLinearGradient sky(film.topLeft(), film.bottomLeft());
  sky.setColorAt(0, QColor(0x3A, 0x2A, 0x5E));
  sky.setColorAt(0.6, QColor(0xF2, 0x8C, 0x4B));
  painter.fillRect(film, sky);
  const double sea = film.y() + film.height() * 0.62;
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0xFF, 0xE2, 0x8A));
  painter.drawEllipse(QPointF(film.x() + film.width() * 0.64, sea), 15, 15);
  painter.fillRect(QRectF(film.x(), sea, film.width(), film.bottom() + 1 - sea),
                   QColor(0x24, 0x3B, 0x63));
  painter.setBrush(QColor(0x14, 0x1C, 0x33));
  const QPointF boat(film.x() + film.width() * 0.26, sea + 4);
  const QPointF sail[] = {boat + QPointF(0, -34), boat + QPointF(0, -5), boat + QPointF(20, -5)};
  const QPointF hull[] = {boat + QPointF(-15, -2), boat + QPointF(22, -2), boat + QPointF(15, 6),
                          boat + QPointF(-9, 6)};
  painter.drawPolygon(sail, 3);
  painter.drawPolygon(hull, 4);
  painter.restore();
}

void DrawOverlay(MockDialog& page) {
  const QRect left = page.Monitor({36, 42, 156, 116});
  const QRect right = page.Monitor({208, 42, 156, 116});
  const QRect film(left.x() + 34, left.y() + 14, right.right() - 34 - (left.x() + 34), 66);
  DrawFilm(page.painter(), film, left);
  DrawFilm(page.painter(), film, right);
  page.Label({30, 184}, Text("Brightness"));
  page.Slider({112, 175, 96, 18}, 0.55, {});
  page.Label({30, 212}, Text("Contrast"));
  page.Slider({112, 203, 96, 18}, 0.7, {});
  page.Label({226, 184}, Text("Hue"));
  page.Slider({292, 175, 80, 18}, 0.5, {});
  page.Label({226, 212}, Text("Saturation"));
  page.Slider({292, 203, 80, 18}, 0.4, {});
  page.Button({300, 228, 84, 26}, Text("Apply"));
}

void DrawRefreshRates(MockDialog& page) {
  const std::array<QStringList, 6> rates{{
      {Text("640 x 480"), Text("120 Hz")},
      {Text("800 x 600"), Text("100 Hz")},
      {Text("1024 x 768"), Text("100 Hz")},
      {Text("1152 x 864"), Text("85 Hz")},
      {Text("1280 x 1024"), Text("85 Hz")},
      {Text("1600 x 1200"), Text("75 Hz")},
  }};
  page.CheckBox({16, 46}, Text("Override the rate in Direct3D games"), true);
  page.Table({14, 62, 240, 152}, Rows(rates), 130, 2);
  page.Label({268, 74}, Text("1024 x 768"), palette::kMuted);
  page.ComboBox({266, 88, 118, 25}, Text("100 Hz"));
  page.Label({268, 130}, Text("60 - 120 Hz"), palette::kMuted);
  page.Button({206, 226, 84, 26}, Text("Default"));
  page.Button({300, 226, 84, 26}, Text("Apply"));
}

struct PanelPicture {
  const char* tag;
  const char* title;
  void (*draw)(MockDialog& page);
};

constexpr std::array kPanelPictures{
    PanelPicture{"oc", "Clock frequencies", DrawClocks},
    PanelPicture{"agp", "AGP settings", DrawAgp},
    PanelPicture{"additional", "Additional information", DrawAdditional},
    PanelPicture{"debug", "Troubleshooting", DrawTroubleshooting},
    PanelPicture{"app", "Application profiles", DrawProfiles},
    PanelPicture{"nview", "Displays", DrawDisplays},
    PanelPicture{"ovl", "Overlay on both displays", DrawOverlay},
    PanelPicture{"refresh", "Direct3D refresh rates", DrawRefreshRates},
};

}  // namespace

QString WritePanelPictures(const QString& folder) {
  for (const PanelPicture& picture : kPanelPictures) {
    MockDialog page(Text(picture.title));
    picture.draw(page);
    QString failure = WritePicture(page.Finish(), folder, Text(picture.tag));
    if (!failure.isEmpty()) return failure;
  }
  return {};
}

}  // namespace kestrune::pictures
