#include "card_maker.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "card_table.h"

namespace kestrune::cards {

namespace {

std::string FieldsOf(const ShaderVersion& shader) {
  return std::string(shader.version).append(",").append(std::to_string(shader.position));
}

/// A card table, and what it says of a card behind its key.
struct Table {
  std::string_view name;
  std::string (*fields)(const Features& features);
  bool has_whole_ids = false;  ///< in place of the key that they share
};

constexpr Table kTables[] = {
    {"mt", [](const Features& features) { return std::to_string(features.textures); }, true},
    {"ps", [](const Features& features) { return FieldsOf(features.pixel); }},
    {"vs", [](const Features& features) { return FieldsOf(features.vertex); }},
    {"af", [](const Features& features) { return std::to_string(features.anisotropy); }},
    {"aa", [](const Features& features) { return std::string(features.antialiasing); }},
};

/// Whether rows behind it tell those that share its key apart.
bool IsToldApart(const Card& card) {
  return std::any_of(kCards.begin(), kCards.end(), [&](const Card& each) {
    return &each != &card && each.key.starts_with(card.Identifier());
  });
}

std::string TextOf(const Table& table) {
  std::string text;
  for (const Card& card : kCards) {
    if (table.has_whole_ids ? IsToldApart(card) : card.HasWholeId()) continue;
    text.append(card.key).append(",").append(table.fields(card.features)).append("\n");
  }
  return text;
}

constexpr std::string_view kIntroduction =
    R"(# The cards

What the program knows of each card. This file, the card tables (`data/DATA/mt.dat`, `ps.dat`, `vs.dat`, `af.dat`, `aa.dat`)
and the performance wizard's files are made from `tools/cards/card_table.cpp`; CONTRIBUTING.md says how to add a card. A card
that a table doesn't list has no limit there.

- Where the source is `pci.ids`, that list (the PCI ID Repository, version 2023.04.10) has the identifiers. Where it is
  "neighbours", it doesn't, and only the identifiers around tell what it may be.
- Features are those of the chip's generation.
- Clocks, bus and pipelines are the default ones of one card among those that share a key, the ordinary one. Only the
  performance wizard's files use them. Memory is counted in words that a line carries in a microsecond. A chip without memory
  of its own has that of its computer, here of boards of its time.
- No single list has the features and clocks; "sure" says how far a row can be trusted: high, medium or low.
- A row marked **low** has the cautious value: of those in doubt the lower, so that nothing is offered or chosen that the card
  may lack. Its last column says what the doubt is.
)";

constexpr std::string_view kFeaturesText =
    R"(
## Features by generation

Behind a shader version stands the slider's position. Antialiasing: `0` none, `4` 2x and 4x, `q` Quincunx as well, `8` all.
GeForce 8 has newer shaders than the program's pages know.

| generation | textures in a pass | pixel shader | vertex shader | anisotropic | antialiasing |
|---|---|---|---|---|---|
)";

constexpr std::string_view kCardsText =
    R"(
## Cards

The key in the tables is the two digits in front of the x, or the last two of a bridge, 00F0 to 00FF. Only `mt.dat` has the
identifiers of 004x one by one, so one that isn't here has no limit there; in the other tables the row of 004x holds for all.

| identifiers | chips | cards | generation | the ordinary one | bus, bits | memory, MHz | pipelines | core, MHz | source | sure | doubt |
|---|---|---|---|---|---|---|---|---|---|---|---|
)";

/// A line of a table.
std::string Line(std::initializer_list<std::string> cells) {
  std::string line = "|";
  for (const std::string& cell : cells) line += cell.empty() ? " |" : " " + cell + " |";
  return line + "\n";
}

std::string LineOf(const Features& features) {
  const auto shader = [](const ShaderVersion& each) {
    return std::string(each.version) + " (" + std::to_string(each.position) + ")";
  };
  return Line({std::string(features.name), std::to_string(features.textures),
               shader(features.pixel), shader(features.vertex),
               features.anisotropy == 0 ? "none" : std::to_string(features.anisotropy) + "x",
               "`" + std::string(features.antialiasing) + "`"});
}

std::string WordOf(Confidence confidence) {
  if (confidence == Confidence::kLow) return "**low**";
  return confidence == Confidence::kMedium ? "medium" : "high";
}

std::string LineOf(const Card& card) {
  const bool has_own = card.memory == Memory::kOwn;
  const std::string identifier = card.Identifier();
  return Line({identifier.size() == 4 ? identifier : identifier + "x", std::string(card.chips),
               std::string(card.names), std::string(card.features.name), std::string(card.ordinary),
               card.bus_bits == 0 ? "" : std::to_string(card.bus_bits),
               std::to_string(card.memory_mhz) + (has_own ? "" : ", the computer's"),
               std::to_string(card.pipelines), std::to_string(card.core_mhz),
               card.source == Source::kPciIds ? "`pci.ids`" : "neighbours", WordOf(card.confidence),
               std::string(card.doubt)});
}

std::string Document() {
  std::string text(kIntroduction);
  text += kFeaturesText;
  for (const Features& each : kFeatures) text += LineOf(each);
  text += kCardsText;
  for (const Card& card : kCards) text += LineOf(card);
  return text;
}

}  // namespace

std::vector<CardFile> MakeCardFiles() {
  std::vector<CardFile> files;
  for (const Table& table : kTables) {
    files.push_back({std::string("data/DATA/").append(table.name) + ".dat", TextOf(table)});
  }
  files.push_back({"docs/cards.md", Document()});
  return files;
}

}  // namespace kestrune::cards
