// The sample scene of the antialiasing pictures, as a function of position: nothing in it is
// stored as pixels, so a sampling pattern may ask for its colour anywhere.
#pragma once

namespace kestrune::pictures {

// Position in the scene. Unit: pixels of the unmagnified picture, origin at the top left corner,
// y downwards; pixel (0, 0) covers 0 <= x < 1, 0 <= y < 1.
struct Point {
  double x;
  double y;
};

// Red, green and blue from 0 to 1, as a frame buffer of the time stores them (not linear light).
struct Colour {
  double red;
  double green;
  double blue;
};

inline constexpr int kSceneWidth = 234;
inline constexpr int kSceneHeight = 138;

// What a coverage sample at `sample` stores when the fragment that it belongs to is textured at
// `fragment`. Polygon edges are tested at `sample`; textures, the alpha test included, are looked
// up at `fragment`. With both positions equal this is plain point sampling.
Colour SceneColour(Point sample, Point fragment);

}  // namespace kestrune::pictures
