#include "tuning_maker.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "core/field_reader.h"
#include "wizard/optimize.h"
#include "wizard/tuning.h"

namespace kestrune::tuning {

namespace {

using wizard::Factors;

/// Who owns the memory that a card draws into.
enum class Memory { kOwn, kComputers };

/// What makes a card fast. Of the cards that share a code it is the ordinary one, and of those that
/// nobody is sure of the slowest that it may be.
struct Card {
  std::string_view code;
  int bus_bits;
  int memory_mhz;  ///< words a line carries in a microsecond
  int pipelines;   ///< texels in a clock
  int core_mhz;
  Memory memory = Memory::kOwn;
};

constexpr Card kCards[] = {
    {"02", 128, 150, 2, 125},                      // Riva TNT and TNT2
    {"04", 256, 700, 12, 325},                     // GeForce 6800
    {"09", 256, 1200, 24, 430},                    // GeForce 7800 GTX
    {"0A", 64, 100, 2, 80, Memory::kComputers},    // built-in TNT2
    {"0C", 256, 600, 12, 325},                     // GeForce 6800 on PCI Express
    {"F0", 256, 700, 12, 325},                     // some GeForce 6800
    {"F1", 128, 900, 8, 500},                      // GeForce 6600 GT
    {"F2", 128, 550, 8, 300},                      // GeForce 6600
    {"F3", 128, 550, 4, 300},                      // GeForce 6200
    {"F4", 128, 500, 4, 300},                      // GeForce 6600 LE
    {"F5", 256, 1200, 16, 375},                    // GeForce 7800 GS
    {"F6", 256, 1000, 12, 350},                    // GeForce 6800 GS
    {"F7", 256, 700, 8, 325},                      // some chip of the GeForce 6 family
    {"F8", 256, 900, 16, 350},                     // Quadro FX 3400
    {"F9", 256, 1100, 16, 400},                    // GeForce 6800 Ultra
    {"FA", 128, 500, 4, 425},                      // GeForce PCX 5750
    {"FB", 256, 550, 4, 350},                      // GeForce PCX 5900
    {"FC", 128, 400, 4, 250},                      // GeForce PCX 5300
    {"FD", 64, 400, 4, 250},                       // Quadro NVS 280
    {"FE", 256, 550, 4, 350},                      // Quadro FX 1300
    {"FF", 128, 332, 2, 250},                      // GeForce PCX 4300
    {"10", 128, 300, 4, 120},                      // GeForce 256
    {"11", 128, 166, 2, 175},                      // GeForce2 MX
    {"14", 128, 1000, 8, 500},                     // GeForce 6600 GT
    {"15", 128, 333, 4, 200},                      // GeForce2 GTS
    {"16", 64, 700, 4, 350},                       // GeForce 6200 TurboCache
    {"17", 128, 400, 2, 270},                      // GeForce4 MX 440
    {"18", 128, 512, 2, 275},                      // GeForce4 MX 440 8x
    {"19", 384, 1800, 32, 575},                    // GeForce 8800 GTX
    {"1A", 128, 266, 2, 175, Memory::kComputers},  // built-in GeForce2 MX
    {"1D", 64, 810, 4, 550},                       // GeForce 7300 GS
    {"1F", 128, 333, 2, 250, Memory::kComputers},  // built-in GeForce4 MX
    {"20", 128, 460, 4, 200},                      // GeForce3
    {"21", 256, 700, 12, 325},                     // GeForce 6800
    {"22", 64, 500, 4, 350},                       // GeForce 6200
    {"24", 64, 400, 2, 475, Memory::kComputers},   // built-in GeForce 6150
    {"25", 128, 513, 4, 250},                      // GeForce4 Ti 4200
    {"28", 128, 650, 4, 300},                      // GeForce4 Ti 4800
    {"29", 256, 1320, 24, 450},                    // GeForce 7900 GT
    {"2A", 128, 400, 4, 233},                      // a console's chip
    {"2E", 128, 1400, 12, 560},                    // GeForce 7600 GT
    {"30", 128, 800, 4, 400},                      // GeForce FX 5800
    {"31", 128, 550, 4, 325},                      // GeForce FX 5600
    {"32", 128, 400, 4, 250},                      // GeForce FX 5200
    {"33", 256, 850, 4, 400},                      // GeForce FX 5900
    {"34", 128, 500, 4, 425},                      // GeForce FX 5700
    {"38", 128, 800, 8, 450},                      // GeForce 7650 GS
    {"39", 128, 1400, 12, 560},                    // GeForce 7600 GT
    {"3D", 64, 667, 2, 425, Memory::kComputers},   // built-in GeForce 6150 SE
    {"40", 128, 1400, 16, 540},                    // GeForce 8600 GT
    {"42", 128, 800, 8, 450},                      // GeForce 8500 GT
    {"53", 64, 667, 2, 425, Memory::kComputers},   // built-in GeForce 7050 PV
    {"60", 256, 1940, 64, 650},                    // GeForce 8800 GTS 512
    {"61", 256, 1800, 56, 600},                    // GeForce 8800 GT
    {"7E", 64, 800, 2, 600, Memory::kComputers},   // built-in GeForce 7150
};

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

/// The highest factor for what a card's table says of it, so that no position of the main slider
/// asks for more than the card has.
struct Limit {
  std::string_view level;
  int highest;
};
constexpr Limit kAntialiasingLimits[] = {{"0", 0}, {"4", 2}, {"q", 4}, {"8", 9}};
constexpr Limit kAnisotropyLimits[] = {{"0", 0}, {"2", 2}, {"8", 4}, {"16", 5}};

int Reached(std::span<const int> limits, int rate) {
  return static_cast<int>(std::upper_bound(limits.begin(), limits.end(), rate) - limits.begin());
}

/// What a card table says of a code; empty for a code that it doesn't list.
std::string LevelOf(std::string_view table, std::string_view code) {
  core::FieldReader fields(table);
  while (!fields.AtEnd()) {
    const std::string key = fields.Next().value_or("");
    std::string level = fields.Next().value_or("");
    if (key == code) return level;
  }
  return {};
}

int HighestOf(std::span<const Limit> limits, std::string_view level) {
  const auto found = std::find_if(limits.begin(), limits.end(),
                                  [level](const Limit& each) { return each.level == level; });
  return found == limits.end() ? 0 : found->highest;
}

std::string TextOf(const Factors& factors) {
  std::string text;
  for (const std::int32_t factor :
       {factors.unused, factors.image, factors.antialiasing, factors.anisotropy}) {
    text += (text.empty() ? "" : ",") + std::to_string(factor);
  }
  return text + "\n";
}

class Maker {
 public:
  explicit Maker(platform::FilesApi& files)
      : antialiasing_(files.ReadBytes("DATA/aa.dat").value_or("")),
        anisotropy_(files.ReadBytes("DATA/af.dat").value_or("")) {}

  Factors FactorsOf(const Card& card, const Entry& entry) const {
    const int sharers = card.memory == Memory::kComputers ? 2 : 1;
    const int bandwidth = card.bus_bits / 8 * card.memory_mhz / sharers;
    const int rate = card.pipelines * card.core_mhz;
    const int antialiasing = Reached(kBandwidths, bandwidth) + entry.antialiasing;
    const int anisotropy = Reached(kAnisotropyRates, rate) + entry.anisotropy;
    const int image = Reached(kImageRates, rate) + entry.image;
    return {.image = std::clamp(image, 0, kHighestImage),
            .antialiasing = std::clamp(
                antialiasing, 0, HighestOf(kAntialiasingLimits, LevelOf(antialiasing_, card.code))),
            .anisotropy = std::clamp(
                anisotropy, 0, HighestOf(kAnisotropyLimits, LevelOf(anisotropy_, card.code)))};
  }

 private:
  std::string antialiasing_;
  std::string anisotropy_;
};

}  // namespace

std::vector<TuningFile> MakeTuning(platform::FilesApi& files) {
  const Maker maker(files);
  std::vector<TuningFile> made = {{"index.dat", ""}};
  for (const Entry& entry : kEntries) {
    made.front().text.append(entry.name).append("\n");
    for (const Card& card : kCards) {
      made.push_back({std::string(entry.name).append("/").append(card.code).append(".dat"),
                      TextOf(maker.FactorsOf(card, entry))});
    }
  }
  return made;
}

}  // namespace kestrune::tuning
