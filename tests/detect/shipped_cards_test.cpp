// Whether the card tables that are installed and their documentation are those that the table of
// cards makes. With KESTRUNE_WRITE_CARDS set they are made anew, to be read before they are kept.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <regex>
#include <set>

#include "read_all.h"
#include "tools/cards/card_maker.h"
#include "tools/cards/card_table.h"

namespace kestrune::detect {
namespace {

using cards::Card;

TEST(ShippedCardsTest, AreWhatTheirTableMakes) {
  for (const cards::CardFile& file : cards::MakeCardFiles()) {
    const std::string path = KESTRUNE_DATA_FOLDER "/../" + file.path;
    if (std::getenv("KESTRUNE_WRITE_CARDS") != nullptr) std::ofstream(path) << file.text;
    EXPECT_EQ(platform::ReadAll(path), file.text) << path;
  }
}

/// What is wrong with a row behind the one before it; empty where nothing is.
std::string FaultOf(const Card& card, std::string_view last_identifier) {
  if (!std::regex_match(std::string(card.key), std::regex("[0-9A-F]{2}|00[0-9A-F]{2}"))) {
    return "no card is looked up by that key";
  }
  if (card.Identifier() <= last_identifier) return "it is no higher than the one before it";
  if (card.names.empty() || card.chips.empty()) return "it names nothing";
  if ((card.bus_bits == 0) != card.HasWholeId()) return "the bus doesn't go with the key";
  if (card.memory_mhz <= 0 || card.pipelines <= 0 || card.core_mhz <= 0) return "it stands still";
  const bool is_doubted = card.confidence == cards::Confidence::kLow;
  return is_doubted && card.doubt.empty() ? "its doubt isn't told" : "";
}

TEST(ShippedCardsTest, EachRowIsFoundByItsKeyAndTellsItsDoubts) {
  std::string last;
  for (const Card& card : cards::kCards) {
    EXPECT_EQ(FaultOf(card, last), "") << card.key;
    last = card.Identifier();
  }
  Card card = cards::kCards.front();
  card.confidence = cards::Confidence::kLow;
  EXPECT_EQ(FaultOf(card, ""), "its doubt isn't told");
  EXPECT_EQ(FaultOf(card, "002"), "it is no higher than the one before it");
}

}  // namespace
}  // namespace kestrune::detect
