#include "scene.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>

namespace kestrune::pictures {
namespace {

constexpr Colour kSkyTop{0.72, 0.84, 0.95};
constexpr Colour kSkyBottom{0.97, 0.98, 0.99};
constexpr Colour kGrass{0.16, 0.27, 0.15};
constexpr Colour kSlate{0.13, 0.16, 0.22};
constexpr Colour kWindow{0.95, 0.80, 0.42};
constexpr Colour kWire{0.07, 0.07, 0.09};
constexpr Colour kRust{0.55, 0.20, 0.12};
constexpr Colour kBoard{0.08, 0.10, 0.33};
constexpr Colour kWhite{1.0, 1.0, 1.0};
constexpr Colour kLeaf{0.10, 0.33, 0.10};
constexpr Colour kLeafLit{0.24, 0.48, 0.13};

// One polygon or group of polygons. Surfaces hide those that come after them in the scene.
struct Surface {
  bool (*covers)(Point sample);
  bool (*passesAlphaTest)(Point fragment);  // nullptr: no cut-out texture
  Colour (*colour)(Point fragment);
};

struct Stroke {
  Point from;
  Point to;
  double width;  // pixels
};

// An upright wall that recedes towards a vanishing point. `base` and `top` are its near end;
// `unitsPerDoubling` is the length of wall at which it appears half as high.
struct Wall {
  Point vanishing;
  Point base;
  Point top;
  double unitsPerDoubling;
};

// Position on a wall: units along it from the near end, and height as a fraction of the wall's.
struct WallPosition {
  double along;
  double height;
};

double Fraction(double value) { return value - std::floor(value); }

Colour Mix(Colour first, Colour second, double share) {
  return {std::lerp(first.red, second.red, share), std::lerp(first.green, second.green, share),
          std::lerp(first.blue, second.blue, share)};
}

// The corners of a convex polygon run clockwise on the screen.
bool InsideConvex(std::span<const Point> corners, Point p) {
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Point a = corners[i];
    const Point b = corners[(i + 1) % corners.size()];
    if ((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x) < 0) return false;
  }
  return true;
}

bool InsideStroke(const Stroke& stroke, Point p) {
  const double dx = stroke.to.x - stroke.from.x;
  const double dy = stroke.to.y - stroke.from.y;
  const double length = std::hypot(dx, dy);
  const double along = ((p.x - stroke.from.x) * dx + (p.y - stroke.from.y) * dy) / length;
  const double across = ((p.x - stroke.from.x) * dy - (p.y - stroke.from.y) * dx) / length;
  return along >= 0 && along <= length && std::abs(across) <= stroke.width / 2;
}

bool InsideAnyStroke(std::span<const Stroke> strokes, Point p) {
  return std::ranges::any_of(strokes, [p](const Stroke& s) { return InsideStroke(s, p); });
}

WallPosition OnWall(const Wall& wall, Point p) {
  const double scale = (p.x - wall.vanishing.x) / (wall.base.x - wall.vanishing.x);
  if (scale <= 0) return {std::numeric_limits<double>::infinity(), -1};
  const double base = wall.vanishing.y + (wall.base.y - wall.vanishing.y) * scale;
  const double top = wall.vanishing.y + (wall.top.y - wall.vanishing.y) * scale;
  return {(1 / scale - 1) * wall.unitsPerDoubling, (base - p.y) / (base - top)};
}

// A fixed pseudo-random number from 0 to 1 for a cell of a grid.
double CellNoise(int column, int row, std::uint32_t salt) {
  std::uint32_t h = static_cast<std::uint32_t>(column) * 0x8DA6B343u ^
                    static_cast<std::uint32_t>(row) * 0xD8163841u ^ salt * 0xCB1AB31Fu;
  h = (h ^ (h >> 16)) * 0x7FEB352Du;
  h = (h ^ (h >> 15)) * 0x846CA68Bu;
  return (h ^ (h >> 16)) / 4294967295.0;
}

constexpr std::array kGround{Point{0, 101.3}, Point{234, 94.6}, Point{234, 138}, Point{0, 138}};
constexpr std::array kTower{Point{21, 22}, Point{43, 19.6}, Point{50, 118}, Point{11, 118}};
constexpr std::array kTowerSide{Point{43, 19.6}, Point{49, 23}, Point{59, 116}, Point{50, 118}};
constexpr std::array kBillboard{Point{158, 9}, Point{229, 5}, Point{231, 55}, Point{156, 52}};

bool OnTowerWindow(Point p) {
  constexpr double kFloor = 7, kTopFloor = 28, kBottomFloor = 112, kMiddle = 31;
  const double widening = 1 + (p.y - kTopFloor) / 105;
  const double column = (p.x - kMiddle) / widening;
  return p.y > kTopFloor && p.y < kBottomFloor && std::abs(column) < 9 &&
         Fraction((p.y - kTopFloor) / kFloor) < 0.45 && Fraction(column / 4.5) < 0.5;
}

// Overhead lines, mast and stays: about a pixel wide and close to the pixel grid's directions,
// where stairs and gaps show most.
constexpr std::array kThinLines{
    Stroke{{32, 21}, {36, 1}, 1.1},       Stroke{{35, 5}, {17, 40}, 0.5},
    Stroke{{35, 5}, {56, 40}, 0.5},       Stroke{{27, 24.5}, {234, 0.5}, 0.8},
    Stroke{{46, 27.5}, {160, 13.5}, 0.8}, Stroke{{46, 30.5}, {160, 19.3}, 0.55},
    Stroke{{0, 92.2}, {16, 91.4}, 0.9},   Stroke{{0, 84}, {17, 82.7}, 0.9},
};

constexpr Point kFanCentre{160, 50.5};
constexpr int kFanLines = 15;
constexpr double kFanReach = 92;  // pixels

bool InsideFan(Point p) {
  constexpr double kQuarterTurn = 1.5707963267948966;
  for (int i = 0; i < kFanLines; ++i) {
    const double angle = kQuarterTurn * (i + 0.35) / kFanLines;
    const Point end{kFanCentre.x + kFanReach * std::cos(angle),
                    kFanCentre.y - kFanReach * std::sin(angle)};
    if (InsideStroke({kFanCentre, end, 0.9}, p)) return true;
  }
  return false;
}

// Paling fence: white boards on grass, closer and closer together towards the left.
constexpr Wall kFence{{64, 101}, {240, 137}, {240, 104}, 9.0};

bool InsideFence(Point p) {
  constexpr double kBoardWidth = 0.42, kTip = 0.16, kLength = 110;
  constexpr double kRails[][2] = {{0.22, 0.31}, {0.62, 0.71}};
  const WallPosition at = OnWall(kFence, p);
  if (at.along < 0 || at.along > kLength || at.height < 0) return false;
  const double fromMiddle = std::abs(Fraction(at.along) - 0.5);
  const double tip = 1 - kTip * fromMiddle / (kBoardWidth / 2);
  if (fromMiddle < kBoardWidth / 2 && at.height < tip) return true;
  return std::ranges::any_of(
      kRails, [&](auto& rail) { return at.height > rail[0] && at.height < rail[1]; });
}

// Chain-link panel: one polygon whose wires are cut out by the alpha test, with posts and a top
// rail that are geometry.
constexpr Wall kChainLink{{420, 84}, {66, 104}, {66, 40}, 74.0};
constexpr double kChainLinkLength = 27;
constexpr std::array kPosts{
    Stroke{{66.4, 106}, {64.7, 37}, 1.6},
    Stroke{{108.2, 104}, {108.9, 42}, 1.3},
    Stroke{{159.6, 100}, {160.4, 50}, 1.1},
    Stroke{{64.5, 39.3}, {160.8, 51.4}, 1.2},
};

bool InsideChainLink(Point p) {
  const WallPosition at = OnWall(kChainLink, p);
  return at.along >= 0 && at.along <= kChainLinkLength && at.height >= 0 && at.height <= 1;
}

bool OnChainLinkWire(Point p) {
  constexpr double kMeshesHigh = 8, kWireWidth = 0.17;
  const WallPosition at = OnWall(kChainLink, p);
  const double rising = at.along * 0.5 + at.height * kMeshesHigh;
  const double falling = at.along * 0.5 - at.height * kMeshesHigh;
  return Fraction(rising) < kWireWidth || Fraction(falling) < kWireWidth;
}

// Shrub: a square polygon with leaves cut out by the alpha test.
constexpr Point kShrubCentre{199, 79};
constexpr double kShrubRadius = 23;
constexpr double kLeafSpacing = 3.4;

bool InsideShrub(Point p) {
  return std::max(std::abs(p.x - kShrubCentre.x), std::abs(p.y - kShrubCentre.y)) <= kShrubRadius;
}

bool InsideLeaf(Point p, int column, int row) {
  constexpr double kLength = 2.5, kWidth = 0.85;
  const Point leaf{(column + CellNoise(column, row, 1)) * kLeafSpacing,
                   (row + CellNoise(column, row, 2)) * kLeafSpacing};
  if (std::hypot(leaf.x, leaf.y * 1.15) > kShrubRadius - kLength) return false;
  const double angle = 6.283185307179586 * CellNoise(column, row, 3);
  const double dx = p.x - leaf.x, dy = p.y - leaf.y;
  const double along = (dx * std::cos(angle) + dy * std::sin(angle)) / kLength;
  const double across = (dy * std::cos(angle) - dx * std::sin(angle)) / kWidth;
  return along * along + across * across < 1;
}

bool OnLeaf(Point position) {
  const Point p{position.x - kShrubCentre.x, position.y - kShrubCentre.y};
  const int column = static_cast<int>(std::floor(p.x / kLeafSpacing));
  const int row = static_cast<int>(std::floor(p.y / kLeafSpacing));
  for (int i = -1; i <= 1; ++i) {
    for (int j = -1; j <= 1; ++j) {
      if (InsideLeaf(p, column + i, row + j)) return true;
    }
  }
  return false;
}

constexpr std::array kTrunk{
    Stroke{{198, 99}, {199.5, 76}, 2.2},
    Stroke{{199, 84}, {209, 68}, 1.0},
    Stroke{{199, 82}, {190, 69}, 1.0},
};

Colour SkyColour(Point p) { return Mix(kSkyTop, kSkyBottom, std::clamp(p.y / 95, 0.0, 1.0)); }
Colour TowerColour(Point p) { return OnTowerWindow(p) ? kWindow : kSlate; }
Colour LeafColour(Point p) {
  return Mix(kLeafLit, kLeaf, std::clamp((p.y - kShrubCentre.y) / kShrubRadius + 0.5, 0.0, 1.0));
}

constexpr std::array kSurfaces{
    Surface{InsideFence, nullptr, [](Point) { return kWhite; }},
    Surface{[](Point p) { return InsideAnyStroke(kPosts, p); }, nullptr,
            [](Point) { return kRust; }},
    Surface{InsideChainLink, OnChainLinkWire, [](Point) { return kWire; }},
    Surface{InsideShrub, OnLeaf, LeafColour},
    Surface{[](Point p) { return InsideAnyStroke(kTrunk, p); }, nullptr,
            [](Point) { return kWire; }},
    Surface{[](Point p) { return InsideConvex(kBillboard, p) && InsideFan(p); }, nullptr,
            [](Point) { return kWhite; }},
    Surface{[](Point p) { return InsideConvex(kBillboard, p); }, nullptr,
            [](Point) { return kBoard; }},
    Surface{[](Point p) { return InsideConvex(kTower, p); }, nullptr, TowerColour},
    Surface{[](Point p) { return InsideConvex(kTowerSide, p); }, nullptr,
            [](Point) { return kWire; }},
    Surface{[](Point p) { return InsideAnyStroke(kThinLines, p); }, nullptr,
            [](Point) { return kWire; }},
    Surface{[](Point p) { return InsideConvex(kGround, p); }, nullptr,
            [](Point) { return kGrass; }},
};

}  // namespace

Colour SceneColour(Point sample, Point fragment) {
  for (const Surface& surface : kSurfaces) {
    if (!surface.covers(sample)) continue;
    if (surface.passesAlphaTest != nullptr && !surface.passesAlphaTest(fragment)) continue;
    return surface.colour(fragment);
  }
  return SkyColour(fragment);
}

}  // namespace kestrune::pictures
