#include "controls/controls.h"

#include <gtest/gtest.h>

#include "controls/timer.h"

namespace kestrune::controls {
namespace {

TEST(CheckBoxTest, RunsItsHandlerOnlyForARealChangeByAPersonOrPassedOn) {
  CheckBox box("a", nullptr);
  int handled = 0;
  int drawn = 0;
  box.on_change = [&] { ++handled; };
  const Subscription subscription = box.Observe([&] { ++drawn; });
  box.Show(1);
  EXPECT_TRUE(box.Use(1));
  EXPECT_EQ(handled, 0);
  EXPECT_TRUE(box.Use(0));
  box.PassOn(0);
  box.PassOn(2);
  EXPECT_EQ(handled, 2);
  EXPECT_EQ(drawn, 3);
  EXPECT_FALSE(box.Use(3));
  box.Show(-1);
  EXPECT_EQ(box.ValueText(), "mixed");
}

TEST(OptionButtonTest, ChoosingAgainRunsTheHandlerAgainAndClearsTheOthers) {
  OptionButton first("a", nullptr);
  OptionButton second("b", nullptr);
  OptionButton::Group({&first, &second});
  int clicks = 0;
  second.on_click = [&] { ++clicks; };
  first.Show(true);
  second.Use();
  second.Use();
  EXPECT_EQ(clicks, 2);
  EXPECT_FALSE(first.Chosen());
}

TEST(ComboBoxTest, ATextNeedsNotBeAnItemAndNewItemsKeepIt) {
  ComboBox combo("a", nullptr);
  combo.ShowText("two");
  EXPECT_EQ(combo.Position(), -1);
  combo.SetItems({"one", "two", "two"});
  EXPECT_EQ(combo.Position(), 1);
  combo.SetItems({"three"});
  EXPECT_EQ(combo.Text(), "two");
  EXPECT_EQ(combo.Position(), -1);
  combo.ShowPosition(7);
  EXPECT_EQ(combo.Text(), "two");
}

TEST(ComboBoxTest, TellsAChoiceFromAChangedText) {
  ComboBox combo("a", nullptr);
  combo.SetItems({"one", "two"});
  std::string told;
  combo.on_change = [&](ComboChange change) { told += change == ComboChange::kChosen ? 'c' : 't'; };
  EXPECT_TRUE(combo.Choose(1));
  EXPECT_TRUE(combo.Choose(1));
  EXPECT_FALSE(combo.Choose(2));
  EXPECT_FALSE(combo.Type("x"));
  combo.SetTakesTyping(true);
  EXPECT_TRUE(combo.Type("x"));
  EXPECT_TRUE(combo.Type("x"));
  combo.PassOn(1);
  combo.PassOn(1);
  combo.PassOn(9);
  combo.ShowText("one");
  EXPECT_EQ(told, "cctc");
}

TEST(SliderTest, StaysInItsRangeAndANewRangeMovesItSilently) {
  Slider slider("a", nullptr);
  slider.SetRange(1, 17);
  int handled = 0;
  slider.on_change = [&] { ++handled; };
  slider.Show(18);
  EXPECT_EQ(slider.Value(), 1);
  EXPECT_FALSE(slider.Use(0));
  EXPECT_TRUE(slider.Use(17));
  slider.SetRange(1, 8);
  EXPECT_EQ(slider.Value(), 8);
  slider.SetRange(9, 2);
  EXPECT_EQ(slider.Maximum(), 8);
  EXPECT_EQ(handled, 1);
}

TEST(ControlTest, AnObserverMayEndItselfWhileItIsTold) {
  Label label("a", nullptr);
  int told = 0;
  Subscription subscription;
  subscription = label.Observe([&] {
    ++told;
    subscription = Subscription();
  });
  label.SetCaption("x");
  label.SetCaption("y");
  EXPECT_EQ(told, 1);
}

TEST(TimerTest, FiresAsOftenAsItFallsDueInOrderOfTime) {
  Scheduler scheduler;
  Timer fast(scheduler, 100);
  Timer slow(scheduler, 250);
  std::string fired;
  fast.on_tick = [&] { fired += 'f'; };
  slow.on_tick = [&] {
    fired += 's';
    fast.SetEnabled(false);
  };
  EXPECT_EQ(scheduler.UntilNext(), -1);
  fast.SetEnabled(true);
  slow.SetEnabled(true);
  scheduler.Advance(99);
  EXPECT_EQ(scheduler.UntilNext(), 1);
  scheduler.Advance(901);
  EXPECT_EQ(fired, "ffssss");
  slow.SetEnabled(false);
  fast.SetEnabled(true);
  EXPECT_EQ(scheduler.UntilNext(), 100);
}

}  // namespace
}  // namespace kestrune::controls
