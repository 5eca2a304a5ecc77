#include "controls/gate.h"

#include <gtest/gtest.h>

namespace kestrune::controls {
namespace {

/// Two windows; in the first a frame with a button and a box.
struct Desk {
  Window main{"main", nullptr};
  Frame page{"page", &main};
  Button button{"page.button", &page};
  Window other{"other", nullptr};
  Button close{"other.close", &other};
  Gate gate;
};

TEST(GateTest, RefusesWhatAPersonCannotReach) {
  struct Case {
    const char* what;
    void (*arrange)(Desk&);
    Refusal button;
    Refusal close;
  };
  constexpr Case kCases[] = {
      {"nothing", [](Desk&) {}, Refusal::kNone, Refusal::kNone},
      {"a disabled control", [](Desk& desk) { desk.button.SetEnabled(false); }, Refusal::kDisabled,
       Refusal::kNone},
      {"a disabled frame", [](Desk& desk) { desk.page.SetEnabled(false); }, Refusal::kDisabled,
       Refusal::kNone},
      {"a hidden control", [](Desk& desk) { desk.button.SetVisible(false); }, Refusal::kHidden,
       Refusal::kNone},
      {"a hidden, disabled frame",
       [](Desk& desk) {
         desk.page.SetVisible(false);
         desk.page.SetEnabled(false);
       },
       Refusal::kHidden, Refusal::kNone},
      {"a closed window", [](Desk& desk) { desk.other.SetVisible(false); }, Refusal::kNone,
       Refusal::kWindowClosed},
      {"a modal window", [](Desk& desk) { desk.gate.SetModal(&desk.other); }, Refusal::kBehindModal,
       Refusal::kNone},
  };
  for (const Case& each : kCases) {
    Desk desk;
    each.arrange(desk);
    int done = 0;
    const auto act = [&done] { return ++done > 0; };
    EXPECT_EQ(desk.gate.Act(desk.button, act), each.button) << each.what;
    EXPECT_EQ(desk.gate.Act(desk.close, act), each.close) << each.what;
    EXPECT_EQ(desk.gate.Act(desk.other, act), each.close) << each.what;
    EXPECT_EQ(done,
              (each.button == Refusal::kNone ? 1 : 0) + (each.close == Refusal::kNone ? 2 : 0))
        << each.what;
  }
}

TEST(GateTest, RemembersWhichControlActsAndTakesNoOtherActMeanwhile) {
  Desk desk;
  std::vector<const Control*> acting;
  const auto note = [&] { acting.push_back(desk.gate.Acting()); };
  desk.close.on_click = note;
  desk.button.on_click = [&] {
    EXPECT_EQ(desk.gate.Act({"F1", &desk.close}), Refusal::kBusy);
    EXPECT_EQ(desk.gate.Act(desk.button, [] { return true; }), Refusal::kBusy);
    note();
  };
  note();
  EXPECT_EQ(desk.gate.Act({"Ctrl+Tab", &desk.button}), Refusal::kNone);
  EXPECT_EQ(desk.gate.Act({"Escape", &desk.other, note}), Refusal::kNone);
  EXPECT_EQ(desk.gate.Act(desk.close, [] { return false; }), Refusal::kNotTaken);
  note();
  EXPECT_EQ(acting, (std::vector<const Control*>{nullptr, &desk.button, &desk.other, nullptr}));
}

}  // namespace
}  // namespace kestrune::controls
