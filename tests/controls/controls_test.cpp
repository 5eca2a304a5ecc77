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
  second.PassOn();
  EXPECT_EQ(clicks, 2);
  EXPECT_FALSE(first.Chosen());
  first.Use();
  second.PassOn();
  EXPECT_EQ(clicks, 3);
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

TEST(ComboBoxTest, ItemsAreFoundOnceWhenAnythingNeedsThem) {
  const std::function<void(ComboBox&)> needs[] = {
      [](ComboBox& combo) { EXPECT_EQ(combo.Items().size(), 2U); },
      [](ComboBox& combo) { EXPECT_EQ(combo.Position(), 0); },
      [](ComboBox& combo) { EXPECT_EQ(combo.ItemFor("TWO"), 1); },
      [](ComboBox& combo) { EXPECT_TRUE(combo.Choose(1)); },
      [](ComboBox& combo) { combo.PassOn(1); },
      [](ComboBox& combo) { combo.ShowPosition(1); },
      [](ComboBox& combo) { combo.ShowText("two"); }};
  for (const auto& need : needs) {
    ComboBox combo("a", nullptr);
    combo.ShowText("one");
    int found = 0;
    combo.FindItems([&found] {
      ++found;
      return std::vector<std::string>{"one", "two"};
    });
    EXPECT_EQ(combo.ValueText(), "one");
    EXPECT_EQ(found, 0);
    need(combo);
    EXPECT_EQ(combo.Position(), combo.Text() == "two" ? 1 : 0);
    EXPECT_EQ(found, 1);
  }
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

TEST(ComboBoxTest, AGivenTextIsAnItemOrElseTyped) {
  struct Case {
    bool takes_typing;
    const char* text;
    TextUse use;
    const char* shown;
    const char* told;
  };
  constexpr Case kCases[] = {
      {false, "Off", TextUse::kItem, "Off", "c"}, {false, "off", TextUse::kItem, "off", "c"},
      {false, "OFF", TextUse::kItem, "Off", "c"}, {true, "ÉCRAN", TextUse::kItem, "écran", "c"},
      {false, "2x", TextUse::kRefused, "4x", ""}, {true, "2x", TextUse::kTyped, "2x", "t"},
      {true, "4x", TextUse::kTyped, "4x", ""},
  };
  for (const Case& each : kCases) {
    ComboBox combo("a", nullptr);
    combo.SetItems({"Off", "off", "écran"});
    combo.ShowText("4x");
    combo.SetTakesTyping(each.takes_typing);
    std::string told;
    combo.on_change = [&](ComboChange change) { told += change == ComboChange::kText ? 't' : 'c'; };
    EXPECT_EQ(combo.UseText(each.text), each.use) << each.text;
    EXPECT_EQ(combo.Text(), each.shown);
    EXPECT_EQ(told, each.told) << each.text;
  }
}

TEST(ListBoxTest, NewLinesKeepTheChosenOneWhereThatIsAskedFor) {
  struct Case {
    int chosen;
    std::vector<std::string> lines;
    int kept;
  };
  const Case cases[] = {
      {1, {"x", "b", "b"}, 1}, {2, {"a", "b", "b"}, 2}, {2, {"b"}, 0}, {1, {"a"}, -1}, {1, {}, -1},
      {-1, {"", "b"}, -1}};
  for (const Case& each : cases) {
    ListBox list("a", nullptr);
    int handled = 0;
    list.on_change = [&] { ++handled; };
    list.SetItems({"a", "b", "b"});
    list.ShowPosition(each.chosen);
    list.ShowPosition(3);
    EXPECT_EQ(list.Position(), each.chosen);
    list.RefreshItems(each.lines);
    EXPECT_EQ(list.Position(), each.kept);
    list.SetItems(each.lines);
    EXPECT_EQ(list.Position(), -1);
    EXPECT_EQ(handled, 0);
  }
}

TEST(TextBoxTest, OneThatTakesNoTypingStillTakesWhatIsPassedOn) {
  TextBox box("a", nullptr);
  int handled = 0;
  box.on_change = [&] { ++handled; };
  box.SetTakesTyping(false);
  EXPECT_FALSE(box.Type("x"));
  EXPECT_EQ(box.Text(), "");
  box.PassOn("y");
  box.PassOn("y");
  box.ShowText("z");
  EXPECT_EQ(handled, 1);
  EXPECT_EQ(box.ValueText(), "z");
}

TEST(GraphTest, RemembersWhatWasDrawnSinceTheLastClearing) {
  Graph graph("a", nullptr);
  int drawn = 0;
  const Subscription subscription = graph.Observe([&] { ++drawn; });
  graph.Draw(GraphPoint{1, 2, "#00ff00", 30});
  graph.Clear();
  graph.Clear();
  graph.Draw(GraphLine{60, 10, 60, 90, "#ff0000", 30});
  graph.Draw(GraphPoint{1, 2, "#00ff00", 30});
  EXPECT_EQ(graph.Shapes(), (std::vector<GraphShape>{GraphLine{60, 10, 60, 90, "#ff0000", 30},
                                                     GraphPoint{1, 2, "#00ff00", 30}}));
  EXPECT_EQ(drawn, 4);
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

TEST(TimerTest, ANewIntervalStartsAtOnceWhereTheTimerRuns) {
  Scheduler scheduler;
  Timer timer(scheduler, 1000);
  int armed = 0;
  int ticks = 0;
  scheduler.on_armed = [&] { ++armed; };
  timer.on_tick = [&] { ++ticks; };
  timer.SetInterval(400);
  EXPECT_EQ(scheduler.UntilNext(), -1);
  timer.SetEnabled(true);
  scheduler.Advance(300);
  timer.SetInterval(200);
  EXPECT_EQ(scheduler.UntilNext(), 200);
  scheduler.Advance(400);
  EXPECT_EQ(ticks, 2);
  EXPECT_EQ(armed, 2);
}

}  // namespace
}  // namespace kestrune::controls
