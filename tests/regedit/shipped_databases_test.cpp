// Whether the database files that are installed are those that their table makes, and tell a
// player all that the settings know. With KESTRUNE_WRITE_DATABASES set they are made anew, to be
// read before they are kept.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>

#include "catalogue/catalogue.h"
#include "d3d/direct3d_settings.h"
#include "database_maker.h"
#include "fake_machine.h"
#include "ogl/opengl_settings.h"
#include "platform/case_fold.h"
#include "platform/driver_keys.h"
#include "read_all.h"
#include "regedit/database.h"

namespace kestrune::regedit {
namespace {

using settings::Place;
using settings::Setting;
using test::FakeMachine;

/// A file's digits and drivers that use it, on both sides of every change in between.
struct Release {
  std::string_view digits;
  std::vector<int> drivers;
};
const Release kReleases[] = {
    {"0000", {0, 2280, 2281, 4040, 4102, 4103, 4522}}, {"4523", {4523}}, {"8198", {8198}}};

class ShippedDatabasesTest : public testing::Test {
 protected:
  std::vector<DatabaseEntry> Entries(std::string_view digits, std::string_view tag) {
    // One more than there may be, so that it shows.
    const auto entries = LoadDatabaseFile(machine.Files(), std::string(digits).append(tag), 102);
    EXPECT_TRUE(entries) << digits << tag;
    return entries.value_or(std::vector<DatabaseEntry>());
  }

  FakeMachine machine;
};

TEST_F(ShippedDatabasesTest, AreWhatTheirTableMakes) {
  core::basRegistry registry{machine.Services().registry};
  lang::Language english(registry, machine.Files(), machine);
  english.LoadLanguage();
  std::set<std::string> names;
  for (const databases::DatabaseFile& file : databases::MakeDatabases(english.LangText)) {
    const std::string path = KESTRUNE_DATA_FOLDER "/DATA/Database/" + file.name;
    if (std::getenv("KESTRUNE_WRITE_DATABASES") != nullptr) std::ofstream(path) << file.text;
    EXPECT_EQ(platform::ReadAll(path), file.text) << path;
    names.insert(file.name);
  }
  for (const std::string& name : machine.Files().ListFiles("DATA/Database", "")) {
    EXPECT_TRUE(names.contains(name)) << name << " is made by nothing";
  }
}

/// What is known of the values in the driver's key, its subkeys and the tweak key: each name and
/// its numbers, in capitals.
using Known = std::map<std::string, std::set<std::int32_t>>;

void Learn(Known& known, std::string_view name, std::optional<std::int32_t> number) {
  std::set<std::int32_t>& numbers = known[platform::FoldCase(name)];
  if (number) numbers.insert(*number);
}

bool IsInDriverKeys(Place place) {
  return place != Place::kDebugKey && place != Place::kOptionsKey;
}

void LearnSettings(Known& known, int driver) {
  for (const Setting* setting : catalogue::AllSettings()) {
    const Setting& row = setting->For(driver);
    if (row.name.empty() || !IsInDriverKeys(row.place)) continue;
    // Flags are part of a number of the mode's row.
    if (row.special == settings::Special::kModeFlags) continue;
    Learn(known, row.name, {});
    if (driver < row.old_name_below) Learn(known, row.old_name, {});
    for (const settings::Choice& choice : row.choices) Learn(known, row.name, choice.number);
  }
  for (const auto codes : {d3d::kDirect3DCodes, ogl::kOpenGLCodes}) {
    for (const settings::CodeRow& row : codes) {
      if (IsInDriverKeys(row.place) && row.number) Learn(known, row.name, row.number);
    }
  }
}

/// Everything that stands outside the settings' rows, by the releases that have it.
void LearnTheRest(Known& known, int driver) {
  if (driver <= d3d::kLastLegacyDriver) {
    for (const d3d::LegacyRow& row : d3d::kLegacyRows) Learn(known, row.name, row.number);
  }
  if (driver < 5000) {
    Learn(known, d3d::kOldAaSwitch, d3d::kOldAaForced);
    Learn(known, d3d::kOldAaSwitch, d3d::kOldAaOff);
  }
  if (driver < 6000) {
    for (const auto& row : ogl::kOldEmulationWrites) Learn(known, row.name, row.number);
    for (const auto& row : ogl::kOldEmulationReads) Learn(known, row.name, row.number);
  }
}

/// The name in the driver's key of an entry's value.
std::string StoredName(std::string_view tag, const std::string& name) {
  const bool has_prefix = tag == "d3d" || (tag == "ogl" && name.starts_with("OGL_"));
  return platform::FoldCase(has_prefix ? name.substr(4) : name);
}

TEST_F(ShippedDatabasesTest, HaveEveryValueOfTheirReleaseAndEachOfUpToNineNumbers) {
  for (const Release& release : kReleases) {
    std::map<std::string, std::set<std::int32_t>> listed;
    for (const CategoryRow& category : kCategories) {
      const auto entries = Entries(release.digits, category.tag);
      EXPECT_LE(entries.size(), 101u);
      for (const DatabaseEntry& entry : entries) {
        const std::string name = StoredName(category.tag, entry.name);
        EXPECT_TRUE(listed.emplace(name, std::set(entry.values.begin(), entry.values.end())).second)
            << release.digits << ": " << name << " is listed twice";
      }
    }
    Known known;
    for (const int driver : release.drivers) {
      LearnSettings(known, driver);
      LearnTheRest(known, driver);
    }
    for (const auto& [name, numbers] : known) {
      EXPECT_TRUE(listed.contains(name)) << release.digits << " lacks " << name;
      if (numbers.size() > kMostValues) continue;
      for (const std::int32_t number : numbers) {
        EXPECT_TRUE(listed[name].contains(number))
            << release.digits << " " << name << ": " << number;
      }
    }
    for (const auto& [name, numbers] : listed) {
      EXPECT_TRUE(known.contains(name)) << release.digits << ": " << name << " is no value";
    }
  }
}

/// What is wrong with a description; empty where nothing is.
std::string FaultOf(const DatabaseEntry& entry) {
  constexpr std::size_t kFewestLetters = 30;
  const std::string& text = entry.description;
  const std::string prose = text.substr(0, text.find(" = "));
  if (text == kNoDescription || prose.size() < kFewestLetters) return "tells nothing";
  if (platform::FoldCase(text).starts_with(platform::FoldCase(entry.name)))
    return "repeats the name";
  for (const char c : text) {
    if (c < ' ' || c > '~' || c == '"') return "has a character that not every code page has";
  }
  if (entry.values.empty()) return "suggests nothing";
  for (const std::int32_t value : entry.values) {
    if (text.find(" " + std::to_string(value) + " = ") == text.npos) {
      return "leaves " + std::to_string(value) + " unexplained";
    }
  }
  return "";
}

TEST_F(ShippedDatabasesTest, TellWhatEachValueDoesAndEachNumberMeans) {
  for (const Release& release : kReleases) {
    for (const CategoryRow& category : kCategories) {
      for (const DatabaseEntry& entry : Entries(release.digits, category.tag)) {
        EXPECT_EQ(FaultOf(entry), "") << release.digits << category.tag << " " << entry.name;
      }
    }
  }
  EXPECT_EQ(FaultOf({"OGL_A", "?", {1}}), "tells nothing");
  EXPECT_EQ(FaultOf({"OGL_A", "OGL_A switches something on or off. 1 = on.", {1}}),
            "repeats the name");
  EXPECT_EQ(FaultOf({"OGL_A", "Switches the thing on or off, at once. 1 = on, 10 = off.", {1, 0}}),
            "leaves 0 unexplained");
}

}  // namespace
}  // namespace kestrune::regedit
