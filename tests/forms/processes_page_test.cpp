#include <gtest/gtest.h>

#include "fake_machine.h"

namespace kestrune::forms {
namespace {

using test::Driven;
using test::FakeMachine;

constexpr const char* kList = "info.processes.processes";

class ProcessesPageTest : public testing::Test {
 protected:
  void Refresh() { driven.Press("info.processes.refresh"); }
  void Choose(int line) { EXPECT_TRUE(driven.Get<controls::ListBox>(kList).Choose(line)); }
  std::string Details() const {
    std::string text;
    for (const char* line : {"process-name", "process-id", "parent-process-id", "number-of-threads",
                             "total-processes"}) {
      const std::string caption = driven.Caption(std::string("info.processes.") + line);
      text += caption.substr(caption.find(':') + 1) + "|";
    }
    return text + driven.Text("info.processes.priority-bar");
  }
  void AddMany(int count) {
    machine.processes.emplace();
    for (int i = 0; i <= count; ++i) {
      machine.processes->push_back({"p" + std::to_string(i), i, i - 1, 1, 8});
    }
  }

  FakeMachine machine;
  Driven driven{machine};
};

TEST_F(ProcessesPageTest, NothingIsListedBeforeItIsAskedFor) {
  AddMany(3);
  EXPECT_EQ(Details(), " | | | | |0");
  EXPECT_TRUE(driven.Get<controls::ListBox>(kList).Items().empty());
  Refresh();
  EXPECT_EQ(driven.Get<controls::ListBox>(kList).Items(),
            (std::vector<std::string>{"p1", "p2", "p3"}));
  EXPECT_EQ(Details(), " | | | | 3|0");
}

TEST_F(ProcessesPageTest, TheChosenLineHasDetails) {
  machine.processes = {
      {"[System Process]", 0, 0, 1, 0}, {"init", 1, 0, 4, 8},  {"shell", 7, 1, 2, 13},
      {"orphan", 9, 8, 1, 24},          {"again", 7, 7, 1, 0}, {"child", 11, 7, 1, 4}};
  Refresh();
  // The frame around the bar has 254 whole pixels.
  const char* details[] = {" init| 1| 0| 4| 5|2032", " shell| 7| 1 - init| 2| 5|3302",
                           " orphan| 9| 8| 1| 5|3810", " again| 7| 7 - shell| 1| 5|0",
                           " child| 11| 7 - shell| 1| 5|1016"};
  for (int line = 0; line < 5; ++line) {
    Choose(line);
    EXPECT_EQ(Details(), details[line]);
  }
  Refresh();
  EXPECT_EQ(driven.Get<controls::ListBox>(kList).Position(), -1);
  EXPECT_EQ(Details(), " | | | | 5|0");
}

TEST_F(ProcessesPageTest, LinesBeyondTheTableHaveNoDetailsAndAreNobodysParent) {
  AddMany(203);
  machine.processes->at(200).parent = 202;
  machine.processes->at(201).parent = 201;
  Refresh();
  EXPECT_EQ(driven.Get<controls::ListBox>(kList).Items().size(), 203u);
  Choose(199);
  EXPECT_EQ(Details(), " p200| 200| 202| 1| 203|2032");
  Choose(200);
  EXPECT_EQ(Details(), " p201| 201| 201 - p201| 1| 203|2032");
  Choose(201);
  EXPECT_EQ(Details(), " | | | | 203|0");
}

TEST_F(ProcessesPageTest, AFailedSnapshotEmptiesTheListAndKeepsTheCount) {
  AddMany(2);
  Refresh();
  Choose(1);
  machine.processes.reset();
  Refresh();
  EXPECT_TRUE(driven.Get<controls::ListBox>(kList).Items().empty());
  EXPECT_EQ(Details(), " | | | | 2|0");
  machine.processes.emplace();
  Refresh();
  EXPECT_EQ(Details(), " | | | | 0|0");
}

}  // namespace
}  // namespace kestrune::forms
