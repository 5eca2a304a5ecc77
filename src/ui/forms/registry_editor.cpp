#include "ui/forms/registry_editor.h"

#include <algorithm>
#include <iterator>

#include "core/number.h"
#include "core/outcome.h"
#include "lang/texts.h"
#include "regedit/value_place.h"
#include "ui/forms/shared.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {

namespace texts = lang::texts;

namespace {

using core::RegRoot;
using regedit::Category;
using regedit::CategoryRow;
using regedit::DatabaseEntry;
using regedit::kCategories;

constexpr std::string_view kWindow = "registry-editor";
constexpr std::string_view kDescriptionFrame = "registry-editor.key-description-frame";
constexpr std::string_view kAvailableFrame = "registry-editor.available-values-frame";
constexpr std::string_view kActualFrame = "registry-editor.actual-value-frame";
constexpr std::string_view kNoNumber = "0";

constexpr ControlRow kRows[] = {
    Row(Kind::kCombo, "registry-editor.category", kWindow, {150, 150, 3750, 390})
        .Initial(kCategories[0].name),
    // Which category is in force; chosen through the combo.
    Row(Kind::kOption, "registry-editor.direct3d", kWindow, {150, 600, 1200, 330})
        .Design(kCategories[0].name)
        .Chosen()
        .Hidden(),
    Row(Kind::kOption, "registry-editor.opengl", kWindow, {1350, 600, 1200, 330})
        .Design(kCategories[1].name)
        .Hidden(),
    Row(Kind::kOption, "registry-editor.system-control-panel", kWindow, {2550, 600, 1350, 330})
        .Design(kCategories[2].name)
        .Hidden(),
    Row(Kind::kList, "registry-editor.values", kWindow, {150, 615, 3750, 5400}),
    Row(Kind::kFrame, kDescriptionFrame, kWindow, {4050, 150, 6900, 3150}, 198),
    Row(Kind::kLabel, "registry-editor.key-description", kDescriptionFrame, {150, 330, 6600, 2670},
        texts::kNoDescription),
    Row(Kind::kFrame, kAvailableFrame, kWindow, {4050, 3420, 2520, 2595}, 199)
        .Names("registry-editor.available-values"),
    Row(Kind::kList, "registry-editor.available-values", kAvailableFrame, {150, 330, 2220, 2115}),
    Row(Kind::kCheck, "registry-editor.user-value", kWindow, {6720, 3480, 4230, 330}, 200)
        .Names("registry-editor.typed-value"),
    Row(Kind::kText, "registry-editor.typed-value", kWindow, {6720, 3840, 4230, 390})
        .Initial(kNoNumber)
        .Disabled(),
    Row(Kind::kFrame, kActualFrame, kWindow, {6720, 4380, 4230, 885}, 201),
    Row(Kind::kLabel, "registry-editor.actual-value", kActualFrame, {150, 390, 3930, 285},
        kFilledText),
    Row(Kind::kButton, "registry-editor.write-key", kWindow, {4050, 6165, 2175, 435}, 202)
        .Disabled(),
    Row(Kind::kButton, "registry-editor.delete-key", kWindow, {6405, 6165, 2175, 435}, 203)
        .Disabled(),
    Row(Kind::kButton, "registry-editor.close", kWindow, {8775, 6165, 2175, 435}, 204),
};

bool IsDigitOrSign(char c) { return (c >= '0' && c <= '9') || c == '-'; }

/// The byte at which the last character of a text that isn't empty begins.
std::size_t LastCharacter(std::string_view text) {
  std::size_t at = text.size() - 1;
  while (at > 0 && (text[at] & 0xC0) == 0x80) --at;
  return at;
}

class RegistryEditor : public WindowPart {
 public:
  explicit RegistryEditor(const Shared& shared);

  void Load() override;

 private:
  /// The entry that is chosen; null for none.
  const DatabaseEntry* Chosen() const;
  /// Where its value stands; nothing without one.
  std::optional<regedit::ValuePlace> ChosenPlace() const;
  /// The number that is to be written; nothing where none is chosen or spelled.
  std::optional<std::int32_t> NumberToWrite() const;

  void LoadCategory();
  void CategoryChosen();
  void EntryChosen();
  void UserValueTicked();
  void NumberTyped();
  void WriteKey();
  void DeleteKey();
  void ShowActualValue();

  const Shared& shared_;
  const lang::LangTable& LangText;
  core::basRegistry& registry_;
  controls::Window& window_;
  controls::ComboBox& category_;
  std::vector<controls::OptionButton*> options_;  ///< in the order of the categories
  controls::ListBox& values_;
  controls::Label& description_;
  controls::ListBox& available_;
  controls::CheckBox& user_value_;
  controls::TextBox& typed_;
  controls::Label& actual_;
  controls::Button& write_;
  controls::Button& delete_;
  Category shown_ = Category::kDirect3D;
  std::vector<DatabaseEntry> table_;
};

RegistryEditor::RegistryEditor(const Shared& shared)
    : shared_(shared),
      LangText(shared.LangText()),
      registry_(shared.registry),
      window_(shared.controls.Get<controls::Window>(kWindow)),
      category_(shared.controls.Get<controls::ComboBox>("registry-editor.category")),
      values_(shared.controls.Get<controls::ListBox>("registry-editor.values")),
      description_(shared.controls.Get<controls::Label>("registry-editor.key-description")),
      available_(shared.controls.Get<controls::ListBox>("registry-editor.available-values")),
      user_value_(shared.controls.Get<controls::CheckBox>("registry-editor.user-value")),
      typed_(shared.controls.Get<controls::TextBox>("registry-editor.typed-value")),
      actual_(shared.controls.Get<controls::Label>("registry-editor.actual-value")),
      write_(shared.controls.Get<controls::Button>("registry-editor.write-key")),
      delete_(shared.controls.Get<controls::Button>("registry-editor.delete-key")) {
  for (const std::string_view id : {"registry-editor.direct3d", "registry-editor.opengl",
                                    "registry-editor.system-control-panel"}) {
    options_.push_back(&shared.controls.Get<controls::OptionButton>(id));
    options_.back()->on_click = [this] {
      LoadCategory();
      delete_.SetEnabled(false);
      write_.SetEnabled(false);
    };
  }
  controls::OptionButton::Group(options_);
  category_.on_change = [this](controls::ComboChange) { CategoryChosen(); };
  values_.on_change = [this] { EntryChosen(); };
  available_.on_change = [this] { write_.SetEnabled(true); };
  user_value_.on_change = [this] { UserValueTicked(); };
  typed_.on_change = [this] { NumberTyped(); };
  write_.on_click = [this] { WriteKey(); };
  delete_.on_click = [this] { DeleteKey(); };
  shared.controls.Get<controls::Button>("registry-editor.close").on_click = [this] {
    shared_.windows.Close(window_);
  };
}

void RegistryEditor::Load() {
  std::vector<std::string> names;
  for (const CategoryRow& row : kCategories) names.emplace_back(row.name);
  category_.SetItems(std::move(names));
  LoadCategory();
}

void RegistryEditor::LoadCategory() {
  const auto chosen = std::find_if(options_.begin(), options_.end(),
                                   [](const auto* option) { return option->Chosen(); });
  shown_ = kCategories[chosen - options_.begin()].category;
  table_.clear();
  values_.SetItems({});
  available_.SetItems({});
  shared_.services.dialog.RunPendingEvents();
  auto [file, entries] = regedit::OpenDatabase(
      shared_.services.files, shown_, shared_.versions.DrvVer, regedit::kMostEditorEntries);
  window_.SetCaption(LangText[texts::kRegistryEditor] + file + LangText[texts::kRegistryEditorEnd]);
  table_ = std::move(entries).value_or(std::vector<DatabaseEntry>());
  std::vector<std::string> names;
  for (const DatabaseEntry& entry : table_) names.push_back(entry.name);
  values_.SetItems(std::move(names));
}

void RegistryEditor::CategoryChosen() {
  const auto row =
      std::find_if(std::begin(kCategories), std::end(kCategories) - 1,
                   [this](const CategoryRow& each) { return each.name == category_.Text(); });
  options_[static_cast<std::size_t>(row - std::begin(kCategories))]->PassOn();
}

const DatabaseEntry* RegistryEditor::Chosen() const {
  return values_.Position() < 0 ? nullptr : &table_[static_cast<std::size_t>(values_.Position())];
}

std::optional<regedit::ValuePlace> RegistryEditor::ChosenPlace() const {
  const DatabaseEntry* entry = Chosen();
  if (entry == nullptr) return std::nullopt;
  return regedit::PlaceOf(shown_, entry->name, regedit::Purpose::kEdit, shared_.versions,
                          shared_.adapter);
}

void RegistryEditor::EntryChosen() {
  const DatabaseEntry& entry = *Chosen();
  delete_.SetEnabled(true);
  if (!user_value_.Checked()) write_.SetEnabled(false);
  description_.SetCaption(entry.description == regedit::kNoDescription
                              ? LangText[texts::kNoDescription]
                              : entry.description);
  std::vector<std::string> numbers;
  for (const std::int32_t number : SuggestedValues(entry)) {
    numbers.push_back(std::to_string(number));
  }
  available_.SetItems(std::move(numbers));
  ShowActualValue();
}

void RegistryEditor::UserValueTicked() {
  const bool ticked = user_value_.Checked();
  typed_.ShowText(std::string(kNoNumber));
  typed_.SetEnabled(ticked);
  available_.SetEnabled(!ticked);
  write_.SetEnabled(ticked);
}

void RegistryEditor::NumberTyped() {
  const std::string& text = typed_.Text();
  if (!text.empty() && LastCharacter(text) > 0 && !IsDigitOrSign(text.back())) {
    typed_.PassOn(text.substr(0, LastCharacter(text)));
  }
  write_.SetEnabled(true);
}

std::optional<std::int32_t> RegistryEditor::NumberToWrite() const {
  if (user_value_.Checked()) {
    const auto typed = core::ParseWholeNumber(typed_.Text());
    return typed ? std::optional(typed.Value()) : std::nullopt;
  }
  const DatabaseEntry* entry = Chosen();
  if (entry == nullptr || available_.Position() < 0) return std::nullopt;
  return SuggestedValues(*entry)[static_cast<std::size_t>(available_.Position())];
}

void RegistryEditor::WriteKey() {
  const auto place = ChosenPlace();
  if (!place) return;
  registry_.WriteAsBinary = shown_ == Category::kSystem ? 0 : 1;
  if (const std::optional<std::int32_t> number = NumberToWrite()) {
    core::Ignore(registry_.WriteRegValue(RegRoot::kLocalMachine, place->key, place->name, *number));
  }
  ShowActualValue();
}

void RegistryEditor::DeleteKey() {
  const auto place = ChosenPlace();
  if (!place) return;
  registry_.WriteAsBinary = 1;
  registry_.DeleteRegValue(RegRoot::kLocalMachine, place->key, place->name);
  ShowActualValue();
}

void RegistryEditor::ShowActualValue() {
  const auto place = ChosenPlace();
  const core::RegValue value =
      place ? registry_.ReadRegValue(RegRoot::kLocalMachine, place->key, place->name)
            : core::RegValue();
  actual_.SetCaption(value.IsEmpty() ? LangText[texts::kNotSet] : value.Text());
}

}  // namespace

const WindowRow kRegistryEditor = {
    .window = Row(Kind::kWindow, kWindow, "", {0, 0, 11100, 6750}, kFilledText).Hidden(),
    .controls = kRows,
    .owner = "main",
    .modal = true,
    .cancel_key = "registry-editor.close",
    .opened_by = "main.regedit",
    .make = [](const Shared& shared) -> std::unique_ptr<WindowPart> {
      return std::make_unique<RegistryEditor>(shared);
    }};

}  // namespace kestrune::forms
