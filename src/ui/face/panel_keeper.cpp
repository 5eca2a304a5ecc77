#include "ui/face/panel_keeper.h"

#include <utility>

#include "controls/controls.h"

namespace kestrune::face {

namespace {

bool StandsInWindow(const controls::Control& control) {
  return control.Parent() != nullptr && control.Parent()->Parent() == nullptr;
}

}  // namespace

bool InSight(const controls::Control& control) {
  return !StandsInWindow(control) || control.Bounds().top < control.Parent()->Bounds().height;
}

PanelKeeper::PanelKeeper(controls::Control& edge)
    : edge_(edge),
      height_(edge.Parent()->Bounds().height),
      subscription_(edge.Parent()->Observe([this] { WindowChanged(); })) {}

void PanelKeeper::Focused(const controls::Control& control) {
  if (&control.Root() != edge_.Parent()) return;
  has_focus_ = Holds(control);
  if (has_focus_) edge_.Hover();
}

bool PanelKeeper::Silences(const controls::Control& control) const {
  return has_focus_ && StandsInWindow(control) && !Holds(control) &&
         dynamic_cast<const controls::Frame*>(&control) != nullptr;
}

bool PanelKeeper::Holds(const controls::Control& control) const {
  return control.Parent() == edge_.Parent() && control.Bounds().top >= edge_.Bounds().top;
}

void PanelKeeper::WindowChanged() {
  const int height = edge_.Parent()->Bounds().height;
  const bool shrinks = height < std::exchange(height_, height);
  if (shrinks && has_focus_) edge_.Hover();
}

}  // namespace kestrune::face
