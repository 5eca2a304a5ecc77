#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "controls/gate.h"
#include "platform/files_api.h"
#include "ui/face/panel_keeper.h"
#include "ui/face/scale.h"

namespace kestrune::face {

/// What the widgets of a face share: the scale, the program's files, and the way by which every
/// act of the user reaches a control. The files and the gate outlive it.
class Context {
 public:
  /// `after_act` lets the face see to what came of an act.
  Context(Scale scale, platform::FilesApi& files, controls::Gate& gate,
          std::function<void()> after_act)
      : scale_(scale), files_(files), gate_(gate), after_act_(std::move(after_act)) {}
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  const Scale& TheScale() const { return scale_; }
  platform::FilesApi& Files() const { return files_; }

  /// Hands an act of the user to a control by way of the gate. Whoever calls it draws the control
  /// anew, since the gate or the control may have refused.
  void Act(const controls::Control& control, const std::function<bool()>& act);
  void Press(controls::Control& control);
  void Use(const controls::Shortcut& shortcut);
  /// A finished text of a combo. One that stands for nothing doesn't reach the control.
  void UseText(controls::ComboBox& combo, const std::string& text);
  /// The mouse moves over a control. While the focus is in the lower panel a page isn't told, so
  /// that the panel stays.
  void Hover(controls::Control& control);
  /// The focus comes to a control. By the keyboard that counts as a mouse over it, or over the
  /// nearest one around it that cares.
  void Focused(controls::Control& control, bool by_keyboard);
  /// Names the machine, where that is another one than the computer that the program runs on.
  void SetMachineTitle(std::string title) { machine_title_ = std::move(title); }
  /// What a window's title says: its caption, that of the main window with the machine's name.
  std::string TitleOf(const controls::Window& window) const;
  /// Names the edge of the lower panel.
  void SetPanelEdge(controls::Control& edge) { panel_.emplace(edge); }
  /// Whether what happens now comes of hovering; a window that opens then leaves the focus alone.
  bool Hovering() const { return hovering_; }

 private:
  void AfterAct() const;

  Scale scale_;
  platform::FilesApi& files_;
  controls::Gate& gate_;
  std::function<void()> after_act_;
  bool hovering_ = false;
  std::optional<PanelKeeper> panel_;
  std::string machine_title_;
};

}  // namespace kestrune::face
