// Windows that open, take acts and close.

#include "ui/forms/windows.h"

#include <gtest/gtest.h>

#include "fake_machine.h"
#include "ui/forms/about_window.h"
#include "ui/forms/main_form.h"

namespace kestrune::forms {
namespace {

using controls::Refusal;

constexpr ControlRow kMainRows[] = {
    Row(Kind::kButton, "main.open", "main", {0, 0, 900, 300}).Design("Open")};
constexpr ControlRow kEditorRows[] = {
    Row(Kind::kLabel, "editor.name-label", "editor", {0, 0, 900, 300}, 6).Names("editor.name"),
    Row(Kind::kText, "editor.name", "editor", {0, 300, 900, 300}).Initial("none"),
    Row(Kind::kCheck, "editor.whole", "editor", {0, 600, 900, 300}).Design("Whole").Chosen(),
    Row(Kind::kButton, "editor.close", "editor", {0, 900, 900, 300}).Design("Close").Disabled()};
constexpr ControlRow kBrowseRows[] = {Row(Kind::kList, "browse.files", "browse", {0, 0, 900, 300})};

constexpr WindowRow kMain = {
    .window = Row(Kind::kWindow, "main", "", {0, 0, 900, 900}).Design("Main"),
    .controls = kMainRows};
constexpr WindowRow kEditor = {
    .window = Row(Kind::kWindow, "editor", "", {0, 0, 900, 1200}, 5).Hidden(),
    .controls = kEditorRows,
    .owner = "main",
    .modal = true,
    .default_key = "editor.close"};
constexpr WindowRow kBrowse = {
    .window = Row(Kind::kWindow, "browse", "", {0, 0, 900, 900}).Design("Browse").Hidden(),
    .controls = kBrowseRows,
    .owner = "editor",
    .modal = true};

class WindowsTest : public testing::Test {
 protected:
  WindowsTest() {
    texts.Set(5, "Editor");
    texts.Set(6, "Name:");
    for (const Form* form : {&main, &editor, &browse}) windows.Add(*form);
    windows.OnLoad(editor.TheWindow(), [this] {
      ++loads;
      editor.Get<controls::Button>("editor.close").SetEnabled(true);
    });
  }

  Refusal Check(const Form& form, std::string_view id) {
    return gate.Check(form.Get<controls::Control>(id));
  }

  lang::LangTable texts;
  controls::Gate gate;
  Form main{kMain};
  Form editor{kEditor};
  Form browse{kBrowse};
  Windows windows{texts, gate};
  int loads = 0;
};

TEST_F(WindowsTest, OneThatOpensStartsFromItsDesignStateAndIsLoaded) {
  auto& name = editor.Get<controls::TextBox>("editor.name");
  auto& whole = editor.Get<controls::CheckBox>("editor.whole");
  windows.Open("editor");
  EXPECT_TRUE(editor.TheWindow().Visible());
  EXPECT_EQ(editor.TheWindow().Caption() + "/" +
                editor.Get<controls::Label>("editor.name-label").Caption(),
            "Editor/Name:");
  EXPECT_TRUE(editor.Get<controls::Button>("editor.close").Enabled());
  name.ShowText("typed");
  whole.Show(0);
  editor.TheWindow().SetBounds({30, 30, 600, 600});
  windows.Open("editor");  // it is open already
  EXPECT_EQ(name.Text(), "typed");
  windows.Close(editor.TheWindow());
  windows.Open("editor");
  EXPECT_EQ(name.Text() + whole.ValueText(), "noneon");
  EXPECT_EQ(editor.TheWindow().Bounds(), kEditor.window.bounds);
  EXPECT_EQ(loads, 2);
}

TEST_F(WindowsTest, OneCanBeLoadedWithoutBeingShown) {
  windows.Load(editor.TheWindow());
  EXPECT_EQ(loads, 1);
  EXPECT_FALSE(editor.TheWindow().Visible());
  EXPECT_EQ(Check(main, "main.open"), Refusal::kNone);
}

TEST_F(WindowsTest, OnlyTheTopModalOneTakesActsAndGivesThemBack) {
  EXPECT_EQ(Check(editor, "editor.name"), Refusal::kWindowClosed);
  windows.Open("editor");
  EXPECT_EQ(Check(main, "main.open"), Refusal::kBehindModal);
  EXPECT_EQ(Check(editor, "editor.name"), Refusal::kNone);
  windows.Open("browse");
  EXPECT_EQ(Check(editor, "editor.name"), Refusal::kBehindModal);
  EXPECT_EQ(Check(browse, "browse.files"), Refusal::kNone);
  browse.TheWindow().UseClose();
  EXPECT_EQ(Check(editor, "editor.name"), Refusal::kNone);
  EXPECT_EQ(Check(main, "main.open"), Refusal::kBehindModal);
}

TEST_F(WindowsTest, ClosingOneClosesWhatItOwns) {
  windows.Open("editor");
  windows.Open("browse");
  windows.Close(editor.TheWindow());
  EXPECT_FALSE(browse.TheWindow().Visible() || editor.TheWindow().Visible());
  EXPECT_EQ(Check(main, "main.open"), Refusal::kNone);
  windows.Open("editor");
  windows.Open("browse");
  windows.Close(main.TheWindow());
  EXPECT_FALSE(browse.TheWindow().Visible() || editor.TheWindow().Visible());
}

TEST_F(WindowsTest, RowsTellTheFaceWhatKindOfWindowItIs) {
  EXPECT_EQ(browse.TheWindow().Owner(), &editor.TheWindow());
  EXPECT_TRUE(editor.TheWindow().Modal() && !editor.TheWindow().Resizable());
  EXPECT_EQ(editor.TheWindow().DefaultKey(), editor.Find("editor.close"));
  EXPECT_EQ(editor.TheWindow().CancelKey(), nullptr);
  EXPECT_EQ(editor.Get<controls::Label>("editor.name-label").Names(), editor.Find("editor.name"));
}

TEST(AboutTest, TellsVersionDocumentationAndLicences) {
  test::FakeMachine machine;
  test::Driven driven(machine);
  driven.Press("main.abouti");
  EXPECT_TRUE(driven.Visible("about"));
  EXPECT_EQ(driven.Caption("about.version"), "Kestrune SE version: 3.5.3");
  EXPECT_EQ(driven.Get<controls::ListBox>("about.licences").Items().size(), kLicences.size());
  machine.TakeTrace();
  driven.Press("about.page-link");
  EXPECT_EQ(test::Joined(machine.TakeTrace()), "open " KESTRUNE_DATA_FOLDER "/DATA/doc/index.html");
  // The main window coming to the front takes it away.
  driven.program.Main().TheWindow().on_activate();
  EXPECT_FALSE(driven.Visible("about"));
  driven.Press("main.qorv");
  EXPECT_EQ(test::Joined(machine.TakeTrace()), "open " KESTRUNE_DATA_FOLDER "/DATA/doc/index.html");
}

TEST(IntroTest, IsClosedByItsTimerOrAClick) {
  test::FakeMachine machine;
  test::Driven driven(machine);
  driven.Press("main.abouti");
  for (const bool clicked : {false, true}) {
    driven.Press("about.show-intro");
    driven.program.Timers().Advance(2999);
    EXPECT_TRUE(driven.Visible("intro"));
    if (clicked) driven.Press("intro.text");
    driven.program.Timers().Advance(1);
    EXPECT_FALSE(driven.Visible("intro")) << clicked;
    EXPECT_TRUE(driven.Visible("about"));
  }
}

TEST(IntroTest, OnlyTheFirstStartOfAllIsOne) {
  test::FakeMachine machine;
  EXPECT_TRUE(test::Driven(machine).program.IsFirstStart());
  EXPECT_FALSE(test::Driven(machine).program.IsFirstStart());
}

}  // namespace
}  // namespace kestrune::forms
