#pragma once

namespace kestrune::face {

/// A colour, each part from 0 to 1.
struct Colour {
  double red = 0;
  double green = 0;
  double blue = 0;
};

/// The least contrast of what a person reads, of what is disabled, and of lines that show where
/// something is.
inline constexpr double kTextContrast = 4.5;
inline constexpr double kDisabledContrast = 3.0;
inline constexpr double kLineContrast = 3.0;

/// The contrast ratio of two colours, as the Web Content Accessibility Guidelines define it: from 1
/// to 21.
double Contrast(const Colour& one, const Colour& other);

/// The colour, or the nearest one between it and black or white that has so much contrast to the
/// ground. Black or white itself where none has as much.
Colour Contrasting(const Colour& colour, const Colour& ground, double ratio);

}  // namespace kestrune::face
