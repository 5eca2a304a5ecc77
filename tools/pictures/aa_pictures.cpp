#include "aa_pictures.h"

#include <QImage>
#include <QRect>
#include <algorithm>
#include <array>
#include <cmath>

#include "picture_file.h"
#include "sampling.h"

namespace kestrune::pictures {
namespace {

// The two sets of pictures. Magnification repeats pixels: what counts is to see each of them.
struct PictureSet {
  const char* folder;
  QRect part;  // of the scene, in pixels
  int magnification;
};

constexpr std::array kPictureSets{
    PictureSet{"1", QRect(0, 0, kSceneWidth, kSceneHeight), 2},
    PictureSet{"2", QRect(121, 73, 78, 46), 6},
};

int Level(double value) { return static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * 255)); }

QImage ImageOf(const std::vector<Colour>& pixels) {
  QImage image(kSceneWidth, kSceneHeight, QImage::Format_RGB32);
  for (int y = 0; y < kSceneHeight; ++y) {
    for (int x = 0; x < kSceneWidth; ++x) {
      const Colour& c =
          pixels[static_cast<std::size_t>(y) * kSceneWidth + static_cast<std::size_t>(x)];
      image.setPixel(x, y, qRgb(Level(c.red), Level(c.green), Level(c.blue)));
    }
  }
  return image;
}

QString NameOf(const Mode& mode) {
  return QString::fromLatin1(mode.name.data(), static_cast<qsizetype>(mode.name.size()));
}

}  // namespace

QString WriteAaPictures(const QString& folder) {
  for (const Mode& mode : Modes()) {
    const QImage image = ImageOf(Render(mode));
    for (const PictureSet& set : kPictureSets) {
      const QImage picture = image.copy(set.part).scaled(set.part.size() * set.magnification);
      QString failure = WritePicture(picture, folder + QLatin1Char('/') + QLatin1String(set.folder),
                                     NameOf(mode));
      if (!failure.isEmpty()) return failure;
    }
  }
  return {};
}

}  // namespace kestrune::pictures
