#include "ui/qt/accessible.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "sample_form.h"

namespace kestrune::qt {
namespace {

class AccessibleTest : public testing::Test {
 protected:
  QAccessibleInterface& Heard(std::string_view id) {
    return *QAccessible::queryAccessibleInterface(&window_.Widget<QWidget>(id));
  }
  void ShowOtherPage() {
    window_.Control<controls::Frame>("page").SetVisible(false);
    window_.Control<controls::Frame>("other").SetVisible(true);
  }

  SampleWindow window_;
  std::string log_;
};

TEST_F(AccessibleTest, EveryKindSaysItsRoleNameAndValue) {
  struct Case {
    const char* id;
    QAccessible::Role role;
    const char* name;
    const char* value;
  };
  const Case cases[] = {{"main.dx", QAccessible::ButtonMenu, "Tools", ""},
                        {"page.mode-label", QAccessible::StaticText, "Mode:", ""},
                        {"page.mode", QAccessible::ComboBox, "Mode", "Auto"},
                        {"page.limit", QAccessible::ComboBox, "Limit", "Unknown"},
                        {"page.gamma", QAccessible::CheckBox, "Gamma", ""},
                        {"page.normal", QAccessible::RadioButton, "Normal", ""},
                        {"page.lod", QAccessible::Slider, "LOD bias of all", "0"},
                        {"page.clock", QAccessible::EditableText, "Clock", "350"},
                        {"page.apply", QAccessible::Button, "Apply", ""},
                        {"other", QAccessible::Grouping, "Other", ""},
                        {"other.lines", QAccessible::List, "Lines", nullptr},
                        {"other.link", QAccessible::Link, "More", ""},
                        {"other.picture", QAccessible::Graphic, "Picture", ""},
                        {"other.graph", QAccessible::Graphic, "Graph", ""}};
  // A tip is in the chosen language, an id isn't.
  window_.Control<controls::Slider>("page.lod").SetToolTip("LOD bias of all");
  window_.Control<controls::Frame>("other").SetVisible(true);
  for (const Case& each : cases) {
    QAccessibleInterface& heard = Heard(each.id);
    EXPECT_EQ(heard.role(), each.role) << each.id;
    EXPECT_EQ(heard.text(QAccessible::Name), each.name) << each.id;
    if (each.value == nullptr) continue;
    const QString value = heard.valueInterface() != nullptr
                              ? heard.valueInterface()->currentValue().toString()
                              : heard.text(QAccessible::Value);
    EXPECT_EQ(value, each.value) << each.id;
  }
  QAccessibleInterface& window = *QAccessible::queryAccessibleInterface(&window_.View());
  EXPECT_EQ(window.role(), QAccessible::Window);
  EXPECT_EQ(window.text(QAccessible::Name), "Sample");
}

TEST_F(AccessibleTest, ALabelIsRelatedToWhatItNames) {
  const auto relations = Heard("page.mode").relations(QAccessible::Label);
  EXPECT_TRUE(relations.contains({&Heard("page.mode-label"), QAccessible::Label}));
  auto& mode = window_.Widget<QComboBox>("page.mode");
  EXPECT_EQ(mode.lineEdit()->accessibleName(), "Mode");
}

TEST_F(AccessibleTest, AnOptionSaysWhetherItIsChosenAndCanBeChosen) {
  EXPECT_TRUE(Heard("page.normal").state().checked);
  EXPECT_TRUE(Heard("page.zoom").state().checkable);
  Heard("page.zoom").actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(Heard("page.zoom").state().checked);
  EXPECT_FALSE(Heard("page.normal").state().checked);
}

TEST_F(AccessibleTest, AComboTellsATypedTextAndOpensItsList) {
  auto& limit = window_.Widget<QComboBox>("page.limit");
  QAccessibleInterface& heard = Heard("page.limit");
  heard.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  EXPECT_TRUE(heard.state().expanded);
  limit.hidePopup();
  EXPECT_TRUE(heard.state().collapsed);
  auto& mode = window_.Widget<QComboBox>("page.mode");
  mode.setFocus();
  QTest::keyClicks(&mode, "!");
  EXPECT_EQ(Heard("page.mode").text(QAccessible::Value), "!Auto");
}

TEST_F(AccessibleTest, AKeySaysItsNameOnceAndIsPressedOrOpensItsMenu) {
  window_.Control<controls::ToolKey>("main.dx").on_click = [this] { log_ += "dx "; };
  QAccessibleInterface& heard = Heard("main.dx");
  EXPECT_EQ(heard.text(QAccessible::Description), "");
  heard.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(log_, "dx ");
  auto& key = window_.Widget<QToolButton>("main.dx");
  QTimer::singleShot(0, &key, [&key, this] {
    log_ += key.menu()->isVisible() ? "menu " : "none ";
    key.menu()->close();
  });
  heard.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  EXPECT_EQ(log_, "dx menu ");
}

TEST_F(AccessibleTest, ALinkIsPressed) {
  ShowOtherPage();
  window_.Control<controls::Label>("other.link").on_click = [this] { log_ += "more "; };
  QAccessibleInterface& heard = Heard("other.link");
  EXPECT_TRUE(heard.state().focusable);
  heard.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(log_, "more ");
}

TEST_F(AccessibleTest, WhatIsNotToBeSeenIsTold) {
  EXPECT_FALSE(Heard("page.mode").state().invisible);
  ShowOtherPage();
  EXPECT_TRUE(Heard("page.mode").state().invisible);
}

}  // namespace
}  // namespace kestrune::qt
