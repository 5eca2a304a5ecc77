#pragma once

#include <string_view>

#include "controls/controls.h"

namespace kestrune::forms {

enum class Kind {
  kCheck,
  kOption,
  kCombo,
  kEditableCombo,
  kList,
  kPlaces,  ///< a list whose lines lead elsewhere
  kSlider,
  kScrollBar,
  kText,
  kReadOnlyText,
  kLabel,
  kHeading,
  kLink,  ///< a label that is clicked
  kEdge,  ///< a label that reacts to the mouse over it
  kButton,
  kPicture,
  kGraph,
  kBar,
  kFrame,
  kKey,
  kWindow,
};

/// What a click does, where it is no more than one of these.
struct Action {
  enum class Kind {
    kNone,                  ///< whatever the control's own handler does
    kShowPage,              ///< goes to the page with the id `target`
    kShowOwnPage,           ///< goes to the page whose row names this key
    kRunCommand,            ///< starts the command line `target`, minimised
    kOpenControlPanelItem,  ///< `target` is the item
    kOpenDocument,          ///< `target` is a program file, opened by its default program
    kOpenWindow,            ///< `target` is the window's id
    kCloseWindow,           ///< as the close box of the window that it stands in does
    kShowPageBefore,        ///< goes to the page before, by index, that the window can reach
    kShowPageAfter,         ///< likewise to the one after
    kStepBack,              ///< closes help, else the window, unless that is the main one
    kExplain,               ///< shows the help topic of the control with the focus
    kReadAgain,             ///< shows the driver's and the control panel's values as they are now
  };
  Kind kind = Kind::kNone;
  std::string_view target = {};
};

inline constexpr int kNoText = -1;
/// Says of a caption that code alone makes it.
inline constexpr int kFilledText = -2;
inline constexpr int kNoTopic = -1;

/// Everything that is said of a control beside what its handlers do. Tables of rows are in tab
/// order, the window or page that holds them first.
///
/// `text` is the number of the interface text that start-up makes the caption of it. A control
/// without one, or whose caption is filled later, keeps its design caption until then.
struct ControlRow {
  Kind kind;
  std::string_view id;      ///< the whole id
  std::string_view parent;  ///< id of the window, page, frame or toolbar button it stands in
  controls::Rect bounds;    ///< twips, relative to the parent
  int text = kNoText;
  std::string_view design = {};
  std::string_view initial = {};  ///< text of a combo or a text box
  std::string_view names = {};    ///< id of the control whose name its caption is
  int tip = kNoText;              ///< interface text that is its tool tip
  int help = kNoTopic;            ///< topic that a mouse over it shows
  int minimum = 0;                ///< of a slider
  int maximum = 0;
  int value = 0;  ///< of a slider, a check box (0, 1) or an option (0, 1)
  bool enabled = true;
  bool visible = true;
  Action action = {};
  std::string_view default_key = {};  ///< of a text box: id of the button that Enter in it presses

  constexpr ControlRow Design(std::string_view caption) const {
    ControlRow row = *this;
    row.design = caption;
    return row;
  }
  constexpr ControlRow Initial(std::string_view text_at_first) const {
    ControlRow row = *this;
    row.initial = text_at_first;
    return row;
  }
  constexpr ControlRow Names(std::string_view control) const {
    ControlRow row = *this;
    row.names = control;
    return row;
  }
  constexpr ControlRow Tip(int number) const {
    ControlRow row = *this;
    row.tip = number;
    return row;
  }
  constexpr ControlRow Help(int topic) const {
    ControlRow row = *this;
    row.help = topic;
    return row;
  }
  constexpr ControlRow Range(int lowest, int highest, int at_first) const {
    ControlRow row = *this;
    row.minimum = lowest;
    row.maximum = highest;
    row.value = at_first;
    return row;
  }
  constexpr ControlRow Chosen() const {
    ControlRow row = *this;
    row.value = 1;
    return row;
  }
  constexpr ControlRow Disabled() const {
    ControlRow row = *this;
    row.enabled = false;
    return row;
  }
  constexpr ControlRow Hidden() const {
    ControlRow row = *this;
    row.visible = false;
    return row;
  }
  constexpr ControlRow Enters(std::string_view button) const {
    ControlRow row = *this;
    row.default_key = button;
    return row;
  }
  constexpr ControlRow Does(Action::Kind what, std::string_view target = {}) const {
    ControlRow row = *this;
    row.action = {what, target};
    return row;
  }
};

constexpr ControlRow Row(Kind kind, std::string_view id, std::string_view parent,
                         controls::Rect bounds, int text = kNoText) {
  return {.kind = kind, .id = id, .parent = parent, .bounds = bounds, .text = text};
}

}  // namespace kestrune::forms
