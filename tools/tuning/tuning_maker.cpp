#include "tuning_maker.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string_view>

#include "tools/cards/card_table.h"
#include "wizard/optimize.h"
#include "wizard/tuning.h"

namespace kestrune::tuning {

namespace {

using cards::Card;
using wizard::Factors;

/// A kind of game, and what it has more or less than the card by itself.
struct Entry {
  std::string_view name;
  int image;
  int antialiasing;
  int anisotropy;
};

constexpr Entry kEntries[] = {
    {wizard::kDefaultEntry, 0, 0, 0},
    // Frames count more than smooth edges, which motion blurs; what is far off must stay clear.
    {"Shooters", -1, -1, 0},
    // Roads are seen at a flat angle, which is what anisotropic filtering is for.
    {"Racing", 0, 0, 1},
    // One looks around more than one hurries.
    {"Role-playing", 1, 1, 1},
    // Seen from above nothing lies at a flat angle, but small figures are all edges.
    {"Strategy", 0, 2, -1},
    // They were made for cards with a fraction of the power.
    {"Older games", 2, 3, 1},
};

// A factor is the number of limits that a card reaches.

/// MB a second for antialiasing: each sample of a pixel is stored and read. With the lowest of the
/// factors only the fine adjustment turns it on, with the highest 16x is at the slider's end.
constexpr int kBandwidths[] = {4000, 5000, 8000, 12000, 18000, 25000, 35000, 50000, 80000};
/// Million texels a second for anisotropic filtering: each level takes twice as many. The slider's
/// end brings 2x with a factor of 2, 4x, 8x and 16x with those above.
constexpr int kAnisotropyRates[] = {300, 700, 1500, 3500, 6000};
/// The same for the driver's image quality.
constexpr int kImageRates[] = {500, 1000, 2000, 4000, 8000};
/// The image factor also stretches the LOD bias. With this one it keeps to two thirds of the page's
/// range at the slider's lower end.
constexpr int kHighestImage = 6;

/// The highest factor for what a card has, so that no position of the main slider asks for more.
template <typename Level>
struct Limit {
  Level level;
  int highest;
};
constexpr Limit<std::string_view> kAntialiasingLimits[] = {{"0", 0}, {"4", 2}, {"q", 4}, {"8", 9}};
constexpr Limit<int> kAnisotropyLimits[] = {{0, 0}, {2, 2}, {8, 4}, {16, 5}};

int Reached(std::span<const int> limits, int rate) {
  return static_cast<int>(std::upper_bound(limits.begin(), limits.end(), rate) - limits.begin());
}

template <typename Level, std::size_t N>
int HighestOf(const Limit<Level> (&limits)[N], Level level) {
  const auto found = std::find_if(std::begin(limits), std::end(limits),
                                  [level](const auto& each) { return each.level == level; });
  return found == std::end(limits) ? 0 : found->highest;
}

std::string TextOf(const Factors& factors) {
  std::string text;
  for (const std::int32_t factor :
       {factors.unused, factors.image, factors.antialiasing, factors.anisotropy}) {
    text += (text.empty() ? "" : ",") + std::to_string(factor);
  }
  return text + "\n";
}

Factors FactorsOf(const Card& card, const Entry& entry) {
  const int sharers = card.memory == cards::Memory::kComputers ? 2 : 1;
  const int bandwidth = card.bus_bits / 8 * card.memory_mhz / sharers;
  const int rate = card.pipelines * card.core_mhz;
  const int antialiasing = Reached(kBandwidths, bandwidth) + entry.antialiasing;
  const int anisotropy = Reached(kAnisotropyRates, rate) + entry.anisotropy;
  const int image = Reached(kImageRates, rate) + entry.image;
  const cards::Features& features = card.features;
  return {
      .image = std::clamp(image, 0, kHighestImage),
      .antialiasing =
          std::clamp(antialiasing, 0, HighestOf(kAntialiasingLimits, features.antialiasing)),
      .anisotropy = std::clamp(anisotropy, 0, HighestOf(kAnisotropyLimits, features.anisotropy))};
}

}  // namespace

std::vector<TuningFile> MakeTuning() {
  std::vector<TuningFile> made = {{"index.dat", ""}};
  for (const Entry& entry : kEntries) {
    made.front().text.append(entry.name).append("\n");
    for (const Card& card : cards::kCards) {
      if (card.HasWholeId()) continue;
      made.push_back({std::string(entry.name).append("/").append(card.key).append(".dat"),
                      TextOf(FactorsOf(card, entry))});
    }
  }
  return made;
}

}  // namespace kestrune::tuning
