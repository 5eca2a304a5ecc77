#include "platform/portable/display.h"

#include <gtest/gtest.h>

#include "platform/portable/machine_description.h"

namespace kestrune::platform::portable {
namespace {

constexpr const char* kDescription = R"(
[display]
modes = ["640x480x16 60Hz", "800x600x16 60Hz", "800x600x32 75Hz", "1024x768x32 85Hz"]
restart_needed = ["800x600x16", "640x480"]
refused = ["1024x768", "640x480x32"]
)";

TEST(DescribedDisplaysTest, AChangeEndsAsTheDescriptionSays) {
  struct Case {
    ModeRequest request;
    ModeChange change;
  };
  const Case cases[] = {{{800, 600, 32}, ModeChange::kDone},
                        {{800, 600, 16}, ModeChange::kRestartNeeded},
                        {{640, 480, 16}, ModeChange::kRestartNeeded},
                        {{1024, 768, 32}, ModeChange::kFailed},
                        {{1024, 768, 16}, ModeChange::kFailed},
                        {{1600, 1200, 32}, ModeChange::kFailed},
                        {{1600, 1200}, ModeChange::kFailed},
                        // Without a depth it meets what is said of any depth.
                        {{800, 600}, ModeChange::kRestartNeeded},
                        {{640, 480}, ModeChange::kFailed}};
  const auto loaded = ParseMachineDescription(kDescription, "m");
  ASSERT_TRUE(loaded.Ok()) << loaded.Reason();
  for (const bool dry_run : {false, true}) {
    DescribedDisplays display(loaded.Value().description, dry_run);
    EXPECT_FALSE(display.MustConfirm());
    for (const Case& each : cases) {
      EXPECT_EQ(display.ChangeMode(each.request), each.change)
          << each.request.width << "x" << each.request.depth.value_or(0);
    }
  }
}

TEST(DescribedDisplaysTest, ATableWithoutModesHasNone) {
  const auto loaded = ParseMachineDescription("[display]\n", "m");
  DescribedDisplays display(loaded.Value().description, false);
  EXPECT_EQ(display.ModeAt(0), std::nullopt);
  EXPECT_FALSE(display.MustConfirm());
}

TEST(DescribedDisplaysTest, ModesAreCountedFromTheFirst) {
  const auto loaded = ParseMachineDescription(kDescription, "m");
  DescribedDisplays display(loaded.Value().description, false);
  EXPECT_EQ(display.ModeAt(0), (DisplayMode{640, 480, 16, 60}));
  EXPECT_EQ(display.ModeAt(3), (DisplayMode{1024, 768, 32, 85}));
  EXPECT_EQ(display.ModeAt(4), std::nullopt);
  EXPECT_EQ(display.ModeAt(-1), std::nullopt);
}

}  // namespace
}  // namespace kestrune::platform::portable
