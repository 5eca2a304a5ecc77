#include "detect/card_data.h"

#include "core/field_reader.h"

namespace kestrune::detect {

namespace {

std::string PathOf(std::string_view table) {
  return "\\DATA\\" + std::string(table) + std::string(kCardTableEnding);
}

}  // namespace

std::string CardCode(std::string_view device_id) {
  // The identifiers 00Fx are those of a bus bridge; their last digit tells the chip behind it.
  const std::size_t first = device_id.starts_with("00F") ? 2 : 1;
  return std::string(device_id.size() > first ? device_id.substr(first, 2) : std::string_view());
}

std::set<std::string> ListedCards(platform::FilesApi& files) {
  constexpr std::size_t kShort = 2;
  std::set<std::string> cards;
  for (const CardTable& table : kCardTables) {
    const auto bytes = files.ReadBytes(PathOf(table.name));
    const std::string text = bytes ? files.DecodeText(*bytes, 0) : std::string();
    for (core::FieldReader fields(text); !fields.AtEnd();) {
      const std::string key = fields.Next().value_or("");
      cards.insert(key.size() > kShort ? CardCode(key) : key);
      fields.Next();
      if (table.has_extra) fields.Next();
    }
  }
  return cards;
}

std::string CardData::Key(std::string_view table) const {
  if (table == "mt" && adapter_.DeviceIdPrefix == "004") return adapter_.DeviceId;
  return CardCode(adapter_.DeviceId);
}

const std::string& CardData::Table(const std::string& name) {
  const auto [table, is_new] = tables_.try_emplace(name);
  if (!is_new) return table->second;
  if (const std::optional<std::string> bytes = files_.ReadBytes(PathOf(name))) {
    table->second = files_.DecodeText(*bytes, 0);
  }
  return table->second;
}

std::string CardData::GetCardData(const std::string& table, bool with_extra) {
  const std::string wanted = Key(table);
  core::FieldReader fields(Table(table));
  while (!fields.AtEnd()) {
    const std::string key = fields.Next().value_or("");
    std::string value = fields.Next().value_or("");
    std::string extra = with_extra ? fields.Next().value_or("") : std::string();
    if (key != wanted) continue;
    CardDataExtra = std::move(extra);
    return value;
  }
  return {};
}

}  // namespace kestrune::detect
