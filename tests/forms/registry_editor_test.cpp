// The registry editor, driven as a person at its window drives it.

#include <gtest/gtest.h>

#include "fake_machine.h"
#include "ui/forms/main_form.h"
#include "ui/forms/windows.h"

namespace kestrune::forms {
namespace {

using test::Driven;
using test::FakeMachine;
using test::Joined;
using test::MachineKind;

const std::string kEditor = "registry-editor.";

/// A machine with databases of its own and the editor open in a started program.
class Editor {
 public:
  explicit Editor(const MachineKind& kind = {})
      : machine_holder(std::make_unique<FakeMachine>(kind)), machine(*machine_holder) {
    char release[8];
    std::snprintf(release, sizeof release, "%04d", kind.driver);
    const std::string path = std::string("DATA/Database/") + release;
    machine.Lay(path + "d3d.dat", "ABCDD3D_12345678,\"Slow, but good.\",3,0,0,7,x\nabc,?,1,x\n");
    machine.Lay(path + "ogl.dat", "OGL_Name,?,5,x\n");
    machine.Lay(path + "sys.dat", "Shown,?,1,x\nHidden,?,2,x\n");
    program = std::make_unique<Driven>(machine);
    Open();
    machine.TakeTrace();
  }

  void Open() { program->program.TheWindows().Open("registry-editor"); }
  void Press(std::string_view id) { program->Press(kEditor + std::string(id)); }
  void Choose(std::string_view list, int position) {
    EXPECT_TRUE(program->Get<controls::ListBox>(kEditor + std::string(list)).Choose(position));
  }
  void ChooseCategory(int position) { program->Choose(kEditor + "category", position); }
  void Type(std::string_view text) { program->Type(kEditor + "typed-value", text); }
  void Tick(bool on) { program->Tick(kEditor + "user-value", on); }

  std::string Caption() { return program->program.FormOf("registry-editor").TheWindow().Caption(); }
  std::string Actual() { return program->Caption(kEditor + "actual-value"); }
  std::string Items(std::string_view list) {
    std::string text;
    for (const auto& item : program->Get<controls::ListBox>(kEditor + std::string(list)).Items()) {
      text += item + " ";
    }
    return text;
  }
  /// Which of the keys, the box and the list of suggestions can be used.
  std::string Enabled() {
    std::string text;
    for (const char* id : {"write-key", "delete-key", "typed-value", "available-values"}) {
      if (program->Enabled(kEditor + id)) text += std::string(id) + " ";
    }
    return text;
  }
  std::string Changes() { return Joined(machine.TakeTrace()); }
  std::string WriteAsBinary() { return program->State("WriteAsBinary"); }

  std::unique_ptr<FakeMachine> machine_holder;
  FakeMachine& machine;
  std::unique_ptr<Driven> program;
};

TEST(RegistryEditorTest, OpensOnDirect3DWithNothingToWrite) {
  Editor editor;
  EXPECT_EQ(editor.Caption(), "Registry editor - 8000d3d (database)");
  EXPECT_EQ(editor.Items("values"), "ABCDD3D_12345678 abc ");
  EXPECT_EQ(editor.Items("available-values"), "");
  EXPECT_EQ(editor.Enabled(), "available-values ");
  EXPECT_EQ(editor.program->Text(kEditor + "category"), "Direct3D");
  EXPECT_EQ(editor.program->Text(kEditor + "typed-value"), "0");
  EXPECT_EQ(editor.program->Text(kEditor + "direct3d"), "on");
  for (const char* option : {"direct3d", "opengl", "system-control-panel"}) {
    EXPECT_FALSE(editor.program->Visible(kEditor + option)) << option;
  }
  // Whatever was done, it opens so again.
  editor.ChooseCategory(2);
  editor.Choose("values", 1);
  editor.Tick(true);
  editor.Press("close");
  EXPECT_FALSE(editor.program->Visible("registry-editor"));
  editor.Open();
  EXPECT_EQ(editor.Caption(), "Registry editor - 8000d3d (database)");
  EXPECT_EQ(editor.Enabled(), "available-values ");
  EXPECT_EQ(editor.Changes(), "");
}

TEST(RegistryEditorTest, AnEntryShowsWhatItIsAndWhatIsStored) {
  Editor editor;
  editor.machine.StoreDirect3D("D3D_12345678", 9);
  editor.Choose("values", 0);
  EXPECT_EQ(editor.program->Caption(kEditor + "key-description"), "Slow, but good.");
  EXPECT_EQ(editor.Items("available-values"), "3 0 ");
  EXPECT_EQ(editor.Actual(), "9");
  EXPECT_EQ(editor.Enabled(), "delete-key available-values ");
  editor.Choose("available-values", 1);
  EXPECT_EQ(editor.Enabled(), "write-key delete-key available-values ");
  editor.Choose("values", 1);
  EXPECT_EQ(editor.program->Caption(kEditor + "key-description"),
            "N/A - no description for this key");
  EXPECT_EQ(editor.Enabled(), "delete-key available-values ");
  EXPECT_EQ(editor.Changes(), "");
}

TEST(RegistryEditorTest, EachCategoryHasItsPlaceFormAndFlag) {
  struct Case {
    int category;
    int family;
    std::string key;  ///< below HKEY_LOCAL_MACHINE, with K for the driver's key
    std::string stored;
    std::string flag;
  };
  const std::string tweak(test::kTweakKey);
  const Case cases[] = {
      {0, 3, "K D3D_12345678", "REG_BINARY 03 00 00 00", "1"},
      {0, 0, "K\\NVidia\\Direct3D D3D_12345678", "REG_BINARY 03 00 00 00", "1"},
      {1, 3, "K OGL_Name", "REG_BINARY 05 00 00 00", "1"},
      {1, 0, "K\\NVidia\\OpenGL Name", "REG_BINARY 05 00 00 00", "1"},
      {2, 3, tweak + " Shown", "REG_DWORD 1", "0"},
      {2, 0, tweak + " Shown", "REG_DWORD 1", "0"},
  };
  for (const Case& each : cases) {
    Editor editor({.family = each.family});
    editor.ChooseCategory(each.category);
    editor.Choose("values", 0);
    EXPECT_EQ(editor.Actual(), "Not set");
    editor.Choose("available-values", 0);
    editor.Press("write-key");
    EXPECT_EQ(editor.Changes(), "write " + each.key + " " + each.stored);
    EXPECT_EQ(editor.Actual(), editor.program->Text(kEditor + "available-values"));
    EXPECT_EQ(editor.WriteAsBinary(), each.flag) << each.key;
    editor.Press("delete-key");
    EXPECT_EQ(editor.Changes(), "delete " + each.key);
    EXPECT_EQ(editor.Actual(), "Not set");
    EXPECT_EQ(editor.WriteAsBinary(), "1") << each.key;
  }
}

TEST(RegistryEditorTest, AUserValueTakesThePlaceOfTheSuggestions) {
  Editor editor;
  editor.Choose("values", 0);
  editor.Tick(true);
  EXPECT_EQ(editor.Enabled(), "write-key delete-key typed-value ");
  editor.Type("-12");
  editor.Press("write-key");
  EXPECT_EQ(editor.Changes(), "write K D3D_12345678 REG_BINARY F4 FF FF FF");
  EXPECT_EQ(editor.Actual(), "-12");
  editor.Choose("values", 1);
  EXPECT_EQ(editor.Enabled(), "write-key delete-key typed-value ");
  editor.Tick(false);
  EXPECT_EQ(editor.program->Text(kEditor + "typed-value"), "0");
  EXPECT_EQ(editor.Enabled(), "delete-key available-values ");
}

TEST(RegistryEditorTest, WhatIsNoNumberIsTakenAwayOrWritesNothing) {
  struct Case {
    const char* typed;
    const char* left;
    const char* written;  ///< empty where nothing is
  };
  const Case cases[] = {{"12a", "12", "0C 00 00 00"},
                        {"12abc", "12", "0C 00 00 00"},
                        {"a", "a", ""},
                        {"ab", "a", ""},
                        {"5\u00E9\u20AC", "5", "05 00 00 00"},
                        {"\u20AC", "\u20AC", ""},
                        {"-", "-", ""},
                        {"1-", "1-", ""},
                        {"1a2", "1a2", ""},
                        {"1.5", "1.5", ""},
                        {"2147483648", "2147483648", ""},
                        {"-2147483648", "-2147483648", "00 00 00 80"},
                        {"&H10", "&H10", "10 00 00 00"},
                        {"", "", ""}};
  for (const auto& [typed, left, written] : cases) {
    Editor editor;
    editor.Choose("values", 0);
    editor.Tick(true);
    editor.Type(typed);
    EXPECT_EQ(editor.program->Text(kEditor + "typed-value"), left) << typed;
    editor.machine.StoreDirect3D("D3D_12345678", 9);
    editor.Press("write-key");
    const std::string change = "write K D3D_12345678 REG_BINARY " + std::string(written);
    EXPECT_EQ(editor.Changes(), *written == '\0' ? "" : change) << typed;
    if (*written == '\0') {
      EXPECT_EQ(editor.Actual(), "9") << typed;
    }
  }
}

TEST(RegistryEditorTest, WithoutAnEntryOrANameNothingIsDone) {
  Editor editor;
  editor.Tick(true);
  editor.Type("5");
  EXPECT_EQ(editor.Enabled(), "write-key typed-value ");
  editor.Press("write-key");
  editor.Press("delete-key");
  editor.Choose("values", 1);  // nothing is left of its name
  EXPECT_EQ(editor.Actual(), "Not set");
  editor.Press("write-key");
  editor.Press("delete-key");
  EXPECT_EQ(editor.Changes(), "");
  EXPECT_EQ(editor.Actual(), "Not set");
  editor.Tick(false);
  editor.Choose("values", 0);
  editor.Press("write-key");  // no suggestion is chosen
  EXPECT_EQ(editor.Changes(), "");
}

TEST(RegistryEditorTest, ACategoryIsReadAnewWhenItChanges) {
  Editor editor;
  editor.Choose("values", 0);
  editor.Choose("available-values", 0);
  editor.ChooseCategory(0);  // it is the one in force
  EXPECT_EQ(editor.Enabled(), "write-key delete-key available-values ");
  editor.ChooseCategory(1);
  EXPECT_EQ(editor.Caption(), "Registry editor - 8000ogl (database)");
  EXPECT_EQ(editor.Items("values") + editor.Items("available-values"), "OGL_Name ");
  EXPECT_EQ(editor.Enabled(), "available-values ");
  EXPECT_EQ(editor.program->Caption(kEditor + "key-description"), "Slow, but good.");
  EXPECT_EQ(editor.Actual(), "Not set");
  editor.machine.Lay("DATA/Database/8000d3d.dat", "new,?,x");
  editor.ChooseCategory(0);
  EXPECT_EQ(editor.Items("values"), "new ");
}

TEST(RegistryEditorTest, WithoutAFileTheListIsEmptyAndNobodyIsTold) {
  FakeMachine machine({.family = 0, .driver = 500});
  machine.Lay("DATA/Database/0453d3d.dat", "a,?,x");
  Driven driven(machine);
  driven.program.TheWindows().Open("registry-editor");
  EXPECT_EQ(driven.program.FormOf("registry-editor").TheWindow().Caption(),
            "Registry editor - 453d3d (database)");
  EXPECT_TRUE(driven.Get<controls::ListBox>(kEditor + "values").Items().empty());
  EXPECT_EQ(machine.messages.size(), 0u);
}

TEST(RegistryEditorTest, KeyAndNoteOpenItAndThePagesStayAsTheyWere) {
  FakeMachine machine({.driver = 8198});
  Driven driven(machine);
  for (const char* id : {"main.regedit", "control-panel.settings.registry-editor-note"}) {
    driven.Press(id);
    EXPECT_TRUE(driven.Visible("registry-editor")) << id;
    EXPECT_EQ(driven.program.Gate().Check(driven.program.Main().TheWindow()),
              controls::Refusal::kBehindModal);
    driven.Press("registry-editor.close");
    EXPECT_EQ(driven.program.Gate().Check(driven.program.Main().TheWindow()),
              controls::Refusal::kNone);
  }
  driven.Press("main.regedit");
  auto& values = driven.Get<controls::ListBox>(kEditor + "values");
  ASSERT_TRUE(values.Choose(values.ItemFor("D3D_D3D_QualityEnhancements")));
  ASSERT_TRUE(driven.Get<controls::ListBox>(kEditor + "available-values").Choose(0));
  driven.Press("registry-editor.write-key");
  EXPECT_EQ(driven.Caption(kEditor + "actual-value"), "20");
  driven.Press("registry-editor.close");
  const char* shown = "direct3d.filtering.intellisample-image-settings";
  EXPECT_EQ(driven.Text(shown), "Quality");
  driven.ReadAgain();
  EXPECT_EQ(driven.Text(shown), "High performance");
}

}  // namespace
}  // namespace kestrune::forms
