#pragma once

#include <functional>
#include <utility>

#include "controls/control.h"
#include "platform/files_api.h"
#include "ui/qt/scale.h"

namespace kestrune::qt {

/// What the widgets of a face share: the scale, the program's files, and the way by which every
/// act of the user reaches a control.
class FaceContext {
 public:
  FaceContext(Scale scale, platform::FilesApi& files, std::function<void()> after_act)
      : scale_(scale), files_(files), after_act_(std::move(after_act)) {}
  FaceContext(const FaceContext&) = delete;
  FaceContext& operator=(const FaceContext&) = delete;

  const Scale& TheScale() const { return scale_; }
  platform::FilesApi& Files() const { return files_; }

  /// Hands an act of the user to a control, then lets the face see to what came of it.
  void Act(const std::function<void()>& act);
  /// The mouse moves over a control.
  void Hover(controls::Control& control);
  /// The keyboard reaches a control. It counts as a mouse over it, or over the nearest one around
  /// it that cares.
  void Reach(controls::Control& control);
  /// Whether what happens now comes of hovering; a window that opens then leaves the focus alone.
  bool Hovering() const { return hovering_; }

 private:
  Scale scale_;
  platform::FilesApi& files_;
  std::function<void()> after_act_;
  bool hovering_ = false;
};

}  // namespace kestrune::qt
