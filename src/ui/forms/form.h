#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control_set.h"
#include "controls/controls.h"
#include "lang/language.h"
#include "ui/forms/control_row.h"

namespace kestrune::forms {

struct Shared;

/// What a window does beyond what its rows say. It connects its controls' handlers when it is made
/// and lives as long as the program.
class WindowPart {
 public:
  virtual ~WindowPart() = default;
  /// Runs when the window is loaded, from its design state.
  virtual void Load() {}
};

/// A key combination of a window and what it does: modifiers in the order Ctrl, Alt, Shift and a
/// key's name, such as "Ctrl+PageUp".
struct ShortcutRow {
  std::string_view keys;
  Action action;
};

/// A window as a row: its own control, what stands in it, and what it does.
struct WindowRow {
  ControlRow window;
  std::span<const ControlRow> controls;
  std::string_view owner = {};  ///< id of the window that it belongs to
  bool modal = false;           ///< takes the acts from all other windows while it is open
  bool resizable = false;
  std::string_view default_key = {};  ///< id of the button that Enter presses
  std::string_view cancel_key = {};   ///< id of the button that Esc presses
  std::string_view opened_by = {};    ///< id of the key or button that opens it
  /// Id of a control of the owner: a script opens the window by its name while that can be used.
  std::string_view opened_beside = {};
  std::span<const ShortcutRow> shortcuts = {};
  /// Makes the window's part; null where another part of the program sees to it.
  std::unique_ptr<WindowPart> (*make)(const Shared&) = nullptr;
};

/// Controls in tab order, made from rows, the window that holds them first. They exist from the
/// start; a face makes widgets of them when they are first shown.
class Form {
 public:
  explicit Form(const WindowRow& row);
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const WindowRow& WindowsRow() const { return window_row_; }
  controls::Window& TheWindow() const;
  const std::vector<std::unique_ptr<controls::Control>>& Controls() const { return controls_; }
  /// The rows of the controls, place by place.
  const std::vector<ControlRow>& Rows() const { return rows_; }
  /// The control with that id, or null.
  controls::Control* Find(std::string_view id) const { return set_.Find(id); }
  /// The control with that id, which must exist and be of that kind.
  template <typename T>
  T& Get(std::string_view id) const {
    return set_.Get<T>(id);
  }
  /// Makes the controls known to a set.
  void AddTo(controls::ControlSet& set) const;

  /// Puts the interface texts on the controls. An empty text empties its caption.
  void ShowTexts(const lang::LangTable& lang_text) const;
  /// Puts everything but the window's visibility back to what the rows say, with the texts.
  void Reset(const lang::LangTable& lang_text) const;

 protected:
  void Add(std::span<const ControlRow> rows);
  void Add(const ControlRow& row) { Add(std::span(&row, 1)); }

 private:
  const WindowRow& window_row_;
  std::vector<ControlRow> rows_;
  std::vector<std::unique_ptr<controls::Control>> controls_;
  controls::ControlSet set_;
};

}  // namespace kestrune::forms
