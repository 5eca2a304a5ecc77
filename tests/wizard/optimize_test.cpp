// What the wizard's numbers come to. The rows are worked by hand.

#include "wizard/optimize.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace kestrune::wizard {
namespace {

using settings::Writer;

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

/// The calls in short: D for Direct3D and G for OpenGL, the code, and the argument of those that
/// have one.
std::string Text(const std::vector<WriterCall>& calls) {
  std::string text;
  for (const WriterCall& call : calls) {
    const bool is_direct3d = call.writer == Writer::kDirect3D;
    if (!text.empty()) text += " ";
    text += (is_direct3d ? "D" : "G") + std::to_string(call.code);
    const bool has_argument = is_direct3d ? call.code == 30 : call.code == 63 || call.code == 66;
    if (has_argument) text += ":" + std::to_string(call.argument);
  }
  return text;
}

TEST(OptimizeTest, WritesWhatItsFormulasSay) {
  struct Case {
    const char* what;
    Positions at;
    int processor_class;
    Factors factors;
    const char* calls;
  };
  const Case cases[] = {
      {"middle",
       {5, 0, 2, false},
       6,
       {9, 0, 6, 0},
       "D2 G1 D36 D68 G57 G65 G63:2 D30:2 D108 D114 D117 D120"},
      {"the same with fine antialiasing",
       {5, 4, 2, true},
       6,
       {9, 0, 6, 0},
       "D5 D36 D68 G57 G66:16 G63:2 D30:2 D108 D114 D117 D120"},
      {"fastest of the slowest",
       {0, 0, 0, false},
       0,
       {},
       "D0 G0 D36 D67 G58 G65 G63:7 D30:7 D109 D115 D116 D120"},
      {"best of the best",
       {9, 0, 2, false},
       7,
       {0, 10, 10, 5},
       "D8 G62 D112 D113 G64 G65 G63:-6 D30:-6 D108 D114 D117 D121"},
      {"levels far below none",
       {9, 0, 0, true},
       0,
       {0, 0, 2, 2},
       "D0 G0 D36 D69 G56 G66:26 G63:0 D30:0 D108 D114 D117 D121"},
      {"negative factors",
       {8, 0, 2, false},
       7,
       {0, -10, -3, -4},
       "D0 G0 D36 D69 G56 G65 G63:1 D30:1 D108 D114 D117 D121"},
      {"5.5 is 6",
       {1, 0, 2, false},
       7,
       {0, 0, 11, 10},
       "D1 G2 D11 D67 G58 G65 G63:6 D30:6 D108 D115 D116 D120"},
      {"9.5 is 10",
       {1, 0, 2, false},
       7,
       {0, 0, 19, 9},
       "D2 G1 D36 D67 G58 G65 G63:6 D30:6 D108 D115 D116 D120"},
      {"14.5 is 14",
       {1, 0, 2, false},
       7,
       {0, 0, 29, 9},
       "D2 G1 D36 D67 G58 G65 G63:6 D30:6 D108 D115 D116 D120"},
      {"the quality's -0.5 is 0",
       {3, 0, 2, false},
       5,
       {0, 1, 0, 7},
       "D0 G0 D11 D68 G57 G65 G63:5 D30:5 D108 D115 D116 D120"},
      {"the quality's 0.5 is 0",
       {5, 0, 2, false},
       5,
       {},
       "D0 G0 D36 D68 G57 G65 G63:2 D30:2 D108 D114 D117 D120"},
      {"its 2.5 is 2",
       {9, 0, 2, false},
       0,
       {},
       "D0 G0 D36 D69 G56 G65 G63:-2 D30:-2 D108 D114 D117 D121"},
      {"its parts are rounded as one",
       {4, 0, 2, false},
       6,
       {0, 2, 0, 0},
       "D0 G0 D36 D68 G57 G65 G63:4 D30:4 D108 D115 D117 D120"},
      {"the fine bias of 2.5 is 2",
       {6, 3, 1, true},
       7,
       {0, 0, 3, 0},
       "D1 G2 D36 D69 G56 G66:22 G63:2 D30:2 D108 D114 D117 D121"},
      {"that of 3.5 is 4",
       {5, 3, 1, true},
       7,
       {0, 0, 3, 0},
       "D1 G2 D36 D68 G57 G66:23 G63:4 D30:4 D108 D114 D117 D120"},
      {"fine filtering alone",
       {3, 3, 4, true},
       7,
       {0, 0, 4, 4},
       "D1 G2 D60 D68 G57 G66:4 G63:0 D30:0 D108 D114 D117 D121"},
      {"the largest that antialiasing takes",
       {2, 0, 2, false},
       7,
       {0, 0, kMost, kMost},
       "D8 G62 D67 G58 G65 G63:5 D30:5 D108 D115 D116 D120"},
      {"beyond it",
       {3, 0, 2, false},
       7,
       {0, 0, kMost, 0},
       "D36 D68 G57 G65 G63:4 D30:4 D108 D115 D116 D120"},
      {"a bias beyond 32 bits",
       {2, 0, 2, false},
       7,
       {0, kMost, 0, 0},
       "D0 G0 D36 D113 G64 G65 D108 D115 D116 D120"},
      {"a fine bias beyond them",
       {2, 3, 0, true},
       7,
       {0, 0, kMost, 0},
       "D8 G62 D36 D67 G58 G66:31 D108 D115 D116 D120"},
      {"one that would come back into them",
       {0, 3, 4, true},
       7,
       {0, -10, kLeast, 0},
       "D0 G0 D11 D67 G58 G66:7 D108 D114 D117 D121"},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(Text(Optimize(each.at, each.processor_class, each.factors)), each.calls) << each.what;
  }
}

/// The first calls of a run for each of some numbers.
template <typename Run>
std::string Starts(std::initializer_list<std::int32_t> numbers, std::string_view until, Run run) {
  std::string text;
  for (const std::int32_t number : numbers) {
    const std::string calls = Text(run(number));
    text += std::to_string(number) + " " + calls.substr(0, calls.find(until)) + ",";
  }
  return text;
}

TEST(OptimizeTest, ALevelBeginsAtItsScore) {
  // At these positions the score is the factor.
  EXPECT_EQ(Starts({5, 6, 9, 10, 14, 15, 19, 20, 24, 25, 29, 30, 34, 35, 39, 40}, " D36",
                   [](std::int32_t factor) {
                     return Optimize({2, 0, 2, false}, 7, {0, 0, factor, 0});
                   }),
            "5 D0 G0,6 D1 G2,9 D1 G2,10 D2 G1,14 D2 G1,15 D3 G3,19 D3 G3,20 D5,24 D5,25 D6,29 D6,"
            "30 D101,34 D101,35 D7 G61,39 D7 G61,40 D8 G62,");
  EXPECT_EQ(Starts({9, 10, 14, 15, 19, 20, 24, 25, 29, 30, 34, 35, 39, 40}, " D67",
                   [](std::int32_t factor) {
                     return Optimize({1, 0, 2, false}, 7, {0, 0, 0, factor});
                   }),
            "9 D0 G0 D36,10 D0 G0 D11,14 D0 G0 D11,15 D0 G0 D11,19 D0 G0 D11,20 D0 G0 D60,"
            "24 D0 G0 D60,25 D0 G0 D60,29 D0 G0 D60,30 D0 G0 D61,34 D0 G0 D61,35 D0 G0 D61,"
            "39 D0 G0 D61,40 D0 G0 D112,");
}

TEST(OptimizeTest, ABoxFollowsTheQualityAndTheFilteringSlider) {
  const auto boxes = [](int quality, int filtering) {
    const std::string calls = Text(Optimize({quality, 0, filtering, false}, 7, {}));
    return calls.substr(calls.find("D10"));
  };
  EXPECT_EQ(boxes(0, 1), "D108 D115 D116 D120");
  EXPECT_EQ(boxes(1, 0), "D108 D115 D116 D120");
  EXPECT_EQ(boxes(3, 2), "D108 D115 D116 D120");
  EXPECT_EQ(boxes(4, 2), "D108 D115 D117 D120");
  EXPECT_EQ(boxes(5, 2), "D108 D114 D117 D120");
  EXPECT_EQ(boxes(6, 2), "D108 D114 D117 D121");
  EXPECT_EQ(boxes(0, 3), "D108 D115 D117 D120");
  EXPECT_EQ(boxes(0, 4), "D108 D114 D117 D121");
}

TEST(OptimizeTest, AProcessorIsOfAClassFromItsClockOn) {
  std::string classes;
  for (const int mhz :
       {0, 499, 500, 799, 800, 1099, 1100, 1499, 1500, 1899, 1900, 2299, 2300, 2799, 2800, 5000}) {
    classes += std::to_string(ProcessorClass(mhz));
  }
  EXPECT_EQ(classes, "0011223344556677");
}

}  // namespace
}  // namespace kestrune::wizard
