#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "controls/controls.h"
#include "lang/language.h"

/// The rows that say, once for reader, writer and page, what a driver value is: where it lives,
/// which number stands for which choice, and which code writes it.
namespace kestrune::d3d {

/// A text that a page shows: an interface text by number, or a word that is the same everywhere.
struct ShownText {
  int number = -1;
  std::string_view word = {};

  std::string In(const lang::LangTable& lang_text) const {
    return number >= 0 ? lang_text[number] : std::string(word);
  }
};

constexpr ShownText Ui(int number) { return {number, {}}; }
constexpr ShownText Word(std::string_view word) { return {-1, word}; }

/// A call of a writer: its code, and the number that goes with it where the code needs one.
struct Call {
  std::int16_t code;
  std::optional<std::int32_t> argument = {};

  bool Matches(int wanted, std::int32_t number) const {
    return code == wanted && argument.value_or(number) == number;
  }
};

/// Where a value stands: among the interface's own values, in the driver's key itself without
/// prefix, or in the key of the driver's debug switches.
enum class Place { kSettings, kDriverKey, kDebugKey };

/// What a writer's code does to the registry. Without a number the value is deleted.
struct Change {
  std::string_view name;
  std::optional<std::int32_t> number;
  Place place = Place::kSettings;
};

/// What a box shows for a number that its row doesn't list: what it showed, cleared, checked, or
/// the state of that number.
enum class Otherwise { kLeave, kClear, kCheck, kState };

/// A value behind a check box.
template <typename C>
struct CheckRow {
  controls::CheckBox* C::*box;
  std::string_view name;
  std::int32_t checked;
  std::int32_t cleared;
  std::int32_t not_set;
  Otherwise otherwise;
  Call check;
  Call clear;
  Place place = Place::kSettings;
};

/// One entry of a list. It is listed only while the driver is above the release that it names.
struct Choice {
  ShownText text;
  std::int32_t number;
  Call call;
  int above_driver = 0;
};

/// A value behind a list; the choices stand in list order. A second combo shows the same value on
/// the other interface's page.
template <typename C>
struct ChoiceRow {
  controls::ComboBox* C::*combo;
  controls::ComboBox* C::*twin;
  std::string_view name;
  std::int32_t not_set;
  std::optional<ShownText> otherwise;  ///< nothing: another number leaves the combo as it was
  std::span<const Choice> choices;
};

/// A value behind a list of numbers from `first` to 9, shown as they are.
template <typename C>
struct CountRow {
  controls::ComboBox* C::*combo;
  std::string_view name;
  std::int32_t not_set;
  int first;
  std::int16_t code;
};

/// A value behind a slider, repeated in the caption of the label that names the slider. While it
/// is not set and has no number for that, the slider stays and the caption is the prefix alone.
template <typename C>
struct SliderRow {
  controls::Slider* C::*slider;
  controls::Label* C::*label;
  ShownText prefix;
  std::string_view name;
  std::optional<std::int32_t> not_set;
  std::int16_t code;
};

/// A code that no control uses, or whose argument is stored as it is.
struct CodeRow {
  std::int16_t code;
  Change change;
  bool stores_argument = false;
};

/// All rows of one interface.
template <typename C>
struct Catalogue {
  std::span<const CheckRow<C>> checks;
  std::span<const ChoiceRow<C>> choices;
  std::span<const CountRow<C>> counts;
  std::span<const SliderRow<C>> sliders;
  std::span<const CodeRow> codes;
};

inline constexpr int kLastCount = 9;

/// The row whose code this is and what it stores; nothing for a code that no row has.
template <typename C>
std::optional<Change> ChangeOf(const Catalogue<C>& catalogue, int code, std::int32_t argument) {
  for (const CheckRow<C>& row : catalogue.checks) {
    if (row.check.Matches(code, argument)) return Change{row.name, row.checked, row.place};
    if (row.clear.Matches(code, argument)) return Change{row.name, row.cleared, row.place};
  }
  for (const ChoiceRow<C>& row : catalogue.choices) {
    for (const Choice& choice : row.choices) {
      if (choice.call.Matches(code, argument)) return Change{row.name, choice.number};
    }
  }
  for (const CountRow<C>& row : catalogue.counts) {
    if (row.code == code) return Change{row.name, argument};
  }
  for (const SliderRow<C>& row : catalogue.sliders) {
    if (row.code == code) return Change{row.name, argument};
  }
  for (const CodeRow& row : catalogue.codes) {
    if (row.code != code) continue;
    Change change = row.change;
    if (row.stores_argument) change.number = argument;
    return change;
  }
  return std::nullopt;
}

/// Puts on the page what a writer's call makes it show: the caption of a slider, both combos of
/// twins.
template <typename C>
void ShowWritten(const Catalogue<C>& catalogue, const C& controls, int code, std::int32_t argument,
                 const lang::LangTable& lang_text) {
  for (const SliderRow<C>& row : catalogue.sliders) {
    if (row.code != code) continue;
    (controls.*row.label)->SetCaption(row.prefix.In(lang_text) + std::to_string(argument));
  }
  for (const ChoiceRow<C>& row : catalogue.choices) {
    if (row.twin == nullptr) continue;
    for (const Choice& choice : row.choices) {
      if (!choice.call.Matches(code, argument)) continue;
      (controls.*row.combo)->ShowText(choice.text.In(lang_text));
      (controls.*row.twin)->ShowText(choice.text.In(lang_text));
    }
  }
}

/// The entries of a row's list, in order, for that driver.
inline std::vector<std::string> ListOf(std::span<const Choice> choices, int driver,
                                       const lang::LangTable& lang_text) {
  std::vector<std::string> items;
  for (const Choice& choice : choices) {
    if (choice.above_driver == 0 || driver > choice.above_driver) {
      items.push_back(choice.text.In(lang_text));
    }
  }
  return items;
}

/// Shows every row of a catalogue. `read` gives the number stored under a name at a place, or
/// nothing when it is not set or no number.
template <typename C, typename Read>
class CatalogueReader {
 public:
  CatalogueReader(const C& controls, const lang::LangTable& lang_text, Read read)
      : controls_(controls), lang_text_(lang_text), read_(std::move(read)) {}

  void Show(const Catalogue<C>& catalogue) {
    for (const auto& row : catalogue.checks) Show(row);
    for (const auto& row : catalogue.choices) Show(row);
    for (const auto& row : catalogue.counts) Show(row);
    for (const auto& row : catalogue.sliders) Show(row);
  }

 private:
  void Show(const CheckRow<C>& row) {
    const std::int32_t number = read_(row.name, row.place).value_or(row.not_set);
    controls::CheckBox& box = *(controls_.*row.box);
    if (number == row.checked || number == row.cleared) {
      box.Show(number == row.checked ? 1 : 0);
      return;
    }
    switch (row.otherwise) {
      case Otherwise::kLeave:
        break;
      case Otherwise::kClear:
        box.Show(0);
        break;
      case Otherwise::kCheck:
        box.Show(1);
        break;
      case Otherwise::kState:
        box.Show(number);
        break;
    }
  }

  void Show(const ChoiceRow<C>& row) {
    const std::int32_t number = read_(row.name, Place::kSettings).value_or(row.not_set);
    std::optional<ShownText> text = row.otherwise;
    for (const Choice& choice : row.choices) {
      if (choice.number == number) text = choice.text;
    }
    if (!text) return;
    (controls_.*row.combo)->ShowText(text->In(lang_text_));
    if (row.twin != nullptr) (controls_.*row.twin)->ShowText(text->In(lang_text_));
  }

  void Show(const CountRow<C>& row) {
    const std::int32_t number = read_(row.name, Place::kSettings).value_or(row.not_set);
    (controls_.*row.combo)->ShowText(std::to_string(number));
  }

  void Show(const SliderRow<C>& row) {
    std::optional<std::int32_t> number = read_(row.name, Place::kSettings);
    if (!number) number = row.not_set;
    std::string caption = row.prefix.In(lang_text_);
    if (number) {
      (controls_.*row.slider)->Show(*number);
      caption += std::to_string(*number);
    }
    (controls_.*row.label)->SetCaption(caption);
  }

  const C& controls_;
  const lang::LangTable& lang_text_;
  Read read_;
};

}  // namespace kestrune::d3d
