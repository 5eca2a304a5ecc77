#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "lang/language.h"

/// What stands behind a control, said once for reader, writer, page and everything that explains,
/// compares or searches: where a value lives, which number stands for which choice, what writes it.
namespace kestrune::settings {

/// A text that a page shows: an interface text by number, or a word that is the same everywhere.
struct ShownText {
  int number = -1;
  std::string_view word = {};

  std::string In(const lang::LangTable& lang_text) const {
    return number >= 0 ? lang_text[number] : std::string(word);
  }
  bool operator==(const ShownText&) const = default;
};

constexpr ShownText Ui(int number) { return {number, {}}; }
constexpr ShownText Word(std::string_view word) { return {-1, word}; }

/// A driver's bit pattern as the signed number that the registry gives.
constexpr std::int32_t Bits(std::uint32_t pattern) { return static_cast<std::int32_t>(pattern); }

/// Who stores a value: one of the two numbered writers, the control-panel page, or the program for
/// itself. The last two store the number as it is, without codes.
enum class Writer { kDirect3D, kOpenGL, kControlPanel, kProgram };

/// Where a value stands: among its interface's own values, in the driver's key itself without
/// prefix, in the key of the driver's debug switches, in the driver's tweak key, or among the
/// program's own options.
enum class Place { kSettings, kDriverKey, kDebugKey, kTweakKey, kOptionsKey };

/// A call of a numbered writer: its code, and the number that goes with it where the code needs
/// one. It is the row's own writer unless the call names another: the OpenGL page calls that of
/// Direct3D for some of the values that both share.
struct Call {
  std::int16_t code;
  std::optional<std::int32_t> argument = {};
  std::optional<Writer> through = {};

  bool Matches(int wanted, std::int32_t number) const {
    return code == wanted && argument.value_or(number) == number;
  }
};

/// A card's level, as its table gives it, from which a list has an entry; any card has those of
/// kAnyCard, and no list those of kNeverListed.
inline constexpr int kAnyCard = -1;
inline constexpr int kNeverListed = 99;

/// A pair of what the control shows and the number that stands for it. Without a number it stands
/// for a value that is not set, and choosing it deletes the value. Without a call, in a row that
/// has calls, it is read and never written.
struct Choice {
  ShownText text = {};
  std::optional<std::int32_t> number = {};
  std::optional<Call> call = {};
  int above_driver = 0;        ///< listed only above this release
  int card_level = 0;          ///< listed from this level of the card's table on
  std::string_view also = {};  ///< another name for it, which a page may show or take
};

/// What a check box or an option shows.
inline constexpr ShownText kOff = Word("off");
inline constexpr ShownText kOn = Word("on");

/// What a control shows for a number that its row doesn't list: what it showed before, the state
/// of that number, or a text of the row.
enum class Otherwise { kLeave, kState, kText };

/// What a setting's control is, as far as showing and choosing goes.
enum class Shape {
  kBox,     ///< off and on
  kOption,  ///< on alone; its group clears it
  kList,    ///< the offered choices, by position
  kCount,   ///< numbers from `first` to kLastCount, shown as they are
  kSlider,  ///< any number, repeated behind `prefix` in the label; or a position among the choices
};

inline constexpr int kLastCount = 9;

/// Values whose reading or writing takes more than a row. The folder that keeps the row has a
/// function for each of its own.
enum class Special {
  kNone,
  kSli,
  kMode,       ///< the mode in a value that carries flags as well
  kModeFlags,  ///< transparency and gamma correction, in the mode's value
  kOldMode,    ///< the mode, with the switch that forces it off
  kAnisotropy,
  kShader,
  kTextures,
  kS3tc,
  kTrilinearQuality,
  kCompression,
  kOldEmulation,
  kCoolBits,
  kAgpPage,
  kPresence,  ///< its presence is the box's state, or its text is no number
};

/// Cards by the first three digits of their identifier, or by all four.
struct Cards {
  std::span<const std::string_view> prefixes;
  std::span<const std::string_view> ids = {};
};

/// What a machine must have for a control to be enabled.
struct Needs {
  int from_driver = 0;
  const Cards* only_on = nullptr;
  const Cards* not_on = nullptr;
  bool low_texture_units = false;
};

/// One setting: the value behind a control. Rows are constants; a row of an older driver hangs on
/// the newest one, which names the controls for all.
struct Setting {
  std::string_view id;         ///< of the control
  std::string_view twin = {};  ///< id of the control that shows the value on another page, too
  /// Ids of the labels that are enabled with the two; the first repeats a slider's value.
  std::string_view label = {};
  std::string_view twin_label = {};
  Writer writer;
  Shape shape;
  std::string_view name = {};  ///< of the value; empty: there is none
  Place place = Place::kSettings;
  std::optional<std::int32_t> not_set = {};  ///< the number that stands for a value not set
  std::span<const Choice> choices = {};
  Otherwise otherwise = Otherwise::kLeave;
  ShownText otherwise_text = {};
  std::optional<std::int16_t> number_code = {};  ///< stores any number: a position, an argument
  int first = 0;                                 ///< number of a count list's first entry
  ShownText prefix = {};
  Needs needs = {};
  bool cleared_without = false;  ///< shown as off where `needs` isn't met
  Special special = Special::kNone;
  std::string_view deleted_name = {};  ///< spelling used for deleting, where it differs
  std::string_view old_name = {};      ///< name that drivers below `old_name_below` take
  int old_name_below = 0;              ///< both names are of one value, read by the new one
  int from_driver = 0;                 ///< below this release `older` holds instead
  const Setting* older = nullptr;

  /// The row that holds for a driver.
  const Setting& For(int driver) const {
    const Setting* row = this;
    while (row->older != nullptr && driver < row->from_driver) row = row->older;
    return *row;
  }
};

/// A writer's code that no control uses, or whose argument is stored as it is.
struct CodeRow {
  std::int16_t code;
  std::string_view name;
  std::optional<std::int32_t> number = {};
  Place place = Place::kSettings;
  bool stores_argument = false;
};

/// What a writer's code does to the registry. Without a number the value is deleted.
struct Change {
  std::string_view name;
  std::optional<std::int32_t> number;
  Place place = Place::kSettings;
};

/// A row that has a code, and the choice whose code it is; null where the code stores any number.
struct CodeMatch {
  const Setting* row = nullptr;
  const Choice* choice = nullptr;

  explicit operator bool() const { return row != nullptr; }
};

/// The row that answers to a writer's code on a driver.
CodeMatch FindCode(std::span<const Setting> settings, Writer writer, int code,
                   std::int32_t argument, int driver);
/// What a match stores for a driver.
Change ChangeOf(const CodeMatch& match, std::int32_t argument, int driver);
/// What one of the codes does that no control uses; nothing for another code.
std::optional<Change> ChangeOf(std::span<const CodeRow> codes, int code, std::int32_t argument);

/// The choice that stands for a stored number, or for none; null when the row doesn't list it.
const Choice* ChoiceOf(const Setting& row, std::optional<std::int32_t> number);
/// The choice that is shown for the number of a value that may not be set.
const Choice* ShownChoice(const Setting& row, std::optional<std::int32_t> number);
/// The written choice that a text names, by either name, listed or not; null for another text.
const Choice* FindChoice(const Setting& row, std::string_view text,
                         const lang::LangTable& lang_text);
/// The choices that a list offers with this driver, in order; of those that depend on the card, the
/// ones of its level. A list position is a place here.
std::vector<const Choice*> Offered(const Setting& row, int driver, int card_level = kNeverListed);

}  // namespace kestrune::settings
