// Antialiasing modes as data, and the renderer that samples the scene as a mode would.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "scene.h"

namespace kestrune::pictures {

// Where the coverage samples of one fragment lie.
enum class Grid {
  kCentre,    // one sample in the middle
  kRotated2,  // two on a diagonal
  kOrdered4,  // four in a 2x2 square
  kRotated4,  // four in a turned square, each in a row and a column of its own
};

// How the coverage samples of a fragment, and those of its neighbours, become its colour.
enum class Resolve {
  kBox,      // mean of the fragment's own samples
  kFiveTap,  // Quincunx: half of one sample, an eighth of each of the four that surround it
  kNineTap,  // 3x3 binomial kernel over an ordered grid
};

// One antialiasing mode. A pixel is divided into supersampleX by supersampleY fragments, each
// textured once; `grid` lies in each fragment. With two sub-frames (two graphics processors) the
// scene is rendered twice with shifted samples and the two pictures are averaged.
struct Mode {
  std::string_view name;  // as the mode lists show it, and the name of the picture
  Grid grid;
  int supersampleX;
  int supersampleY;
  Resolve resolve;
  int subFrames;
};

// Every mode that a list offers; "auto" and "Disabled" sample without antialiasing.
std::span<const Mode> Modes();

// The scene as `mode` shows it: kSceneWidth by kSceneHeight colours, row by row.
std::vector<Colour> Render(const Mode& mode);

}  // namespace kestrune::pictures
