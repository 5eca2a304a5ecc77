// Whether the wizard's files that are installed are those that their table makes, and lead where
// the slider says. With KESTRUNE_WRITE_TUNING set they are made anew, to be read before they are
// kept.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "core/field_reader.h"
#include "d3d/direct3d_settings.h"
#include "fake_machine.h"
#include "read_all.h"
#include "tuning_maker.h"
#include "wizard/tuning.h"

namespace kestrune::wizard {
namespace {

using settings::Writer;
using test::FakeMachine;

const std::string kFiles = KESTRUNE_DATA_FOLDER "/DATA/PW/";

class ShippedTuningTest : public testing::Test {
 protected:
  /// A card table: each code with its level.
  std::map<std::string, std::string> Table(std::string_view name) {
    const std::string text = machine.Files().ReadBytes("DATA/" + std::string(name)).value_or("");
    std::map<std::string, std::string> levels;
    for (core::FieldReader fields(text); !fields.AtEnd();) {
      const std::string code = fields.Next().value_or("");
      levels[code] = fields.Next().value_or("");
    }
    return levels;
  }

  /// Calls `check` with each entry's factors for each card.
  template <typename Check>
  void ForEachFile(Check check) {
    const auto entries = ReadIndex(machine.Files()).value_or(std::vector<std::string>());
    const auto cards = Table("af.dat");
    for (const std::string& entry : entries) {
      for (const auto& [code, level] : cards) {
        const bool is_bridge = code.front() == 'F';
        Factors factors = {-1, -1, -1, -1};
        ReadFactors(machine.Files(), entry, is_bridge ? "00" + code : "0" + code + "0", factors);
        check(entry + " " + code, code, factors);
      }
    }
  }

  FakeMachine machine;
};

TEST_F(ShippedTuningTest, AreWhatTheirTableMakes) {
  std::set<std::string> names;
  for (const tuning::TuningFile& file : tuning::MakeTuning()) {
    const std::string path = kFiles + file.name;
    if (std::getenv("KESTRUNE_WRITE_TUNING") != nullptr) {
      std::filesystem::create_directories(std::filesystem::path(path).parent_path());
      std::ofstream(path) << file.text;
    }
    EXPECT_EQ(platform::ReadAll(path), file.text) << path;
    names.insert(file.name);
  }
  for (const auto& each : std::filesystem::recursive_directory_iterator(kFiles)) {
    const std::string name = each.path().lexically_relative(kFiles).generic_string();
    EXPECT_TRUE(each.is_directory() || names.contains(name)) << name << " is made by nothing";
  }
}

TEST_F(ShippedTuningTest, HaveEveryCardInEveryEntry) {
  const auto entries = ReadIndex(machine.Files());
  ASSERT_TRUE(entries);
  EXPECT_GE(entries->size(), 4U);
  EXPECT_EQ(entries->front(), kDefaultEntry);
  std::map<std::string, std::string> texts;
  ForEachFile([&](const std::string& name, const std::string& code, const Factors& factors) {
    EXPECT_EQ(factors.unused, 0) << name << " has no file";
    texts[name.substr(0, name.size() - code.size())] += std::to_string(factors.image) +
                                                        std::to_string(factors.antialiasing) +
                                                        std::to_string(factors.anisotropy) + " ";
  });
  std::set<std::string> different;
  for (const auto& [entry, text] : texts) {
    EXPECT_TRUE(different.insert(text).second) << entry << "is no different from another";
  }
}

/// How good what a run of the wizard sets is, in each way by itself; more is better.
struct Quality {
  std::string_view what;
  int value;
};

std::vector<Quality> QualityOf(const std::vector<WriterCall>& calls) {
  constexpr int kAntialiasing[] = {0, 1, 2, 3, 5, 6, 101, 7, 8};
  constexpr int kAnisotropy[] = {36, 11, 60, 61, 112};
  constexpr int kImage[] = {67, 68, 69, 113};
  constexpr int kTrilinear[] = {115, 114};
  constexpr int kAnisoMip[] = {116, 117};
  constexpr int kAnisoSample[] = {120, 121};
  constexpr int kMipLevels[] = {109, 108};
  std::vector<Quality> quality;
  const auto rank = [&](std::string_view what, std::span<const int> codes) {
    for (const WriterCall& call : calls) {
      const auto found = std::find(codes.begin(), codes.end(), call.code);
      if (call.writer != Writer::kDirect3D || found == codes.end()) continue;
      quality.push_back({what, static_cast<int>(found - codes.begin())});
    }
  };
  rank("antialiasing", kAntialiasing);
  rank("anisotropy", kAnisotropy);
  rank("image", kImage);
  rank("trilinear", kTrilinear);
  rank("aniso mip", kAnisoMip);
  rank("aniso sample", kAnisoSample);
  rank("mip levels", kMipLevels);
  for (const WriterCall& call : calls) {
    if (call.writer != Writer::kOpenGL) continue;
    if (call.code == 63) quality.push_back({"LOD bias", -call.argument});
    if (call.code == 66) quality.push_back({"trilinear number", -call.argument});
  }
  return quality;
}

/// Whether one run is nowhere worse than another; both have the same parts.
void ExpectNoWorse(const std::vector<Quality>& better, const std::vector<Quality>& worse,
                   const std::string& where) {
  ASSERT_EQ(better.size(), worse.size()) << where;
  for (std::size_t i = 0; i < better.size(); ++i) {
    EXPECT_GE(better[i].value, worse[i].value) << where << ": " << better[i].what;
  }
}

TEST_F(ShippedTuningTest, AHigherSliderNeverGivesLowerQuality) {
  constexpr std::pair<int Positions::*, int> kSliders[] = {
      {&Positions::quality, 9}, {&Positions::antialiasing, 4}, {&Positions::filtering, 4}};
  std::vector<Positions> all;
  for (const bool fine : {false, true}) {
    for (int quality = 0; quality <= 9; ++quality) {
      for (int antialiasing = 0; antialiasing <= 4; ++antialiasing) {
        for (int filtering = 0; filtering <= 4; ++filtering) {
          all.push_back({quality, antialiasing, filtering, fine});
        }
      }
    }
  }
  std::set<std::array<std::int32_t, 3>> walked;
  ForEachFile([&](const std::string& name, const std::string&, const Factors& factors) {
    if (!walked.insert({factors.image, factors.antialiasing, factors.anisotropy}).second) return;
    for (const int processor : {0, 3, kHighestProcessorClass}) {
      for (const Positions& lower : all) {
        const auto worse = QualityOf(Optimize(lower, processor, factors));
        for (const auto& [slider, highest] : kSliders) {
          Positions higher = lower;
          if (++(higher.*slider) > highest) continue;
          ExpectNoWorse(QualityOf(Optimize(higher, processor, factors)), worse,
                        name + " from " + std::to_string(lower.*slider));
        }
      }
      const auto first = QualityOf(Optimize({0, 0, 2, false}, processor, factors));
      const auto last = QualityOf(Optimize({9, 0, 2, false}, processor, factors));
      EXPECT_GT(last[2].value, first[2].value) << name << ": the slider changes nothing";
    }
  });
}

TEST_F(ShippedTuningTest, AskForNoMoreThanTheCardHas) {
  constexpr int kDriver = 8198;
  const auto antialiasing = Table("aa.dat");
  const auto anisotropy = Table("af.dat");
  const std::string levels = "04q8";
  ForEachFile([&](const std::string& name, const std::string& code, const Factors& factors) {
    for (const WriterCall& call : Optimize({9, 0, 2, false}, kHighestProcessorClass, factors)) {
      if (call.writer != Writer::kDirect3D) continue;
      const auto match =
          FindCode(d3d::kDirect3DSettings, call.writer, call.code, call.argument, kDriver);
      ASSERT_TRUE(match) << call.code;
      if (match.row->special == settings::Special::kMode) {
        EXPECT_LE(match.choice->card_level, static_cast<int>(levels.find(antialiasing.at(code))))
            << name;
      } else if (match.row->special == settings::Special::kAnisotropy) {
        EXPECT_LE(match.choice->card_level, std::stoi(anisotropy.at(code))) << name;
      } else if (match.choice == nullptr) {
        EXPECT_LE(std::abs(call.argument), 24) << name << " leaves the page's range";
      }
    }
  });
}

}  // namespace
}  // namespace kestrune::wizard
