#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

#include "detect/adapter.h"
#include "platform/files_api.h"

namespace kestrune::detect {

/// The two digits of a device identifier that tell its chip, as they are spelled; fewer where it is
/// too short for them.
std::string CardCode(std::string_view device_id);

/// The tables of cards, by name.
struct CardTable {
  std::string_view name;
  bool has_extra = false;  ///< its records have a third field
};
inline constexpr CardTable kCardTables[] = {{"mt"}, {"ps", true}, {"vs", true}, {"af"}, {"aa"}};
inline constexpr std::string_view kCardTableEnding = ".dat";

/// The cards that any of the program's tables has, each by its CardCode.
std::set<std::string> ListedCards(platform::FilesApi& files);

/// Looks the card up in the small tables DATA\<name>.dat, which are keyed by short forms of the
/// device identifier: "mt" textures per pass, "ps" and "vs" highest shader version with its slider
/// position, "af" highest anisotropic level, "aa" class of antialiasing.
class CardData {
 public:
  CardData(platform::FilesApi& files, const AdapterState& adapter)
      : files_(files), adapter_(adapter) {}

  /// The value of the card's record, or empty text. With `with_extra` the records have a third
  /// field, which CardDataExtra takes when there is a match.
  std::string GetCardData(const std::string& table, bool with_extra);

  std::string CardDataExtra;

 private:
  std::string Key(std::string_view table) const;
  const std::string& Table(const std::string& name);

  platform::FilesApi& files_;
  const AdapterState& adapter_;
  /// The tables' texts, each read when it is first asked for; empty where there is no file.
  std::map<std::string, std::string> tables_;
};

}  // namespace kestrune::detect
