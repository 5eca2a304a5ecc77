#include "wizard/optimize.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "core/number.h"

namespace kestrune::wizard {

namespace {

using core::RoundToInt32;
using settings::Writer;

constexpr int kClassClocks[] = {500, 800, 1100, 1500, 1900, 2300, 2800};
static_assert(std::size(kClassClocks) == kHighestProcessorClass);

/// The scores from which each next level holds.
constexpr int kAntialiasingScores[] = {6, 10, 15, 20, 25, 30, 35, 40};
constexpr int kAnisotropyScores[] = {10, 15, 20, 25, 30, 35, 40};

/// The codes of both writers for a level; OpenGL has no code for some.
struct Codes {
  int direct3d;
  int opengl;
};
constexpr int kNoCode = -1;
constexpr Codes kAntialiasingCodes[] = {{0, 0},       {1, 2},         {2, 1},  {3, 3}, {5, kNoCode},
                                        {6, kNoCode}, {101, kNoCode}, {7, 61}, {8, 62}};
constexpr Codes kAnisotropyCodes[] = {{36, kNoCode}, {11, kNoCode}, {11, kNoCode}, {60, kNoCode},
                                      {60, kNoCode}, {61, kNoCode}, {61, kNoCode}, {112, kNoCode}};
constexpr Codes kImageCodes[] = {{67, 58}, {68, 57}, {69, 56}, {113, 64}};

constexpr int kLodBiasDirect3D = 30;
constexpr int kLodBiasOpenGL = 63;
constexpr int kTrilinearNumber = 66;
constexpr int kTrilinearUnset = 65;
constexpr std::int32_t kCoarsestTrilinear = 31;
constexpr int kFullMipLevels = 108;
constexpr int kLowMipLevels = 109;

/// A box that trades quality for speed: off from either of two positions on.
struct Shortcut {
  int quality;
  int filtering;
  int off;
  int on;
};
constexpr Shortcut kShortcuts[] = {{5, 4, 114, 115}, {4, 3, 117, 116}, {6, 4, 121, 120}};

int LevelOf(std::span<const int> limits, std::int32_t number) {
  return static_cast<int>(std::upper_bound(limits.begin(), limits.end(), number) - limits.begin());
}

class Optimizer {
 public:
  Optimizer(const Positions& positions, int processor_class, const Factors& factors)
      : at_(positions), class_(processor_class), factors_(factors) {}

  std::vector<WriterCall> Run() {
    Antialias();
    FilterAnisotropically();
    ChooseImageQuality();
    ChooseTrilinearQuality();
    BiasLod();
    TakeShortcuts();
    return std::move(calls_);
  }

 private:
  void Call(Writer writer, int code, std::int32_t argument = 0) {
    calls_.push_back({writer, code, argument});
  }

  void CallLevel(std::span<const Codes> codes, int level) {
    const auto highest = static_cast<int>(codes.size()) - 1;
    const Codes& chosen = codes[static_cast<std::size_t>(std::clamp(level, 0, highest))];
    Call(Writer::kDirect3D, chosen.direct3d);
    if (chosen.opengl != kNoCode) Call(Writer::kOpenGL, chosen.opengl);
  }

  /// What a slow processor and a fine slider make of a level.
  int Adjusted(int level, int fine_position) const {
    level -= kHighestProcessorClass - class_;
    return at_.fine_adjust ? level + 2 * (fine_position - 3) : level;
  }

  void Antialias() {
    const auto score = RoundToInt32(factors_.antialiasing / 2.0 * at_.quality);
    if (!score) return;
    CallLevel(kAntialiasingCodes, Adjusted(LevelOf(kAntialiasingScores, *score), at_.antialiasing));
  }

  void FilterAnisotropically() {
    const auto score = RoundToInt32(static_cast<double>(at_.quality) * factors_.anisotropy);
    if (!score) return;
    CallLevel(kAnisotropyCodes, Adjusted(LevelOf(kAnisotropyScores, *score), at_.filtering));
  }

  void ChooseImageQuality() {
    const auto wanted = RoundToInt32(at_.quality / 2.0 - 2);
    const auto possible = RoundToInt32(factors_.image / 7.0 + class_ / 5.0);
    if (wanted && possible) CallLevel(kImageCodes, *wanted + *possible);
  }

  void ChooseTrilinearQuality() {
    if (!at_.fine_adjust) return Call(Writer::kOpenGL, kTrilinearUnset);
    const std::int32_t coarseness = (5 - at_.filtering) * 7 - at_.quality;
    Call(Writer::kOpenGL, kTrilinearNumber, std::clamp(coarseness, 0, kCoarsestTrilinear));
  }

  std::optional<std::int32_t> LodBias() const {
    const auto bias = RoundToInt32((7 - at_.quality) * (factors_.image / 5.0 + 1));
    if (!bias || !at_.fine_adjust) return bias;
    const double fine = (2 - at_.filtering) * (factors_.antialiasing / 2.0);
    return RoundToInt32(fine) ? RoundToInt32(*bias + fine) : std::nullopt;
  }

  void BiasLod() {
    const auto bias = LodBias();
    if (!bias) return;
    Call(Writer::kOpenGL, kLodBiasOpenGL, *bias);
    Call(Writer::kDirect3D, kLodBiasDirect3D, *bias);
  }

  void TakeShortcuts() {
    const bool is_fastest = at_.quality == 0 && at_.filtering == 0;
    Call(Writer::kDirect3D, is_fastest ? kLowMipLevels : kFullMipLevels);
    for (const Shortcut& each : kShortcuts) {
      const bool is_off = at_.quality >= each.quality || at_.filtering >= each.filtering;
      Call(Writer::kDirect3D, is_off ? each.off : each.on);
    }
  }

  const Positions at_;
  const int class_;
  const Factors factors_;
  std::vector<WriterCall> calls_;
};

}  // namespace

int ProcessorClass(int mhz) { return LevelOf(kClassClocks, mhz); }

std::vector<WriterCall> Optimize(const Positions& positions, int processor_class,
                                 const Factors& factors) {
  return Optimizer(positions, processor_class, factors).Run();
}

}  // namespace kestrune::wizard
