#pragma once

#include "controls/controls.h"
#include "ui/face/scale.h"

namespace kestrune::face {

/// Whether a form puts its window right beside its owner, so that the face sees to there being
/// room.
bool StandsBesideOwner(const controls::Window& window);

/// Where a window stands beside its owner: at the right where the work area has room, else at the
/// left, else in the work area's lower right corner, far from the owner's own close box. In pixels,
/// with the frames of both windows.
PixelRect Beside(const PixelRect& owner, const PixelRect& window, const PixelRect& work_area);

/// The size on the screen of a window with a content so large. Where the room is less, the window
/// scrolls, and is wider or higher by the scroll bar that it then has, as far as there is room.
PixelRect Fitted(const PixelRect& content, const PixelRect& room, int scroll_bar);

}  // namespace kestrune::face
