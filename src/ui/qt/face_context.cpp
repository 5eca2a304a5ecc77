#include "ui/qt/face_context.h"

namespace kestrune::qt {

void FaceContext::Act(const std::function<void()>& act) {
  act();
  if (after_act_) after_act_();
}

void FaceContext::Hover(controls::Control& control) {
  if (!control.on_hover) return;
  const bool was_hovering = std::exchange(hovering_, true);
  Act([&control] { control.Hover(); });
  hovering_ = was_hovering;
}

void FaceContext::Reach(controls::Control& control) {
  controls::Control* cares = &control;
  while (cares != nullptr && !cares->on_hover) cares = cares->Parent();
  if (cares != nullptr) Hover(*cares);
}

}  // namespace kestrune::qt
