#include "database_maker.h"

#include <algorithm>
#include <cstdio>

#include "catalogue/catalogue.h"
#include "d3d/direct3d_settings.h"
#include "ogl/opengl_settings.h"
#include "platform/case_fold.h"
#include "regedit/database.h"
#include "value_descriptions.h"

namespace kestrune::databases {

namespace {

using regedit::Category;
using settings::Place;
using settings::Setting;
using settings::Special;
using settings::Writer;

/// The releases that have files. All drivers up to the next one use a release's files; 169.21 and
/// its kin, of which four digits are told, are among those of 69.21.
constexpr int kReleases[] = {0, 2183, 3082, 4523, 5303, 6177, 6921, 7184, 8198, 9371};
constexpr int kBehindTheLast = 10000;

struct Number {
  std::int32_t number;
  std::string words;

  bool operator==(const Number&) const = default;
};

/// What a value's numbers mean from one release on.
struct Reading {
  int from_driver;
  std::vector<Number> numbers;
  bool is_list = false;  ///< the numbers stand in the order of a list

  /// A number that is there already keeps its words, where it has any.
  void Add(std::int32_t number, std::string words) {
    const auto found = std::find_if(numbers.begin(), numbers.end(),
                                    [number](const Number& each) { return each.number == number; });
    if (found == numbers.end()) {
      numbers.push_back({number, std::move(words)});
    } else if (found->words.empty()) {
      found->words = std::move(words);
    }
  }
};

struct Value {
  Category category;
  std::string_view name;
  int first_driver = 0;  ///< the release that first uses it
  std::vector<Reading> readings = {};

  Reading& ReadingFrom(int driver) {
    for (Reading& reading : readings) {
      if (reading.from_driver == driver) return reading;
    }
    return readings.emplace_back(Reading{driver, {}, false});
  }
};

std::string ReleaseText(int release) {
  char text[16];
  std::snprintf(text, sizeof text, "%d.%02d", release / 100, release % 100);
  return text;
}

/// The values of one release's files: those that the release itself knows, with what their numbers
/// mean to each driver that uses the files.
class ReleaseValues {
 public:
  ReleaseValues(int release, int next, const lang::LangTable& english)
      : release_(release), english_(english) {
    AddDriver(release);
    const auto known = static_cast<std::ptrdiff_t>(values_.size());
    for (int driver = release + 1; driver < next; ++driver) AddDriver(driver);
    values_.erase(values_.begin() + known, values_.end());
  }

  std::string TextOf(Category category) {
    std::string text;
    for (Value& value : values_) {
      if (value.category == category) text += LineOf(value);
    }
    return text;
  }

 private:
  void AddDriver(int driver) {
    for (const Setting* setting : catalogue::AllSettings())
      AddSetting(setting->For(driver), driver);
    AddCodes(Category::kDirect3D, d3d::kDirect3DCodes);
    AddCodes(Category::kOpenGL, ogl::kOpenGLCodes);
    if (driver < d3d::kFirstSharedDriver) {
      for (const std::int32_t number : {d3d::kOldAaForced, d3d::kOldAaOff}) {
        Add(Category::kDirect3D, d3d::kOldAaSwitch, number);
      }
    }
    if (driver <= d3d::kLastLegacyDriver) {
      for (const d3d::LegacyRow& row : d3d::kLegacyRows) {
        Add(Category::kDirect3D, row.name, row.number);
      }
    }
  }

  Value& ValueOf(Category category, std::string_view name) {
    for (Value& value : values_) {
      if (value.category == category && platform::SameWithoutCase(value.name, name)) return value;
    }
    return values_.emplace_back(Value{category, name});
  }

  void Add(Category category, std::string_view name, std::int32_t number) {
    Value& value = ValueOf(category, name);
    if (value.readings.empty()) value.ReadingFrom(0);
    value.readings.back().Add(number, "");
  }

  void AddSetting(const Setting& row, int driver);
  std::string WordsOf(const Setting& row, const settings::Choice& choice) const;
  void AddOldEmulation();
  void AddCodes(Category category, std::span<const settings::CodeRow> codes);
  static std::string LineOf(Value& value);

  int release_;
  const lang::LangTable& english_;
  std::vector<Value> values_;
};

bool IsListed(Place place) {
  return place == Place::kSettings || place == Place::kDriverKey || place == Place::kTweakKey;
}

Category CategoryOf(const Setting& row) {
  if (row.writer == Writer::kControlPanel) return Category::kSystem;
  const bool is_shared = row.name.starts_with("D3DOGL_");
  return row.writer == Writer::kDirect3D || is_shared ? Category::kDirect3D : Category::kOpenGL;
}

void ReleaseValues::AddSetting(const Setting& row, int driver) {
  if (row.special == Special::kOldEmulation) AddOldEmulation();
  // Flags are added to a number of the mode's row and are none by themselves.
  if (row.special == Special::kModeFlags || row.name.empty() || !IsListed(row.place)) return;
  const Category category = CategoryOf(row);
  if (driver < row.old_name_below) ValueOf(category, row.old_name);
  Value& value = ValueOf(category, row.name);
  if (row.needs.from_driver > driver) value.first_driver = row.needs.from_driver;
  Reading& reading = value.ReadingFrom(row.from_driver);
  reading.is_list = reading.is_list || !row.choices.empty();
  // What a list offers comes first, since a file suggests no more than nine numbers.
  for (const settings::Choice* choice : Offered(row, driver, settings::kNeverListed - 1)) {
    if (choice->number) reading.Add(*choice->number, WordsOf(row, *choice));
  }
  for (const settings::Choice& choice : row.choices) {
    if (choice.number) reading.Add(*choice.number, WordsOf(row, choice));
  }
}

/// What a choice is called, with the release from which lists have it where some driver that uses
/// the files is below.
std::string ReleaseValues::WordsOf(const Setting& row, const settings::Choice& choice) const {
  const int last_without = choice.above_driver;
  const bool is_later = last_without >= release_ && last_without > row.from_driver;
  return choice.text.In(english_) +
         (is_later ? " (from " + ReleaseText(last_without + 1) + " on)" : "");
}

void ReleaseValues::AddOldEmulation() {
  for (const ogl::OldEmulationWrite& write : ogl::kOldEmulationWrites) {
    Add(Category::kOpenGL, write.name, write.number);
  }
  for (const ogl::OldEmulationRead& read : ogl::kOldEmulationReads) {
    Add(Category::kOpenGL, read.name, read.number);
  }
}

void ReleaseValues::AddCodes(Category category, std::span<const settings::CodeRow> codes) {
  for (const settings::CodeRow& row : codes) {
    if (!IsListed(row.place) || !row.number) continue;
    Add(category, row.name, *row.number);
  }
}

/// The numbers that the description names take its words. Those that no list has come last, or in
/// their own order where there is no list.
void Describe(Value& value, const ValueDescription& description) {
  if (value.readings.empty()) value.ReadingFrom(0);
  for (const NumberWords& each : description.numbers) {
    if (each.words.empty()) break;
    bool is_known = false;
    for (Reading& reading : value.readings) {
      for (Number& number : reading.numbers) {
        if (number.number != each.number) continue;
        number.words = each.words;
        is_known = true;
      }
    }
    if (!is_known && value.readings.back().from_driver >= each.from_driver) {
      value.readings.back().Add(each.number, std::string(each.words));
    }
  }
  for (Reading& reading : value.readings) {
    if (reading.is_list) continue;
    std::sort(reading.numbers.begin(), reading.numbers.end(),
              [](const Number& a, const Number& b) { return a.number < b.number; });
  }
  const auto same = [](const Reading& a, const Reading& b) { return a.numbers == b.numbers; };
  std::vector<Reading>& readings = value.readings;
  readings.erase(std::unique(readings.begin(), readings.end(), same), readings.end());
}

/// "-1 = never; 0 = off", each reading behind the releases that it holds for.
std::string MeaningsOf(const std::vector<Reading>& readings) {
  std::string text;
  for (std::size_t i = 0; i < readings.size(); ++i) {
    if (i > 0) text += ". From " + ReleaseText(readings[i].from_driver) + " on: ";
    if (i == 0 && readings.size() > 1) {
      text += "Below " + ReleaseText(readings[1].from_driver) + ": ";
    }
    bool is_first = true;
    for (const Number& number : readings[i].numbers) {
      if (number.words.empty()) continue;
      if (!is_first) text += "; ";
      is_first = false;
      text += std::to_string(number.number) + " = " + number.words;
    }
  }
  return text;
}

std::string_view PrefixOf(const Value& value) {
  if (value.category == Category::kDirect3D) return "D3D_";
  const bool has_none = value.category == Category::kSystem || value.name.starts_with("Ogl_");
  return has_none ? "" : "OGL_";
}

std::string ReleaseValues::LineOf(Value& value) {
  const ValueDescription* description = FindDescription(value.name);
  if (description != nullptr) Describe(value, *description);
  std::string line = std::string(PrefixOf(value)).append(value.name) + ",";
  if (description == nullptr) {
    line += regedit::kNoDescription;
  } else {
    line.append("\"").append(description->prose).append(" ");
    if (value.first_driver > 0) {
      line += "Drivers below " + ReleaseText(value.first_driver) + " don't use it. ";
    }
    line += MeaningsOf(value.readings) + ".\"";
  }
  std::vector<std::int32_t> suggested;
  for (const Reading& reading : value.readings) {
    for (const Number& number : reading.numbers) {
      if (std::find(suggested.begin(), suggested.end(), number.number) == suggested.end()) {
        suggested.push_back(number.number);
      }
    }
  }
  suggested.resize(std::min(suggested.size(), regedit::kMostValues));
  for (const std::int32_t number : suggested) line += "," + std::to_string(number);
  return line + ",x\n";
}

}  // namespace

std::vector<DatabaseFile> MakeDatabases(const lang::LangTable& english) {
  std::vector<DatabaseFile> files;
  for (std::size_t i = 0; i < std::size(kReleases); ++i) {
    const bool is_last = i + 1 == std::size(kReleases);
    ReleaseValues values(kReleases[i], is_last ? kBehindTheLast : kReleases[i + 1], english);
    for (const regedit::CategoryRow& row : regedit::kCategories) {
      char digits[8];
      std::snprintf(digits, sizeof digits, "%04d", kReleases[i]);
      files.push_back({std::string(digits).append(row.tag) + ".dat", values.TextOf(row.category)});
    }
  }
  return files;
}

}  // namespace kestrune::databases
