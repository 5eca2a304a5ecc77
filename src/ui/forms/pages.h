#pragma once

#include <span>
#include <string_view>

#include "ui/forms/control_row.h"

namespace kestrune::forms {

struct PageGroups;

/// A toolbar group, whose pages the scroll bar steps through.
enum class Group { kUnsaid, kNone, kControlPanel, kDirect3D, kOpenGL, kInformation };

/// A page of the main window. Its index is its place among the rows.
struct PageRow {
  std::string_view id;
  int text;              ///< caption
  Group group;           ///< kNone is said by a page that stands alone
  int place;             ///< in its group, from 1
  std::string_view key;  ///< of the menu or toolbar that leads to it
  std::span<const ControlRow> controls;
  /// Runs whenever the page is shown; null where nothing does.
  void (*shown)(PageGroups&) = nullptr;

  /// The frame that is the page.
  ControlRow Frame() const;
};

extern const std::span<const PageRow> kPages;
/// How many pages there are.
inline int PageCount() { return static_cast<int>(kPages.size()); }

bool IsPage(int index);
/// The index of the page with that id; -1 for another id.
int PageIndex(std::string_view id);
inline bool IsPageId(std::string_view id) { return PageIndex(id) >= 0; }
/// How many pages a group has.
int SizeOf(Group group);

}  // namespace kestrune::forms
