#include "ui/face/contrast.h"

#include <algorithm>
#include <cmath>

namespace kestrune::face {

namespace {

constexpr Colour kBlack = {0, 0, 0};
constexpr Colour kWhite = {1, 1, 1};

double Linear(double part) {
  return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(const Colour& colour) {
  return 0.2126 * Linear(colour.red) + 0.7152 * Linear(colour.green) + 0.0722 * Linear(colour.blue);
}

Colour Mixed(const Colour& from, const Colour& to, double share) {
  const auto mix = [share](double a, double b) { return a + (b - a) * share; };
  return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue)};
}

}  // namespace

double Contrast(const Colour& one, const Colour& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

Colour Contrasting(const Colour& colour, const Colour& ground, double ratio) {
  const bool to_white = Contrast(kWhite, ground) > Contrast(kBlack, ground);
  const Colour& end = to_white ? kWhite : kBlack;
  constexpr int kSteps = 50;
  for (int step = 0; step < kSteps; ++step) {
    const Colour mixed = Mixed(colour, end, static_cast<double>(step) / kSteps);
    if (Contrast(mixed, ground) >= ratio) return mixed;
  }
  return end;
}

}  // namespace kestrune::face
