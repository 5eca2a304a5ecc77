#include "ogl/check_card_table.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "core/field_reader.h"
#include "core/number.h"
#include "d3d/direct3d_settings.h"
#include "d3d/overrides.h"
#include "detect/card_data.h"
#include "ogl/card_levels.h"
#include "platform/case_fold.h"

namespace kestrune::ogl {

namespace {

/// What a shader table may give a card whose highest version is the highest of all.
constexpr std::string_view kAnyVersion = "Enabled";

std::string Quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

/// Why a record's fields behind the key mean nothing; empty where they do.
using ValueRule = std::string (*)(const std::string& value, const std::string& extra);

std::string WrongTextures(const std::string& value, const std::string& /*extra*/) {
  const auto count = core::ParseWholeNumber(value, d3d::kFewestTextures, d3d::kMostTextures);
  return count ? "" : Quoted(value) + " is no number of textures from 1 to 17";
}

std::string WrongAniso(const std::string& value, const std::string& /*extra*/) {
  const auto level = core::ParseWholeNumber(value);
  const bool is_known = level && std::find(std::begin(kAnisoLevels), std::end(kAnisoLevels),
                                           level.Value()) != std::end(kAnisoLevels);
  return is_known ? "" : Quoted(value) + " is none of 0, 2, 8 and 16";
}

std::string WrongAaLevel(const std::string& value, const std::string& /*extra*/) {
  const bool is_known =
      std::find(std::begin(kAaLevels), std::end(kAaLevels), value) != std::end(kAaLevels);
  return is_known ? "" : Quoted(value) + " is none of 0, 4, q and 8";
}

std::string WrongShader(std::string_view id, const std::string& value, const std::string& extra) {
  const auto row =
      std::find_if(d3d::kDirect3DSettings.begin(), d3d::kDirect3DSettings.end(),
                   [id](const settings::Setting& setting) { return setting.id == id; });
  const std::vector<const settings::Choice*> versions = Offered(*row, 0);
  const auto top = static_cast<std::int32_t>(versions.size()) - 1;
  const auto position = core::ParseWholeNumber(extra, 0, top);
  if (!position) {
    return Quoted(extra) + " is no slider position from 0 to " + std::to_string(top);
  }
  if (value == kAnyVersion) return "";
  const auto version =
      std::find_if(versions.begin(), versions.end() - 1,
                   [&value](const settings::Choice* each) { return each->text.word == value; });
  if (version == versions.end() - 1) return Quoted(value) + " is no shader version of the page";
  const auto place = version - versions.begin();
  if (place == position.Value()) return "";
  return "position " + extra + " isn't that of " + value + ", which is " + std::to_string(place);
}

std::string WrongPixel(const std::string& value, const std::string& extra) {
  return WrongShader("direct3d.shaders.pixel-shader", value, extra);
}
std::string WrongVertex(const std::string& value, const std::string& extra) {
  return WrongShader("direct3d.shaders.vertex-shader", value, extra);
}

struct Rule {
  std::string_view table;
  ValueRule wrong;
};
constexpr Rule kRules[] = {{"mt", WrongTextures},
                           {"ps", WrongPixel},
                           {"vs", WrongVertex},
                           {"af", WrongAniso},
                           {"aa", WrongAaLevel}};
static_assert(std::size(kRules) == std::size(detect::kCardTables));

bool IsHex(std::string_view key) {
  return key.find_first_not_of("0123456789ABCDEFabcdef") == key.npos;
}

/// Why no card is looked up under a key; empty where one may be.
std::string WrongKey(std::string_view table, const std::string& key) {
  const bool is_whole = table == "mt" && key.size() == 4 && key.starts_with("004");
  if (!IsHex(key) || !(key.size() == 2 || is_whole)) {
    return Quoted(key) + " is no card: two hexadecimal digits" +
           (table == "mt" ? ", or four for 004x" : "");
  }
  const std::string folded = platform::FoldCase(key);
  return folded == key ? "" : "the card " + Quoted(key) + " is looked up as " + Quoted(folded);
}

}  // namespace

platform::Findings CheckCardTable(std::string_view table, std::string_view text) {
  const std::string name = platform::FoldCase(table);
  const auto is_table = [&name](std::string_view each) { return platform::FoldCase(each) == name; };
  const auto row = std::find_if(std::begin(detect::kCardTables), std::end(detect::kCardTables),
                                [&](const detect::CardTable& each) { return is_table(each.name); });
  const auto rule = std::find_if(std::begin(kRules), std::end(kRules),
                                 [&](const Rule& each) { return is_table(each.table); });
  platform::Findings findings;
  std::set<std::string> keys;
  core::FieldReader fields(text);
  if (fields.AtEnd()) findings.push_back({0, "it is empty"});
  while (!fields.AtEnd()) {
    const int line = fields.Line();
    const auto add = [&](std::string reason) {
      if (!reason.empty()) findings.push_back({line, std::move(reason)});
    };
    const std::string key = *fields.Next();
    const auto value = fields.Next();
    const auto extra = row->has_extra ? fields.Next() : std::string();
    if (!value || !extra) {
      add("the file ends in the middle of a record");
      break;
    }
    add(WrongKey(row->name, key));
    if (!keys.insert(key).second) add(key + " stands here a second time");
    add(rule->wrong(*value, *extra));
  }
  return findings;
}

}  // namespace kestrune::ogl
