#include <gtest/gtest.h>

#include <algorithm>

#include "fake_machine.h"

namespace kestrune::forms {
namespace {

using platform::Answer;
using platform::ModeChange;
using test::Driven;
using test::FakeMachine;
using test::Joined;

constexpr const char* kList = "control-panel.resolution.select-resolution";
constexpr const char* kApply = "control-panel.resolution.apply";

TEST(ResolutionPageTest, ListsAllModesButTheFirstBeforeAnythingElseHappens) {
  FakeMachine machine;
  const Driven driven(machine);
  EXPECT_EQ(Joined({machine.log.begin(), machine.log.begin() + 4}),
            "mode 0, mode 1, mode 2, mode 3");
  EXPECT_EQ(driven.Get<controls::ListBox>(kList).Items(),
            (std::vector<std::string>{"800x600x16 75Hz", "1024x768x32 85Hz"}));
  FakeMachine many;
  many.modes.assign(40, {640, 480, 16, 60});
  EXPECT_EQ(Driven(many).Get<controls::ListBox>(kList).Items().size(), 39u);
  FakeMachine none;
  none.modes.clear();
  EXPECT_TRUE(Driven(none).Get<controls::ListBox>(kList).Items().empty());
}

TEST(ResolutionPageTest, ApplyAsksWhereItMustAndDoesWhatItIsTold) {
  struct Case {
    ModeChange change;
    bool must_confirm;
    std::optional<Answer> answer;
    std::string messages;
    std::string trace;
    bool restarts = false;
  };
  const std::string mode = "mode 1024x768x32 saved";
  const std::string restart =
      "The computer must be restarted to change the display mode. Restart it now?";
  const Case cases[] = {
      {ModeChange::kDone, false, {}, "", mode},
      {ModeChange::kDone, true, Answer::kOk, "Keep this display mode?", mode},
      {ModeChange::kDone, true, Answer::kCancel, "Keep this display mode?",
       mode + ", mode 640x480x16 saved"},
      {ModeChange::kRestartNeeded, true, {}, restart, mode},
      {ModeChange::kRestartNeeded, false, Answer::kOk, restart, mode, true},
      {ModeChange::kRestartNeeded, false, Answer::kCancel, restart, mode},
      {ModeChange::kFailed, true, {}, "The display mode could not be changed.", ""}};
  for (const Case& each : cases) {
    FakeMachine machine;
    machine.mode_change = each.change;
    machine.must_confirm = each.must_confirm;
    machine.answer = each.answer;
    Driven driven(machine);
    EXPECT_FALSE(driven.Enabled(kApply));
    machine.TakeTrace();
    EXPECT_TRUE(driven.Get<controls::ListBox>(kList).Choose(1));
    EXPECT_TRUE(driven.Enabled(kApply));
    EXPECT_EQ(Joined(machine.TakeTrace()), "");
    driven.Press(kApply);
    EXPECT_EQ(std::count(machine.log.begin(), machine.log.end(), "restart"), each.restarts ? 1 : 0);
    EXPECT_EQ(Joined(machine.TakeTrace()), each.trace);
    EXPECT_EQ(Joined(machine.messages), each.messages);
  }
}

TEST(ResolutionPageTest, TheTimeToConfirmIsLimitedAndARestartIsNeverPreset) {
  FakeMachine machine;
  machine.must_confirm = true;
  Driven driven(machine);
  EXPECT_TRUE(driven.Get<controls::ListBox>(kList).Choose(0));
  driven.Press(kApply);
  EXPECT_EQ(machine.last_question.seconds, 15);
  EXPECT_EQ(machine.last_question.preset, Answer::kOk);
  machine.mode_change = ModeChange::kRestartNeeded;
  driven.Press(kApply);
  EXPECT_EQ(machine.last_question.seconds, 0);
  EXPECT_EQ(machine.last_question.preset, Answer::kCancel);
}

TEST(ResolutionPageTest, TheQuickChoiceChangesTheSizeForAWhileAndSaysNothing) {
  FakeMachine machine;
  machine.must_confirm = true;
  Driven driven(machine);
  machine.TakeTrace();
  for (int position = 0; position < 6; ++position) {
    driven.Choose("control-panel.resolution.select-from-list", position);
  }
  EXPECT_EQ(Joined(machine.TakeTrace()),
            "mode 640x480 unsaved, mode 800x600 unsaved, mode 1024x768 unsaved, "
            "mode 1152x864 unsaved, mode 1280x1024 unsaved, mode 1600x1200 unsaved");
  machine.mode_change = ModeChange::kFailed;
  driven.Choose("control-panel.resolution.select-from-list", 0);
  EXPECT_EQ(Joined(machine.TakeTrace()), "");
  EXPECT_TRUE(machine.messages.empty());
}

}  // namespace
}  // namespace kestrune::forms
