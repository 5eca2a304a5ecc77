#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/controls.h"

namespace kestrune::forms {

enum class Kind {
  kCheck,
  kOption,
  kCombo,
  kEditableCombo,
  kList,
  kSlider,
  kText,
  kLabel,
  kHeading,
  kButton,
  kPicture,
  kFrame,
  kKey,
  kWindow,
};

/// One control of a window's or a page's table. Tables are in tab order.
struct ControlSpec {
  Kind kind;
  std::string_view id;         ///< the whole id
  std::string_view parent;     ///< id of the window, page, frame or toolbar button it stands in
  controls::Rect bounds;       ///< twips, relative to the parent
  std::string_view caption;    ///< design caption, replaced by the language's text at start
  std::string_view text = {};  ///< initial text of a combo or a text box
  int minimum = 0;             ///< of a slider
  int maximum = 0;
  int value = 0;  ///< of a slider, a check box (0, 1) or an option (0, 1)
  bool enabled = true;
  bool visible = true;
};

/// Controls in tab order, the window or page that holds them first. They exist from the start;
/// a face makes widgets of them when they are first shown.
class Form {
 public:
  Form() = default;
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::vector<std::unique_ptr<controls::Control>>& Controls() const { return controls_; }
  /// The control with that id, or null.
  controls::Control* Find(std::string_view id) const;
  /// The control with that id, which must exist and be of that kind; anything else is a fault of
  /// the program's own tables and ends it.
  template <typename T>
  T& Get(std::string_view id) const {
    T* control = dynamic_cast<T*>(Find(id));
    if (control == nullptr) MissingControl(id);
    return *control;
  }

 protected:
  void Add(std::span<const ControlSpec> specs);

 private:
  [[noreturn]] static void MissingControl(std::string_view id);

  std::vector<std::unique_ptr<controls::Control>> controls_;
};

}  // namespace kestrune::forms
