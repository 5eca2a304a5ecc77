#pragma once

#include <functional>

#include "controls/controls.h"

namespace kestrune::controls {

/// Why an act was not done.
enum class Refusal {
  kNone,
  kWindowClosed,
  kBehindModal,  ///< another window takes all acts
  kHidden,       ///< itself, or something that it stands in
  kDisabled,     ///< likewise
  kBusy,         ///< another act is still being done, with a message or a program to wait for
  kNotTaken,     ///< the control can't take what it was given
};

/// The one way by which a person's act, in a face or in a step of a script, reaches a control.
/// Hovering is no act and needs no gate.
class Gate {
 public:
  Gate() = default;
  Gate(const Gate&) = delete;
  Gate& operator=(const Gate&) = delete;

  /// What a control itself and its windows put in the way of acts on it.
  Refusal Check(const Control& control) const;
  /// Runs the act where nothing stands in its way; one that comes while another is being done is
  /// dropped. `act` uses the control and says whether the
  /// control took it.
  Refusal Act(const Control& control, const std::function<bool()>& act);
  /// Uses a shortcut, which counts as an act of its control.
  Refusal Act(const Shortcut& shortcut);

  /// The control whose act is being done; null while there is none.
  const Control* Acting() const { return acting_; }

  /// The window that alone takes acts; null lets all take them. It must outlive that state.
  void SetModal(const Window* window) { modal_ = window; }
  const Window* Modal() const { return modal_; }

 private:
  const Control* acting_ = nullptr;
  const Window* modal_ = nullptr;
};

}  // namespace kestrune::controls
