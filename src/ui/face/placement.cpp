#include "ui/face/placement.h"

#include <algorithm>

namespace kestrune::face {

bool StandsBesideOwner(const controls::Window& window) {
  if (window.Owner() == nullptr) return false;
  const controls::Rect& owner = window.Owner()->Bounds();
  return window.Bounds().left == owner.left + owner.width && window.Bounds().top == owner.top;
}

PixelRect Beside(const PixelRect& owner, const PixelRect& window, const PixelRect& work_area) {
  const int right = work_area.left + work_area.width;
  const int lowest = work_area.top + work_area.height - window.height;
  const int top = std::max(work_area.top, std::min(owner.top, lowest));
  const int at_right = owner.left + owner.width;
  const int at_left = owner.left - window.width;
  if (at_right >= work_area.left && at_right + window.width <= right) {
    return {at_right, top, window.width, window.height};
  }
  if (at_left >= work_area.left && at_left + window.width <= right) {
    return {at_left, top, window.width, window.height};
  }
  return {std::max(work_area.left, right - window.width), std::max(work_area.top, lowest),
          window.width, window.height};
}

PixelRect Fitted(const PixelRect& content, const PixelRect& room, int scroll_bar) {
  const bool is_too_wide = content.width > room.width;
  const bool is_too_high = content.height > room.height;
  const int width = content.width + (is_too_high ? scroll_bar : 0);
  const int height = content.height + (is_too_wide ? scroll_bar : 0);
  return {content.left, content.top, std::min(width, room.width), std::min(height, room.height)};
}

}  // namespace kestrune::face
