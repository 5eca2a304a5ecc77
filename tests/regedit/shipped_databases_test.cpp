// Whether the database files that are installed are those that their table makes, and tell a
// player all that the settings know. With KESTRUNE_WRITE_DATABASES set they are made anew, to be
// read before they are kept.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <regex>
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

constexpr int kReleases[] = {0, 2183, 3082, 4523, 5303, 6177, 6921, 7184, 8198, 9371};

class ShippedDatabasesTest : public testing::Test {
 protected:
  /// What a driver finds.
  std::vector<DatabaseEntry> Entries(int driver, Category category) {
    // One more than there may be, so that it shows.
    const Database database = OpenDatabase(machine.Files(), category, driver, 102);
    EXPECT_TRUE(database.entries) << database.file;
    return database.entries.value_or(std::vector<DatabaseEntry>());
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

Known KnownTo(int driver) {
  Known known;
  LearnSettings(known, driver);
  LearnTheRest(known, driver);
  return known;
}

TEST_F(ShippedDatabasesTest, HaveEveryValueOfTheirReleaseAndEachOfUpToNineNumbers) {
  for (const int release : kReleases) {
    std::map<std::string, std::set<std::int32_t>> listed;
    for (const CategoryRow& category : kCategories) {
      const auto entries = Entries(release, category.category);
      EXPECT_LE(entries.size(), 101u);
      for (const DatabaseEntry& entry : entries) {
        const std::string name = StoredName(category.tag, entry.name);
        EXPECT_TRUE(listed.emplace(name, std::set(entry.values.begin(), entry.values.end())).second)
            << release << ": " << name << " is listed twice";
      }
    }
    const Known known = KnownTo(release);
    for (const auto& [name, numbers] : known) {
      EXPECT_TRUE(listed.contains(name)) << release << " lacks " << name;
      if (numbers.size() > kMostValues) continue;
      for (const std::int32_t number : numbers) {
        EXPECT_TRUE(listed[name].contains(number)) << release << " " << name << ": " << number;
      }
    }
    for (const auto& [name, numbers] : listed) {
      EXPECT_TRUE(known.contains(name)) << release << ": " << name << " is no value";
    }
  }
}

/// The part of a description that tells what the numbers mean to a driver.
std::string MeaningsFor(int driver, const std::string& text) {
  const std::regex from(R"(\. From (\d+)\.(\d\d) on: )");
  std::size_t begin = 0;
  std::size_t end = text.size();
  for (std::sregex_iterator at(text.begin(), text.end(), from), last; at != last; ++at) {
    const auto place = static_cast<std::size_t>(at->position());
    const bool holds = driver >= std::stoi((*at)[1].str() + (*at)[2].str());
    (holds ? begin : end) = place;
    if (!holds) break;
  }
  return text.substr(begin, end - begin);
}

/// What a description keeps from a driver that knows these numbers of the value, or doesn't know it
/// at all; empty where it is right for it.
std::string MisleadsBy(const std::string& text, int driver, const std::set<std::int32_t>* numbers) {
  if (numbers == nullptr) {
    return std::regex_search(text, std::regex(R"(\d\d\.\d\d)")) ? "" : "the last release";
  }
  const std::string meanings = MeaningsFor(driver, text);
  for (const std::int32_t number : *numbers) {
    if (meanings.find(" " + std::to_string(number) + " = ") == text.npos) {
      return std::to_string(number);
    }
  }
  return "";
}

TEST_F(ShippedDatabasesTest, AreRightForEveryDriverThatUsesThem) {
  for (const int driver :
       {0,    2182, 2183, 2280, 2281, 3081, 3082, 4102, 4103, 4522, 4523, 4999,
        5000, 5302, 5303, 5999, 6000, 6001, 6100, 6101, 6176, 6177, 6920, 6921,
        6999, 7000, 7001, 7183, 7184, 7700, 7701, 8197, 8198, 9370, 9371, 9999}) {
    const Known known = KnownTo(driver);
    for (const CategoryRow& category : kCategories) {
      for (const DatabaseEntry& entry : Entries(driver, category.category)) {
        const auto found = known.find(StoredName(category.tag, entry.name));
        EXPECT_EQ(
            MisleadsBy(entry.description, driver, found == known.end() ? nullptr : &found->second),
            "")
            << driver << " " << entry.name;
      }
    }
  }
  const std::string text = "Below 41.03: 0 = a; 4 = b. From 41.03 on: 0 = c; 3 = d.";
  const std::set<std::int32_t> numbers = {0, 3};
  EXPECT_EQ(MisleadsBy(text, 4102, &numbers), "3");
  EXPECT_EQ(MisleadsBy(text, 4103, &numbers), "");
  EXPECT_EQ(MisleadsBy("It does a thing. 0 = a.", 4103, nullptr), "the last release");
}

TEST_F(ShippedDatabasesTest, SayFromWhichReleaseOnWhatSomeOfTheirDriversLack) {
  const auto has = [this](int driver, std::string_view name, std::string_view words) {
    const auto entries = Entries(driver, Category::kDirect3D);
    return std::any_of(entries.begin(), entries.end(), [&](const DatabaseEntry& each) {
      return each.name == name && each.description.find(words) != std::string::npos;
    });
  };
  for (const int release : kReleases) {
    const bool lacks_negative = release < 7000;
    EXPECT_EQ(has(release, "D3D_D3D_16579523", "Drivers below 70.00 don't use it."), lacks_negative)
        << release;
    const bool lacks_highest = release <= 6100;
    EXPECT_EQ(has(release, "D3D_D3D_QualityEnhancements", "High quality (from 61.01 on)"),
              lacks_highest)
        << release;
  }
  EXPECT_TRUE(has(5303, "D3D_D3DOGL_70835937", "= 16x (from 60.01 on)"));
  EXPECT_TRUE(has(6177, "D3D_D3DOGL_70835937", "= 16x;"));
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
  for (const int release : kReleases) {
    for (const CategoryRow& category : kCategories) {
      for (const DatabaseEntry& entry : Entries(release, category.category)) {
        EXPECT_EQ(FaultOf(entry), "") << release << category.tag << " " << entry.name;
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
