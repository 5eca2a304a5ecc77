#include "sampling.h"

#include <algorithm>
#include <array>

namespace kestrune::pictures {
namespace {

// Sources of the rows are in docs/antialiasing-pictures.md, with what in them is approximated.
constexpr std::array kModes{
    Mode{"auto", Grid::kCentre, 1, 1, Resolve::kBox, 1},
    Mode{"Disabled", Grid::kCentre, 1, 1, Resolve::kBox, 1},
    // The diagonal pair of every chip from GeForce4 on.
    Mode{"2x", Grid::kRotated2, 1, 1, Resolve::kBox, 1},
    Mode{"Quincunx", Grid::kRotated2, 1, 1, Resolve::kFiveTap, 1},
    // GeForce 6 and 7; GeForce3 to FX put the four samples on an ordered grid.
    Mode{"4x", Grid::kRotated4, 1, 1, Resolve::kBox, 1},
    // "4x Gaussian multisampling" of the driver manual: the filter needs the ordered grid.
    Mode{"4x 9-tap", Grid::kOrdered4, 1, 1, Resolve::kNineTap, 1},
    // 2x multisampling in two fragments, one above the other (GeForce4 Ti and FX reviews).
    Mode{"4xS", Grid::kRotated2, 1, 2, Resolve::kBox, 1},
    // 2x multisampling in three fragments side by side (GeForce FX reviews).
    Mode{"6xS", Grid::kRotated2, 3, 1, Resolve::kBox, 1},
    // 4x multisampling by 2x supersampling (driver manual, mode 8).
    Mode{"8xS", Grid::kRotated4, 1, 2, Resolve::kBox, 1},
    // 2x multisampling by 4x supersampling (driver manual, mode 6).
    Mode{"8x", Grid::kRotated2, 2, 2, Resolve::kBox, 1},
    // 4x multisampling by 4x supersampling (driver manual, mode 7).
    Mode{"16x", Grid::kRotated4, 2, 2, Resolve::kBox, 1},
    // Each processor renders the mode of half the number; the stored mode code is the same.
    Mode{"SLI 4x", Grid::kRotated2, 1, 1, Resolve::kBox, 2},
    Mode{"SLI 4xQ", Grid::kRotated2, 1, 1, Resolve::kFiveTap, 2},
    Mode{"SLI 8x", Grid::kRotated4, 1, 1, Resolve::kBox, 2},
    Mode{"SLI 8xG", Grid::kOrdered4, 1, 1, Resolve::kNineTap, 2},
    Mode{"SLI 8xS", Grid::kRotated2, 1, 2, Resolve::kBox, 2},
    Mode{"SLI 12xS", Grid::kRotated2, 3, 1, Resolve::kBox, 2},
    Mode{"SLI 16x", Grid::kRotated4, 1, 2, Resolve::kBox, 2},
    Mode{"SLI 32x", Grid::kRotated4, 2, 2, Resolve::kBox, 2},
};

// Sample positions in a fragment, in sixteenths of its width and height, and the number of
// distinct rows (and columns) that they occupy.
struct GridLayout {
  std::span<const Point> samples;
  int planes;
};

constexpr std::array kCentreSamples{Point{8, 8}};
constexpr std::array kRotated2Samples{Point{4, 4}, Point{12, 12}};
constexpr std::array kOrdered4Samples{Point{4, 4}, Point{12, 4}, Point{4, 12}, Point{12, 12}};
constexpr std::array kRotated4Samples{Point{6, 2}, Point{14, 6}, Point{2, 10}, Point{10, 14}};

// In the order of Grid.
constexpr std::array kGridLayouts{
    GridLayout{kCentreSamples, 1},
    GridLayout{kRotated2Samples, 2},
    GridLayout{kOrdered4Samples, 2},
    GridLayout{kRotated4Samples, 4},
};

constexpr const GridLayout& LayoutOf(Grid grid) {
  return kGridLayouts[static_cast<std::size_t>(grid)];
}

// One term of a resolve filter: a sample of the fragment that many columns and rows away.
struct Tap {
  int column;
  int row;
  std::size_t sample;
  double weight;
};

// The second sample of the pair lies in the middle of the four first samples around it.
constexpr std::array kFiveTaps{
    Tap{0, 0, 1, 1.0 / 2}, Tap{0, 0, 0, 1.0 / 8}, Tap{1, 0, 0, 1.0 / 8},
    Tap{0, 1, 0, 1.0 / 8}, Tap{1, 1, 0, 1.0 / 8},
};

// Centred on the fourth sample of the square; its neighbours at half a pixel are the other three
// and five samples of the fragments to the right and below.
constexpr std::array kNineTaps{
    Tap{0, 0, 0, 1.0 / 16}, Tap{0, 0, 1, 2.0 / 16}, Tap{1, 0, 0, 1.0 / 16},
    Tap{0, 0, 2, 2.0 / 16}, Tap{0, 0, 3, 4.0 / 16}, Tap{1, 0, 2, 2.0 / 16},
    Tap{0, 1, 0, 1.0 / 16}, Tap{0, 1, 1, 2.0 / 16}, Tap{1, 1, 0, 1.0 / 16},
};

constexpr bool WeightsAddUpToOne(std::span<const Tap> taps) {
  double sum = 0;
  for (const Tap& tap : taps) sum += tap.weight;
  return sum == 1;
}
static_assert(WeightsAddUpToOne(kFiveTaps) && WeightsAddUpToOne(kNineTaps));

// The first number in a mode's name, 0 when there is none.
constexpr std::size_t NumberIn(std::string_view name) {
  std::size_t number = 0;
  for (const char c : name) {
    const bool digit = c >= '0' && c <= '9';
    if (digit) number = number * 10 + static_cast<std::size_t>(c - '0');
    if (!digit && number > 0) break;
  }
  return number;
}

constexpr bool HasAsManySamplesAsItsName(const Mode& mode) {
  const auto fragments =
      static_cast<std::size_t>(mode.supersampleX) * static_cast<std::size_t>(mode.supersampleY);
  const std::size_t samples =
      LayoutOf(mode.grid).samples.size() * fragments * static_cast<std::size_t>(mode.subFrames);
  return NumberIn(mode.name) == 0 || NumberIn(mode.name) == samples;
}
static_assert(std::ranges::all_of(kModes, HasAsManySamplesAsItsName));

// The filters address samples of one particular grid, and neighbours that are whole pixels.
constexpr bool HasGridOfItsFilter(const Mode& mode) {
  if (mode.resolve == Resolve::kBox) return true;
  const Grid grid = mode.resolve == Resolve::kFiveTap ? Grid::kRotated2 : Grid::kOrdered4;
  return mode.grid == grid && mode.supersampleX == 1 && mode.supersampleY == 1;
}
static_assert(std::ranges::all_of(kModes, HasGridOfItsFilter));

std::vector<Tap> TapsOf(const Mode& mode) {
  switch (mode.resolve) {
    case Resolve::kFiveTap:
      return {kFiveTaps.begin(), kFiveTaps.end()};
    case Resolve::kNineTap:
      return {kNineTaps.begin(), kNineTaps.end()};
    case Resolve::kBox:
      break;
  }
  const std::size_t count = LayoutOf(mode.grid).samples.size();
  std::vector<Tap> taps;
  for (std::size_t i = 0; i < count; ++i)
    taps.push_back({0, 0, i, 1.0 / static_cast<double>(count)});
  return taps;
}

// What a sub-frame adds to every sample and texture position, in pixels. The two sub-frames lie
// half the distance of two textured positions apart, less half the distance of two sample planes:
// then no sample of one shares a row or a column with one of the other. The shifts in x and y have
// opposite signs, else a diagonal pair would become four samples on one diagonal.
Point SubFrameShift(const Mode& mode, int subFrame) {
  if (mode.subFrames == 1) return {0, 0};
  const double planes = LayoutOf(mode.grid).planes;
  const double share = (1 - 1 / planes) / 2 * (subFrame - 0.5);
  return {share / mode.supersampleX, -share / mode.supersampleY};
}

void Add(Colour& sum, Colour term, double weight) {
  sum.red += term.red * weight;
  sum.green += term.green * weight;
  sum.blue += term.blue * weight;
}

// The multisample buffer of one sub-frame: per fragment as many colours as its grid has samples.
class SampleBuffer {
 public:
  SampleBuffer(const Mode& mode, int subFrame)
      : columns_(kSceneWidth * mode.supersampleX),
        rows_(kSceneHeight * mode.supersampleY),
        samples_(LayoutOf(mode.grid).samples) {
    const Point shift = SubFrameShift(mode, subFrame);
    for (int row = 0; row < rows_; ++row) {
      for (int column = 0; column < columns_; ++column) Rasterize(mode, shift, column, row);
    }
  }

  int columns() const { return columns_; }
  int rows() const { return rows_; }

  // The colour of a fragment after the resolve. At the right and lower border the fragment
  // itself stands in for the neighbour that isn't there.
  Colour Resolved(std::span<const Tap> taps, int column, int row) const {
    Colour sum{0, 0, 0};
    for (const Tap& tap : taps) {
      const int c = std::min(column + tap.column, columns_ - 1);
      const int r = std::min(row + tap.row, rows_ - 1);
      Add(sum, colours_[FirstSample(c, r) + tap.sample], tap.weight);
    }
    return sum;
  }

 private:
  std::size_t FirstSample(int column, int row) const {
    return (static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
            static_cast<std::size_t>(column)) *
           samples_.size();
  }

  void Rasterize(const Mode& mode, Point shift, int column, int row) {
    const auto position = [&](Point inFragment) {
      return Point{(column + inFragment.x / 16) / mode.supersampleX + shift.x,
                   (row + inFragment.y / 16) / mode.supersampleY + shift.y};
    };
    for (const Point& sample : samples_) {
      colours_.push_back(SceneColour(position(sample), position(kCentreSamples[0])));
    }
  }

  int columns_;
  int rows_;
  std::span<const Point> samples_;
  std::vector<Colour> colours_;
};

}  // namespace

std::span<const Mode> Modes() { return kModes; }

std::vector<Colour> Render(const Mode& mode) {
  const std::vector<Tap> taps = TapsOf(mode);
  const double share = 1.0 / (mode.supersampleX * mode.supersampleY * mode.subFrames);
  std::vector<Colour> pixels(static_cast<std::size_t>(kSceneWidth * kSceneHeight), Colour{0, 0, 0});
  for (int subFrame = 0; subFrame < mode.subFrames; ++subFrame) {
    const SampleBuffer buffer(mode, subFrame);
    for (int row = 0; row < buffer.rows(); ++row) {
      for (int column = 0; column < buffer.columns(); ++column) {
        const int pixel = row / mode.supersampleY * kSceneWidth + column / mode.supersampleX;
        Add(pixels[static_cast<std::size_t>(pixel)], buffer.Resolved(taps, column, row), share);
      }
    }
  }
  return pixels;
}

}  // namespace kestrune::pictures
