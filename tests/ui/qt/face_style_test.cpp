#include "ui/qt/face_style.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QToolButton>
#include <map>
#include <memory>

#include "ui/face/contrast.h"
#include "ui/qt/combo_widget.h"

namespace kestrune::qt {
namespace {

QPalette Of(const QColor& window, const QColor& text, const QColor& base, const QColor& highlight) {
  QPalette palette(window, window);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, text);
  }
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::Highlight, highlight);
  palette.setColor(QPalette::HighlightedText, base);
  return palette;
}

/// What desktops have, and one that is hard to read.
std::map<std::string, QPalette> Palettes() {
  return {{"light", FaceStyle().standardPalette()},
          {"dark", QPalette(QColor(53, 53, 57), QColor(42, 42, 46))},
          {"white on black", Of(Qt::black, Qt::white, Qt::black, QColor(255, 255, 0))},
          {"black on white", Of(Qt::white, Qt::black, Qt::white, QColor(0, 0, 128))},
          {"faint", Of(QColor(200, 200, 200), QColor(150, 150, 150), QColor(210, 210, 210),
                       QColor(180, 200, 220))}};
}

double Ratio(QRgb one, QRgb other) {
  const auto colour = [](QRgb rgb) {
    return face::Colour{qRed(rgb) / 255.0, qGreen(rgb) / 255.0, qBlue(rgb) / 255.0};
  };
  return face::Contrast(colour(one), colour(other));
}

/// The contrast of what stands out most in a part of a picture to its commonest colour.
double ContrastIn(const QImage& picture, const QRect& part) {
  std::map<QRgb, int> counts;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) ++counts[picture.pixel(x, y)];
  }
  const auto common = std::max_element(counts.begin(), counts.end(), [](auto& one, auto& other) {
    return one.second < other.second;
  });
  double highest = 0;
  for (const auto& [colour, count] : counts) {
    highest = std::max(highest, Ratio(colour, common->first));
  }
  return highest;
}

/// A widget and the part of it, in hundredths, in which something has to be seen.
struct Sight {
  const char* what;
  QWidget* (*make)();
  QRect part;
  bool is_text = false;
};

template <typename T>
QWidget* Written() {
  auto* widget = new T;
  widget->setText("MMMM");
  return widget;
}

template <typename T>
QWidget* Empty() {
  return new T;
}

template <typename T>
QWidget* Lying() {
  auto* widget = new T;
  widget->setOrientation(Qt::Horizontal);
  widget->setRange(0, 10);
  return widget;
}

QWidget* MakeCombo(bool editable) {
  auto* combo = new QComboBox;
  combo->setEditable(editable);
  return combo;
}

constexpr QRect kWhole(0, 0, 100, 100);
constexpr QRect kInside(20, 20, 60, 60);
constexpr QRect kLeftEdge(0, 20, 15, 60);
constexpr QRect kRightHalf(50, 0, 45, 100);

const Sight kSights[] = {
    {"text of a label", Written<QLabel>, kWhole, true},
    {"text of a check box", Written<QCheckBox>, kRightHalf, true},
    {"text of an option", Written<QRadioButton>, kRightHalf, true},
    {"text of a button", Written<QPushButton>, kInside, true},
    {"text of a key", Written<QToolButton>, kInside, true},
    {"text of a box", Written<QLineEdit>, kInside, true},
    {"text of a combo",
     [] {
       QWidget* combo = MakeCombo(false);
       static_cast<QComboBox*>(combo)->addItem("MMMMMMMM");
       return combo;
     },
     kInside, true},
    {"box of a check box", Empty<QCheckBox>, kWhole},
    {"ring of an option", Empty<QRadioButton>, kWhole},
    {"outline of a button", Empty<QPushButton>, kLeftEdge},
    {"outline of a box", Empty<QLineEdit>, kLeftEdge},
    {"outline of a list", Empty<QListWidget>, kLeftEdge},
    {"outline of a combo", [] { return MakeCombo(false); }, kLeftEdge},
    {"outline of a combo that takes typing", [] { return MakeCombo(true); }, kLeftEdge},
    {"outline of a group", Empty<QGroupBox>, kLeftEdge},
    {"outline of a menu", Empty<QMenu>, kLeftEdge},
    {"groove of a slider", Lying<QSlider>, kRightHalf},
    {"handle of a slider", Lying<QSlider>, kLeftEdge},
    {"handle of a scroll bar", Lying<QScrollBar>, kInside},
};

TEST(FaceStyleTest, EverythingCanBeToldFromItsGroundInEveryPalette) {
  FaceStyle style;
  for (auto& [name, palette] : Palettes()) {
    style.polish(palette);
    for (const Sight& sight : kSights) {
      const std::unique_ptr<QWidget> widget(sight.make());
      QFont font;
      font.setPixelSize(26);
      font.setBold(true);
      widget->setFont(font);
      widget->setStyle(&style);
      for (QWidget* part : widget->findChildren<QWidget*>()) part->setStyle(&style);
      widget->setPalette(palette);
      widget->resize(200, 80);
      for (const bool enabled : {true, false}) {
        widget->setEnabled(enabled);
        const QImage picture = widget->grab().toImage();
        const QRect& part = sight.part;
        const QRect pixels(part.x() * picture.width() / 100, part.y() * picture.height() / 100,
                           part.width() * picture.width() / 100,
                           part.height() * picture.height() / 100);
        const double wanted = sight.is_text && enabled ? face::kTextContrast : face::kLineContrast;
        EXPECT_GE(ContrastIn(picture, pixels), wanted - 0.01)
            << sight.what << (enabled ? "" : ", disabled, ") << " in " << name;
      }
    }
  }
}

}  // namespace
}  // namespace kestrune::qt
