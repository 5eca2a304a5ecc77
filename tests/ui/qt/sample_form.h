#pragma once

#include <array>
#include <map>
#include <string>

#include "platform/portable/files.h"
#include "ui/face/context.h"
#include "ui/forms/form.h"
#include "ui/qt/form_view.h"

namespace kestrune::qt {

/// A window with two pages, the second hidden, and a control of each kind.
class SampleForm : public forms::Form {
 public:
  SampleForm();
};

/// The sample form, shown on the screen.
class SampleWindow {
 public:
  explicit SampleWindow(double pixels_per_twip = 1.0 / 15);

  template <typename T>
  T& Control(std::string_view id) {
    return form_.Get<T>(id);
  }
  template <typename T>
  T& Widget(std::string_view id) {
    auto* widget = dynamic_cast<T*>(view_->WidgetOf(*form_.Find(id)));
    if (widget == nullptr) throw std::out_of_range(std::string(id));
    return *widget;
  }
  FormView& View() { return *view_; }
  forms::Form& Form() { return form_; }
  controls::Gate& Gate() { return gate_; }

 private:
  platform::portable::FolderFiles files_{{}, 1252};
  controls::Gate gate_;
  face::Context context_;
  SampleForm form_;
  std::unique_ptr<FormView> view_;
};

}  // namespace kestrune::qt
