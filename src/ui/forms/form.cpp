#include "ui/forms/form.h"

#include <cstdio>
#include <cstdlib>

namespace kestrune::forms {

namespace {

using controls::Control;

std::unique_ptr<Control> Make(const ControlRow& row, Control* parent) {
  std::string id(row.id);
  switch (row.kind) {
    case Kind::kCheck:
      return std::make_unique<controls::CheckBox>(std::move(id), parent);
    case Kind::kOption:
      return std::make_unique<controls::OptionButton>(std::move(id), parent);
    case Kind::kCombo:
    case Kind::kEditableCombo: {
      auto combo = std::make_unique<controls::ComboBox>(std::move(id), parent);
      combo->SetTakesTyping(row.kind == Kind::kEditableCombo);
      return combo;
    }
    case Kind::kList:
    case Kind::kPlaces: {
      auto list = std::make_unique<controls::ListBox>(std::move(id), parent);
      list->SetLeadsElsewhere(row.kind == Kind::kPlaces);
      return list;
    }
    case Kind::kSlider:
    case Kind::kScrollBar: {
      auto slider = std::make_unique<controls::Slider>(std::move(id), parent);
      slider->SetScrollBar(row.kind == Kind::kScrollBar);
      return slider;
    }
    case Kind::kText:
    case Kind::kReadOnlyText: {
      auto box = std::make_unique<controls::TextBox>(std::move(id), parent);
      box->SetTakesTyping(row.kind == Kind::kText);
      return box;
    }
    case Kind::kLabel:
      return std::make_unique<controls::Label>(std::move(id), parent);
    case Kind::kLink:
      return std::make_unique<controls::Label>(std::move(id), parent, controls::LabelRole::kLink);
    case Kind::kEdge:
      return std::make_unique<controls::Label>(std::move(id), parent, controls::LabelRole::kEdge);
    case Kind::kHeading:
      return std::make_unique<controls::Label>(std::move(id), parent,
                                               controls::LabelRole::kHeading);
    case Kind::kButton:
      return std::make_unique<controls::Button>(std::move(id), parent);
    case Kind::kPicture: {
      auto picture = std::make_unique<controls::PictureBox>(std::move(id), parent);
      picture->SetLink(row.action.kind != Action::Kind::kNone);
      return picture;
    }
    case Kind::kGraph:
      return std::make_unique<controls::Graph>(std::move(id), parent);
    case Kind::kBar:
      return std::make_unique<controls::Bar>(std::move(id), parent);
    case Kind::kFrame:
      return std::make_unique<controls::Frame>(std::move(id), parent);
    case Kind::kKey:
      return std::make_unique<controls::ToolKey>(std::move(id), parent);
    case Kind::kWindow:
      return std::make_unique<controls::Window>(std::move(id), parent);
  }
  std::abort();
}

/// Gives a control what its row says of its value.
class DesignState : public controls::ControlVisitor {
 public:
  explicit DesignState(const ControlRow& row) : row_(row) {}

  void Visit(controls::CheckBox& box) override { box.Show(row_.value); }
  void Visit(controls::OptionButton& option) override { option.Show(row_.value == 1); }
  void Visit(controls::ComboBox& combo) override { combo.ShowText(std::string(row_.initial)); }
  void Visit(controls::ListBox& list) override { list.SetItems({}); }
  void Visit(controls::TextBox& box) override {
    box.ShowText(std::string(row_.initial));
    box.SetMarked(false);
  }
  void Visit(controls::Slider& slider) override {
    slider.SetRange(row_.minimum, row_.maximum);
    slider.Show(row_.value);
  }
  void Visit(controls::Label&) override {}
  void Visit(controls::Button&) override {}
  void Visit(controls::PictureBox& picture) override { picture.ShowFile(""); }
  void Visit(controls::Graph& graph) override { graph.Clear(); }
  void Visit(controls::Bar&) override {}
  void Visit(controls::Frame&) override {}
  void Visit(controls::ToolKey&) override {}
  void Visit(controls::Window&) override {}

 private:
  const ControlRow& row_;
};

void ShowDesign(const ControlRow& row, Control& control) {
  control.SetCaption(std::string(row.design));
  control.SetBounds(row.bounds);
  control.SetEnabled(row.enabled);
  if (row.kind != Kind::kWindow) control.SetVisible(row.visible);
  DesignState design(row);
  control.Accept(design);
}

void ShowText(const ControlRow& row, Control& control, const lang::LangTable& lang_text) {
  if (row.text >= 0) control.SetCaption(lang_text[row.text]);
  if (row.tip >= 0) control.SetToolTip(lang_text[row.tip]);
}

}  // namespace

Form::Form(const WindowRow& row) : window_row_(row) {
  Add(row.window);
  Add(row.controls);
  controls::Window& window = TheWindow();
  window.SetVisible(row.window.visible);
  window.SetModal(row.modal);
  window.SetResizable(row.resizable);
  window.SetDefaultKey(Find(row.default_key));
  window.SetCancelKey(Find(row.cancel_key));
}

controls::Window& Form::TheWindow() const { return Get<controls::Window>(window_row_.window.id); }

void Form::Add(std::span<const ControlRow> rows) {
  for (const ControlRow& row : rows) {
    std::unique_ptr<Control> control = Make(row, Find(row.parent));
    ShowDesign(row, *control);
    if (!set_.Add(*control)) {
      std::fprintf(stderr, "two controls have the id %s\n", control->Id().c_str());
      std::abort();
    }
    controls_.push_back(std::move(control));
    rows_.push_back(row);
  }
  for (const ControlRow& row : rows) {
    if (!row.names.empty()) Find(row.id)->SetNames(Find(row.names));
    if (!row.default_key.empty()) {
      Get<controls::TextBox>(row.id).SetDefaultKey(Find(row.default_key));
    }
  }
}

void Form::AddTo(controls::ControlSet& set) const {
  for (const auto& control : controls_) {
    if (set.Add(*control)) continue;
    std::fprintf(stderr, "two windows have a control %s\n", control->Id().c_str());
    std::abort();
  }
}

void Form::ShowTexts(const lang::LangTable& lang_text) const {
  for (std::size_t i = 0; i < rows_.size(); ++i) ShowText(rows_[i], *controls_[i], lang_text);
}

void Form::Reset(const lang::LangTable& lang_text) const {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    ShowDesign(rows_[i], *controls_[i]);
    ShowText(rows_[i], *controls_[i], lang_text);
  }
}

}  // namespace kestrune::forms
