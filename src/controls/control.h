#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrune::controls {

/// A place in twips (15 twips are one pixel at 96 dpi), relative to the parent's corner.
struct Rect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  bool operator==(const Rect&) const = default;
};

class ControlVisitor;

/// Ends an observation when it is destroyed. It must not outlive the control.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::function<void()> end) : end_(std::move(end)) {}
  Subscription(Subscription&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    std::swap(end_, other.end_);
    return *this;
  }
  ~Subscription() {
    if (end_) end_();
  }

 private:
  std::function<void()> end_;
};

/// What every control has: an id that never changes, a parent, a caption, a place, and whether it
/// is enabled and visible.
///
/// A control changes in one of three ways. *Used*: a person acts on it; its handler runs.
/// *Passed on*: a handler changes it and means its handler to run; that happens when the value
/// really changes. *Shown*: code sets it; no handler runs. Every setter here is of the last kind.
/// Observers (a face's redraws) run on every real change of whatever kind.
class Control {
 public:
  Control(std::string id, Control* parent) : id_(std::move(id)), parent_(parent) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& Id() const { return id_; }
  Control* Parent() const { return parent_; }
  /// The outermost of what it stands in, which is its window; itself where it stands in nothing.
  const Control& Root() const;
  const std::string& Caption() const { return caption_; }
  const std::string& ToolTip() const { return tool_tip_; }
  /// The control whose name this one's caption is, said before either is drawn; null for none.
  const Control* Names() const { return names_; }
  const Rect& Bounds() const { return bounds_; }
  bool Enabled() const { return enabled_; }
  bool Visible() const { return visible_; }
  /// Enabled and visible, and so is everything that it stands in.
  bool Usable() const;

  void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }
  void SetToolTip(std::string tip) { Assign(tool_tip_, std::move(tip)); }
  void SetNames(const Control* control) { names_ = control; }
  void SetBounds(const Rect& bounds) { Assign(bounds_, bounds); }
  void SetEnabled(bool enabled) { Assign(enabled_, enabled); }
  void SetVisible(bool visible) { Assign(visible_, visible); }

  /// The mouse moves over the control.
  void Hover() {
    if (on_hover) on_hover();
  }
  /// The control is clicked. Only buttons, keys, options, labels and pictures take clicks.
  void Click() {
    if (on_click) on_click();
  }

  /// Calls `redraw` after each change of the control until the subscription ends.
  [[nodiscard]] Subscription Observe(std::function<void()> redraw);

  /// The value as the page shows it: "on" or "off", a number, or the shown text.
  virtual std::string ValueText() const { return caption_; }
  virtual void Accept(ControlVisitor& visitor) = 0;

  std::function<void()> on_hover;
  std::function<void()> on_click;

 protected:
  /// Takes a new value and tells the observers; false when it is the old one.
  template <typename T>
  bool Assign(T& member, T value) {
    if (member == value) return false;
    member = std::move(value);
    Notify();
    return true;
  }
  void Notify();

 private:
  struct Observer {
    int number;
    std::function<void()> redraw;
  };

  std::string id_;
  Control* parent_;
  std::string caption_;
  std::string tool_tip_;
  Rect bounds_;
  const Control* names_ = nullptr;
  bool enabled_ = true;
  bool visible_ = true;
  std::vector<Observer> observers_;
  int last_observer_ = 0;
};

}  // namespace kestrune::controls
