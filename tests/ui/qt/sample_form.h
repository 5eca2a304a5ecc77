#pragma once

#include <array>
#include <map>
#include <string>

#include "platform/files_api.h"
#include "ui/face/context.h"
#include "ui/forms/form.h"
#include "ui/qt/form_view.h"

namespace kestrune::qt {

/// A program folder with nothing in it.
class NoFiles : public platform::FilesApi {
 public:
  std::optional<std::string> ReadBytes(std::string_view) override { return std::nullopt; }
  std::vector<std::string> ListFiles(std::string_view, std::string_view) override { return {}; }
  std::optional<std::string> Locate(std::string_view) override { return std::nullopt; }
  bool IsPicture(std::string_view) override { return false; }
  platform::Result<std::string> ReadAnyFile(const std::string&) override {
    return platform::Fail("No such file or directory");
  }
  std::string DecodeText(std::string_view bytes, int) override { return std::string(bytes); }
  platform::EncodedText EncodeText(std::string_view text, int) override {
    return {std::string(text), 0};
  }
};

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
  NoFiles files_;
  controls::Gate gate_;
  face::Context context_;
  SampleForm form_;
  std::unique_ptr<FormView> view_;
};

}  // namespace kestrune::qt
