#include "lod_pictures.h"

#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "picture_file.h"
#include "scene.h"

namespace kestrune::pictures {
namespace {

constexpr int kWidth = 528;  // pixels
constexpr int kHeight = 220;
constexpr int kTextureSide = 256;  // texels

Colour Mix(const Colour& a, const Colour& b, double share) {
  const auto mix = [share](double from, double to) { return from + (to - from) * share; };
  return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue)};
}

// One size of the texture.
struct Level {
  int side;
  std::vector<Colour> texels;

  // The texture repeats.
  const Colour& At(int x, int y) const {
    const auto wrapped = [this](int place) {
      return static_cast<std::size_t>(((place % side) + side) % side);
    };
    return texels[wrapped(y) * static_cast<std::size_t>(side) + wrapped(x)];
  }

  // The four nearest texels, by their distance; the place is in units of the whole texture.
  Colour Bilinear(double u, double v) const {
    const double x = u * side - 0.5;
    const double y = v * side - 0.5;
    const int left = static_cast<int>(std::floor(x));
    const int top = static_cast<int>(std::floor(y));
    const Colour above = Mix(At(left, top), At(left + 1, top), x - left);
    const Colour below = Mix(At(left, top + 1), At(left + 1, top + 1), x - left);
    return Mix(above, below, y - top);
  }
};

// Paving of eight by eight stones, with dark joints and fine grooves across every other stone.
Colour Paving(int x, int y) {
  constexpr int kStone = 32;
  constexpr int kJoint = 3;
  constexpr int kGroove = 4;
  const int in_x = x % kStone;
  const int in_y = y % kStone;
  if (in_x < kJoint || in_y < kJoint) return {0.18, 0.16, 0.14};
  const bool is_grooved = (x / kStone + y / kStone) % 2 == 0;
  const Colour stone = is_grooved ? Colour{0.86, 0.80, 0.66} : Colour{0.66, 0.42, 0.30};
  const bool is_dark = is_grooved ? in_y % kGroove < kGroove / 2 : in_x % (2 * kGroove) < 2;
  return is_dark ? Mix(stone, {0.1, 0.1, 0.1}, 0.55) : stone;
}

// All sizes of the texture, each texel the mean of four of the size before.
std::vector<Level> MakeLevels() {
  std::vector<Level> levels(1);
  levels[0].side = kTextureSide;
  for (int y = 0; y < kTextureSide; ++y) {
    for (int x = 0; x < kTextureSide; ++x) levels[0].texels.push_back(Paving(x, y));
  }
  while (levels.back().side > 1) {
    const Level& from = levels.back();
    Level to{from.side / 2, {}};
    for (int y = 0; y < to.side; ++y) {
      for (int x = 0; x < to.side; ++x) {
        const Colour above = Mix(from.At(2 * x, 2 * y), from.At(2 * x + 1, 2 * y), 0.5);
        const Colour below = Mix(from.At(2 * x, 2 * y + 1), from.At(2 * x + 1, 2 * y + 1), 0.5);
        to.texels.push_back(Mix(above, below, 0.5));
      }
    }
    levels.push_back(std::move(to));
  }
  return levels;
}

// How a level is chosen: by the size of a pixel on the texture, plus a bias; or always the finest.
struct Filter {
  double bias = 0;
  bool has_mipmaps = true;
};

Colour Trilinear(const std::vector<Level>& levels, double u, double v, double lod) {
  const double last = static_cast<double>(levels.size() - 1);
  lod = std::clamp(lod, 0.0, last);
  const auto finer = static_cast<std::size_t>(lod);
  const std::size_t coarser = std::min(finer + 1, levels.size() - 1);
  return Mix(levels[finer].Bilinear(u, v), levels[coarser].Bilinear(u, v),
             lod - static_cast<double>(finer));
}

// A paved plane that runs to the horizon, seen from above it.
Colour PlaneColour(const std::vector<Level>& levels, int x, int y, const Filter& filter) {
  constexpr double kHorizon = 22;      // pixels from the top
  constexpr double kFocus = 210;       // pixels
  constexpr double kEyeHeight = 0.55;  // in textures
  constexpr Colour kSky = {0.62, 0.76, 0.90};
  const double below = y + 0.5 - kHorizon;
  if (below <= 0) return kSky;
  const double distance = kFocus * kEyeHeight / below;
  const double across = (x + 0.5 - kWidth / 2.0) * distance / kFocus;
  // The longer side of the pixel on the texture decides, as a card without anisotropy does it.
  const double pixel = std::max(distance / kFocus, distance / below) * kTextureSide;
  const double lod = filter.has_mipmaps ? std::log2(pixel) + filter.bias : 0;
  const Colour ground = Trilinear(levels, across, distance, lod);
  constexpr double kHaze = 14;  // textures away
  return Mix(ground, kSky, std::min(1.0, distance / kHaze));
}

QImage Draw(const std::vector<Level>& levels, const Filter& left, const Filter& right) {
  const auto byte = [](double part) { return static_cast<int>(std::lround(part * 255)); };
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const Colour colour = PlaneColour(levels, x, y, x < kWidth / 2 ? left : right);
      image.setPixel(x, y, qRgb(byte(colour.red), byte(colour.green), byte(colour.blue)));
    }
  }
  return image;
}

struct Picture {
  const char* name;
  Filter left;
  Filter right;
};

constexpr Picture kPictures[] = {{"high_lod", {-1.5}, {-1.5}},
                                 {"normal_lod", {}, {}},
                                 {"low_lod", {2}, {2}},
                                 {"mipmap", {0, false}, {}}};

}  // namespace

QString WriteLodPictures(const QString& folder) {
  const std::vector<Level> levels = MakeLevels();
  for (const Picture& picture : kPictures) {
    const QImage image = Draw(levels, picture.left, picture.right);
    QString failure = WritePicture(image, folder, QString::fromLatin1(picture.name));
    if (!failure.isEmpty()) return failure;
  }
  return {};
}

}  // namespace kestrune::pictures
