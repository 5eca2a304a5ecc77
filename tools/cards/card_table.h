#pragma once

#include <span>
#include <string>
#include <string_view>

/// The cards: the one source of the card tables below data/DATA, of docs/cards.md and of what the
/// performance wizard's files are made from.
namespace kestrune::cards {

struct ShaderVersion {
  std::string_view version;
  int position;  ///< of the slider
};

/// What all cards of a generation have alike.
struct Features {
  std::string_view name;
  int textures;  ///< in one pass of Direct3D
  ShaderVersion pixel;
  ShaderVersion vertex;
  int anisotropy;                 ///< highest level
  std::string_view antialiasing;  ///< class
};

/// Who owns the memory that a card draws into.
enum class Memory { kOwn, kComputers };

/// Where identifier and name come from: the PCI ID Repository, or nothing but the identifiers
/// around it.
enum class Source { kPciIds, kNeighbours };
enum class Confidence { kHigh, kMedium, kLow };

/// The cards that share a key: two digits of the device identifier, as the tables take them, or all
/// four where `mt` tells them apart. Clocks are the default ones, in MHz, of the ordinary card
/// among them. A row of low confidence has the lower of the values in doubt and says what the doubt
/// is.
struct Card {
  std::string_view key;
  const Features& features;
  std::string_view chips;
  std::string_view names;
  std::string_view ordinary;  ///< empty: there is but one
  int bus_bits;               ///< 0 where the key is a whole identifier
  int memory_mhz;             ///< words a line carries in a microsecond
  Memory memory;
  int pipelines;  ///< texels in a clock
  int core_mhz;
  Source source;
  Confidence confidence;
  std::string_view doubt = {};

  bool HasWholeId() const { return key.size() == 4; }
  /// What the identifiers begin with: three digits, or all four.
  std::string Identifier() const;
};

/// From the oldest to the newest.
extern const std::span<const Features> kFeatures;
/// By identifier; those with a whole one right behind the key that they share.
extern const std::span<const Card> kCards;

}  // namespace kestrune::cards
