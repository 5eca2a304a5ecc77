#include "ui/qt/form_view.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QSpontaneKeyEvent>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QWheelEvent>

#include "sample_form.h"

namespace kestrune::qt {
namespace {

using controls::CheckBox;
using controls::ComboBox;
using controls::ComboChange;
using controls::Frame;
using controls::ListBox;
using controls::OptionButton;
using controls::Slider;
using controls::TextBox;

class FormViewTest : public testing::Test {
 protected:
  /// What a combo's handler was told, one word after the other.
  void Log(ComboBox& combo) {
    combo.on_change = [this](ComboChange change) {
      log_ += change == ComboChange::kChosen ? "chosen " : "text ";
    };
  }
  void PickInList(QComboBox& combo, const std::vector<Qt::Key>& keys) {
    combo.showPopup();
    for (const Qt::Key key : keys) QTest::keyClick(combo.view(), key);
  }

  SampleWindow window_;
  std::string log_;
};

TEST_F(FormViewTest, AnEntryIsChosenOnceForEachTimeItIsPicked) {
  auto& control = window_.Control<ComboBox>("page.limit");
  auto& widget = window_.Widget<QComboBox>("page.limit");
  Log(control);
  PickInList(widget, {Qt::Key_Home, Qt::Key_Down, Qt::Key_Return});
  EXPECT_EQ(control.Text(), "1");
  EXPECT_EQ(log_, "chosen ");
  PickInList(widget, {Qt::Key_Return});
  EXPECT_EQ(log_, "chosen chosen ");
}

TEST_F(FormViewTest, AComboMarksNoEntryForATextThatIsNone) {
  auto& widget = window_.Widget<QComboBox>("page.limit");
  EXPECT_EQ(widget.currentIndex(), -1);
  window_.Control<ComboBox>("page.limit").ShowText("2");
  EXPECT_EQ(widget.currentIndex(), 2);
}

/// Shows the page with the list and fills it with many lines.
QListWidget& ManyLines(SampleWindow& window) {
  window.Control<Frame>("page").SetVisible(false);
  window.Control<Frame>("other").SetVisible(true);
  std::vector<std::string> lines;
  lines.reserve(3000);
  for (int i = 0; i < 3000; ++i) lines.push_back("line " + std::to_string(i));
  lines[2000] = "Zebra";
  window.Control<ListBox>("other.lines").SetItems(std::move(lines));
  return window.Widget<QListWidget>("other.lines");
}

TEST_F(FormViewTest, ARefreshedListStaysWhereItWas) {
  QListWidget& widget = ManyLines(window_);
  auto& control = window_.Control<ListBox>("other.lines");
  widget.verticalScrollBar()->setValue(1500);
  std::vector<std::string> lines = control.Items();
  lines.insert(lines.begin() + 2, "new");
  control.RefreshItems(lines);
  EXPECT_EQ(widget.count(), 3001);
  EXPECT_EQ(widget.verticalScrollBar()->value(), 1500);
  EXPECT_TRUE(widget.selectedItems().isEmpty());
  lines.resize(10);
  control.RefreshItems(lines);
  EXPECT_EQ(widget.verticalScrollBar()->value(), widget.verticalScrollBar()->maximum());
  ManyLines(window_);
  EXPECT_EQ(widget.verticalScrollBar()->value(), 0);
}

TEST_F(FormViewTest, TypingInAListMovesToTheNextLineThatBeginsSo) {
  QListWidget& widget = ManyLines(window_);
  widget.setFocus();
  QTest::keyClicks(&widget, "zeb");
  EXPECT_EQ(window_.Control<ListBox>("other.lines").Position(), 2000);
  EXPECT_EQ(widget.currentRow(), 2000);
}

TEST_F(FormViewTest, ChoosingALineLeavesTheOthersAlone) {
  QListWidget& widget = ManyLines(window_);
  // A line that was drawn otherwise since the lines came would be mended by a walk over all.
  widget.item(17)->setText("own");
  window_.Control<ListBox>("other.lines").Choose(5);
  EXPECT_EQ(widget.currentRow(), 5);
  EXPECT_EQ(widget.item(17)->text(), "own");
}

TEST_F(FormViewTest, TypingReachesTheControlWhenItIsFinished) {
  auto& control = window_.Control<ComboBox>("page.mode");
  auto& widget = window_.Widget<QComboBox>("page.mode");
  Log(control);
  control.knows = [](const std::string& text) { return text == "32x"; };
  widget.setFocus();
  widget.lineEdit()->selectAll();
  QTest::keyClicks(&widget, "32x");
  EXPECT_EQ(control.Text(), "Auto");
  QTest::keyClick(&widget, Qt::Key_Return);
  EXPECT_EQ(control.Text(), "32x");
  QTest::keyClick(&widget, Qt::Key_Return);
  EXPECT_EQ(log_, "text ");
}

TEST_F(FormViewTest, LeavingFinishesTypingAndEscapeTakesItBack) {
  auto& control = window_.Control<ComboBox>("page.mode");
  auto& widget = window_.Widget<QComboBox>("page.mode");
  widget.setFocus();
  QTest::keyClicks(&widget, "!");
  QTest::keyClick(&widget, Qt::Key_Escape);
  EXPECT_EQ(widget.currentText(), "Auto");
  widget.lineEdit()->selectAll();
  QTest::keyClicks(&widget, "2x");
  QTest::keyClick(&widget, Qt::Key_Tab);
  EXPECT_EQ(control.Text(), "2x");
}

TEST_F(FormViewTest, ATypedTextThatStandsForNothingNeverReachesTheControl) {
  auto& control = window_.Control<ComboBox>("page.mode");
  auto& widget = window_.Widget<QComboBox>("page.mode");
  Log(control);
  for (const Qt::Key end : {Qt::Key_Return, Qt::Key_Tab}) {
    widget.setFocus();
    widget.lineEdit()->selectAll();
    QTest::keyClicks(&widget, "nonsense");
    QTest::keyClick(&widget, end);
    EXPECT_EQ(control.Text(), "Auto");
    EXPECT_EQ(widget.currentText(), "Auto");
  }
  EXPECT_EQ(log_, "");
}

TEST_F(FormViewTest, ATypedEntryIsChosenWhateverItsCase) {
  auto& control = window_.Control<ComboBox>("page.mode");
  auto& widget = window_.Widget<QComboBox>("page.mode");
  Log(control);
  widget.setFocus();
  widget.lineEdit()->selectAll();
  QTest::keyClicks(&widget, "4X");
  QTest::keyClick(&widget, Qt::Key_Return);
  EXPECT_EQ(control.Text(), "4x");
  EXPECT_EQ(widget.currentText(), "4x");
  EXPECT_EQ(log_, "chosen ");
}

TEST_F(FormViewTest, NewItemsLeaveAnUnfinishedTextAlone) {
  auto& control = window_.Control<ComboBox>("page.mode");
  auto& widget = window_.Widget<QComboBox>("page.mode");
  widget.setFocus();
  widget.lineEdit()->selectAll();
  QTest::keyClicks(&widget, "8");
  control.SetItems({"Auto", "8x", "16x"});
  EXPECT_EQ(widget.currentText(), "8");
  QTest::keyClicks(&widget, "x");
  QTest::keyClick(&widget, Qt::Key_Return);
  EXPECT_EQ(control.Position(), 1);
}

TEST_F(FormViewTest, AClickTicksAndWhatTheHandlerPutsBackIsDrawn) {
  auto& control = window_.Control<CheckBox>("page.gamma");
  auto& widget = window_.Widget<QCheckBox>("page.gamma");
  QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(5, 8));
  EXPECT_TRUE(control.Checked());
  control.on_change = [&] { control.Show(1); };
  QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(5, 8));
  EXPECT_TRUE(widget.isChecked());
}

TEST_F(FormViewTest, OptionsFollowTheirGroupAndRunAgainWhenClickedAgain) {
  int clicks = 0;
  window_.Control<OptionButton>("page.zoom").on_click = [&] { ++clicks; };
  auto& zoom = window_.Widget<QRadioButton>("page.zoom");
  for (int i = 0; i < 2; ++i) {
    QTest::mouseClick(&zoom, Qt::LeftButton, {}, QPoint(5, 8));
    EXPECT_TRUE(zoom.isChecked());
  }
  EXPECT_EQ(clicks, 2);
  EXPECT_FALSE(window_.Widget<QRadioButton>("page.normal").isChecked());
}

TEST_F(FormViewTest, KeysMoveASliderAndARefusedPlaceIsDrawnBack) {
  auto& control = window_.Control<Slider>("page.lod");
  auto& widget = window_.Widget<QSlider>("page.lod");
  QTest::keyClick(&widget, Qt::Key_Right);
  EXPECT_EQ(control.Value(), 1);
  control.on_change = [&] { control.Show(1); };
  QTest::keyClick(&widget, Qt::Key_Right);
  EXPECT_EQ(control.Value(), 1);
  EXPECT_EQ(widget.value(), 1);
}

/// A notch of the wheel as the desktop sends it: the toolkit may give the focus away first.
void TurnWheel(QWidget& widget) {
  QWheelEvent event({5, 5}, widget.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                    Qt::NoScrollPhase, false);
  QSpontaneKeyEvent::setSpontaneous(&event);
  (void)qApp->notify(&widget, &event);
}

TEST_F(FormViewTest, AWheelMovesNothingButTheScrollBar) {
  for (const char* id : {"page.limit", "page.mode"}) Log(window_.Control<ComboBox>(id));
  window_.Control<OptionButton>("page.zoom").on_click = [this] { log_ += "zoom "; };
  for (const char* id : {"page.lod", "page.limit", "page.mode", "page.normal", "page.zoom"}) {
    auto& widget = window_.Widget<QWidget>(id);
    auto& elsewhere = window_.Widget<QWidget>("page.apply");
    for (QWidget* focused : {&widget, &elsewhere}) {
      focused->setFocus();
      TurnWheel(widget);
      EXPECT_TRUE(focused->hasFocus()) << id;
    }
  }
  TurnWheel(*window_.Widget<QComboBox>("page.mode").lineEdit());
  EXPECT_EQ(window_.Control<Slider>("page.lod").Value(), 0);
  EXPECT_EQ(log_, "");
  TurnWheel(window_.Widget<QWidget>("main.group-scroll-bar"));
  EXPECT_GT(window_.Control<Slider>("main.group-scroll-bar").Value(), 1);
}

TEST_F(FormViewTest, KeysOnAClosedListOpenItAndChooseNothing) {
  for (const char* id : {"page.limit", "page.mode"}) {
    auto& combo = window_.Widget<QComboBox>(id);
    Log(window_.Control<ComboBox>(id));
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageDown}) {
      QTest::keyClick(&combo, key);
      EXPECT_TRUE(combo.view()->isVisible()) << id << ' ' << key;
      combo.hidePopup();
    }
  }
  auto& limit = window_.Widget<QComboBox>("page.limit");
  QTest::keyClick(&limit, Qt::Key_2);
  EXPECT_TRUE(limit.view()->isVisible());
  EXPECT_EQ(log_, "");
}

TEST_F(FormViewTest, ArrowKeysChooseWithinAGroupOfOptions) {
  auto& normal = window_.Widget<QRadioButton>("page.normal");
  auto& zoom = window_.Widget<QRadioButton>("page.zoom");
  normal.setFocus();
  QTest::keyClick(&normal, Qt::Key_Right);
  EXPECT_TRUE(zoom.isChecked());
  EXPECT_TRUE(zoom.hasFocus());
  QTest::keyClick(&zoom, Qt::Key_Down);
  EXPECT_TRUE(window_.Control<OptionButton>("page.normal").Chosen());
  window_.Control<OptionButton>("page.zoom").SetEnabled(false);
  QTest::keyClick(&normal, Qt::Key_Left);
  EXPECT_TRUE(normal.hasFocus());
}

TEST_F(FormViewTest, BehindAModalWindowNothingIsTakenAndAllIsDrawnBack) {
  const controls::Window modal("modal", nullptr);
  window_.Gate().SetModal(&modal);
  window_.Control<controls::Window>("main").on_close = [this] { log_ += "closed "; };
  window_.Control<controls::Button>("page.apply").on_click = [this] { log_ += "applied "; };
  auto& box = window_.Widget<QCheckBox>("page.gamma");
  auto& slider = window_.Widget<QSlider>("page.lod");
  auto& text = window_.Widget<QLineEdit>("page.clock");
  QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(5, 8));
  QTest::keyClick(&slider, Qt::Key_Right);
  QTest::keyClicks(&text, "9");
  PickInList(window_.Widget<QComboBox>("page.limit"), {Qt::Key_Home, Qt::Key_Return});
  QTest::keyClick(&window_.Widget<QPushButton>("page.apply"), Qt::Key_Space);
  window_.View().close();
  EXPECT_FALSE(box.isChecked());
  EXPECT_EQ(slider.value(), 0);
  EXPECT_EQ(text.text(), "350");
  EXPECT_EQ(window_.Widget<QComboBox>("page.limit").currentIndex(), -1);
  EXPECT_EQ(log_, "");
}

TEST_F(FormViewTest, WhatCodeShowsIsDrawnAndRunsNoHandler) {
  const auto fail = [] { ADD_FAILURE() << "a handler ran"; };
  auto& combo = window_.Control<ComboBox>("page.mode");
  auto& slider = window_.Control<Slider>("page.lod");
  auto& text = window_.Control<TextBox>("page.clock");
  auto& box = window_.Control<CheckBox>("page.gamma");
  combo.on_change = [&](ComboChange) { fail(); };
  slider.on_change = text.on_change = box.on_change = fail;
  combo.ShowText("2x");
  slider.Show(-4);
  slider.SetRange(0, 3);
  text.ShowText("400");
  box.Show(2);
  EXPECT_EQ(window_.Widget<QComboBox>("page.mode").currentText(), "2x");
  EXPECT_EQ(window_.Widget<QSlider>("page.lod").value(), 0);
  EXPECT_EQ(window_.Widget<QLineEdit>("page.clock").text(), "400");
  EXPECT_EQ(window_.Widget<QCheckBox>("page.gamma").checkState(), Qt::PartiallyChecked);
}

TEST_F(FormViewTest, APageIsBuiltWhenItIsFirstShown) {
  auto& page = window_.Control<Frame>("page");
  auto& other = window_.Control<Frame>("other");
  EXPECT_EQ(window_.View().WidgetOf(other), nullptr);
  page.SetVisible(false);
  other.SetVisible(true);
  EXPECT_TRUE(window_.Widget<QListWidget>("other.lines").isVisible());
  EXPECT_FALSE(window_.Widget<QComboBox>("page.mode").isVisible());
}

TEST_F(FormViewTest, ALineIsChosenByClickAlsoAgainButNotByPassingThrough) {
  window_.Control<Frame>("page").SetVisible(false);
  window_.Control<Frame>("other").SetVisible(true);
  auto& control = window_.Control<ListBox>("other.lines");
  auto& widget = window_.Widget<QListWidget>("other.lines");
  std::vector<int> choices;
  control.on_change = [&] { choices.push_back(control.Position()); };
  const auto click = [&widget](int row) {
    const QPoint place = widget.visualItemRect(widget.item(row)).center();
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, {}, place);
  };
  widget.setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(choices.empty());
  click(1);
  click(1);
  click(0);
  QTest::keyClick(&widget, Qt::Key_Down);
  EXPECT_EQ(choices, (std::vector<int>{1, 1, 0, 1}));
}

/// The ids of the widgets that Tab visits, from one back to itself.
std::vector<std::string> TabRound(QWidget& start) {
  std::vector<std::string> visited;
  start.setFocus();
  do {
    visited.push_back(QApplication::focusWidget()->objectName().toStdString());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  } while (QApplication::focusWidget() != &start && visited.size() < 30);
  return visited;
}

TEST_F(FormViewTest, TabVisitsTheVisiblePageInTheOrderOfTheForm) {
  auto& start = window_.Widget<QToolButton>("main.dx");
  window_.Control<TextBox>("page.clock").SetEnabled(false);
  const std::vector<std::string> first_page = {"main.dx",    "main.group-scroll-bar",
                                               "page.mode",  "page.limit",
                                               "page.gamma", "page.normal",
                                               "page.zoom",  "page.lod",
                                               "page.apply", "main.help"};
  EXPECT_EQ(TabRound(start), first_page);
  window_.Control<Frame>("page").SetVisible(false);
  window_.Control<Frame>("other").SetVisible(true);
  const std::vector<std::string> second_page = {
      "main.dx", "main.group-scroll-bar", "other.lines", "other.path", "other.link", "main.help"};
  EXPECT_EQ(TabRound(start), second_page);
}

TEST_F(FormViewTest, OnlyTheInnermostControlIsHoveredOver) {
  for (const auto& control : window_.Form().Controls()) {
    control->on_hover = [this, id = control->Id()] { log_ += id + " "; };
  }
  QTest::mouseMove(&window_.Widget<QWidget>("page.mode-label"), QPoint(3, 3));
  QTest::mouseMove(window_.Widget<QComboBox>("page.mode").lineEdit(), QPoint(3, 3));
  QTest::mouseMove(&window_.Widget<QWidget>("page"), QPoint(300, 120));
  QTest::mouseMove(&window_.View(), QPoint(300, 300));
  EXPECT_EQ(log_, "page.mode-label page.mode page main ");
}

TEST_F(FormViewTest, TheKeyboardCountsAsHoveringOverTheNearestThatCares) {
  window_.Control<Frame>("page").on_hover = [this] { log_ += "page "; };
  window_.Control<CheckBox>("page.gamma").on_hover = [this] { log_ += "gamma "; };
  window_.Widget<QWidget>("page.limit").setFocus(Qt::TabFocusReason);
  window_.Widget<QWidget>("page.gamma").setFocus(Qt::TabFocusReason);
  EXPECT_EQ(log_, "page gamma ");
}

TEST_F(FormViewTest, MenusCarryMnemonicsAndDisabledItems) {
  auto& button = window_.Widget<QToolButton>("main.dx");
  window_.Control<controls::ToolKey>("main.one").on_click = [this] { log_ += "one "; };
  QTimer::singleShot(0, &button, [&button] {
    const QList<QAction*> items = button.menu()->actions();
    EXPECT_EQ(items[0]->text(), "&Save && close");
    EXPECT_EQ(items[1]->text(), "S&end");
    EXPECT_FALSE(items[1]->isEnabled());
    QTest::keyClick(button.menu(), Qt::Key_S);
  });
  QTest::keyClick(&button, Qt::Key_Down);
  EXPECT_EQ(log_, "one ");
}

TEST_F(FormViewTest, EverythingHasANameAlsoWithoutItsCaption) {
  EXPECT_EQ(window_.Widget<QWidget>("page.mode").accessibleName(), "Mode");
  EXPECT_EQ(window_.Widget<QWidget>("main.help").accessibleName(), "Help");
  EXPECT_EQ(window_.Widget<QCheckBox>("main.help").text(), "Help");
  window_.Control<controls::Label>("page.mode-label").SetCaption("Modus:");
  EXPECT_EQ(window_.Widget<QWidget>("page.mode").accessibleName(), "Modus");
}

TEST_F(FormViewTest, ACaptionThatDoesNotFitIsCutAndWholeInItsTip) {
  auto& control = window_.Control<CheckBox>("page.gamma");
  auto& widget = window_.Widget<QCheckBox>("page.gamma");
  EXPECT_TRUE(widget.toolTip().isEmpty());
  control.SetCaption("A caption & a half, much too long for its place");
  EXPECT_TRUE(widget.text().endsWith(QChar(0x2026)));
  EXPECT_EQ(widget.toolTip(), "A caption & a half, much too long for its place");
}

TEST_F(FormViewTest, ATipThatLooksLikeMarkupIsShownAsItStands) {
  auto& control = window_.Control<CheckBox>("page.gamma");
  auto& widget = window_.Widget<QCheckBox>("page.gamma");
  const std::pair<const char*, const char*> cases[] = {
      {"a <img src=\"/etc/passwd\">", "<qt>a &lt;img src=&quot;/etc/passwd&quot;&gt;</qt>"},
      {"<b>bold</b> & more", "<qt>&lt;b&gt;bold&lt;/b&gt; &amp; more</qt>"},
      {"1 < 2 & 3", "1 < 2 & 3"}};
  for (const auto& [tip, shown] : cases) {
    control.SetToolTip(tip);
    QHelpEvent event(QEvent::ToolTip, QPoint(1, 1), widget.mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(&widget, &event);
    EXPECT_EQ(QToolTip::text().toStdString(), shown);
  }
}

TEST_F(FormViewTest, TheFormDecidesAboutWidthAndMaximising) {
  auto& control = window_.Control<controls::Window>("main");
  control.on_resize = [&control] {
    control.SetMaximised(false);
    controls::Rect bounds = control.Bounds();
    bounds.width = 8175;
    control.SetBounds(bounds);
  };
  FormView& view = window_.View();
  view.resize(700, 400);
  EXPECT_TRUE(QTest::qWaitFor([&view] { return view.width() == 545; }));
  EXPECT_EQ(control.Bounds().height, 6000);
  view.setWindowState(Qt::WindowMaximized);
  EXPECT_TRUE(QTest::qWaitFor([&view] { return !view.isMaximized(); }));
  EXPECT_TRUE(QTest::qWaitFor([&view] { return view.width() == 545; }));
}

TEST_F(FormViewTest, TheWindowGrowsWithItsControl) {
  auto& control = window_.Control<controls::Window>("main");
  int reports = 0;
  control.on_resize = [&reports] { ++reports; };
  control.SetBounds({300, 300, 8175, 5725});
  QTest::qWait(20);
  EXPECT_EQ(window_.View().height(), 382);
  EXPECT_EQ(reports, 0);
}

TEST_F(FormViewTest, AWindowLargerThanTheScreenScrollsToWhatHasTheFocus) {
  SampleWindow large(2.5 / 15);
  FormView& view = large.View();
  QTest::qWait(20);
  EXPECT_LE(view.frameGeometry().width(), 1024);
  EXPECT_LE(view.frameGeometry().height(), 768);
  EXPECT_EQ(large.Control<controls::Window>("main").Bounds().width, 8175);
  auto& help = large.Widget<QWidget>("main.help");
  const auto is_seen = [&help] { return !help.visibleRegion().isEmpty(); };
  EXPECT_FALSE(is_seen());
  help.setFocus(Qt::ShortcutFocusReason);
  EXPECT_TRUE(is_seen());
}

TEST_F(FormViewTest, AMovedWindowTellsItsPlace) {
  auto& control = window_.Control<controls::Window>("main");
  window_.View().move(40, 50);
  EXPECT_TRUE(QTest::qWaitFor([&control] { return control.Bounds().left == 600; }));
  EXPECT_EQ(control.Bounds().top, 750);
}

TEST_F(FormViewTest, EnterEscapeAndShortcutsPressWhatTheWindowSays) {
  window_.Control<controls::Button>("page.apply").on_click = [this] { log_ += "apply "; };
  window_.Control<controls::ToolKey>("main.one").on_click = [this] { log_ += "cancel "; };
  auto& mode = window_.Widget<QComboBox>("page.mode");
  mode.setFocus();
  QTest::keyClicks(&mode, "!");
  QTest::keyClick(&mode, Qt::Key_Return);
  EXPECT_EQ(log_, "") << "Enter finishes typing first";
  QTest::keyClick(&mode, Qt::Key_Return);
  QTest::keyClick(&window_.Widget<QWidget>("page.clock"), Qt::Key_Return);
  QTest::keyClick(&window_.Widget<QWidget>("page.lod"), Qt::Key_Escape);
  QTest::keyClick(&window_.View(), Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(log_, "apply apply cancel apply ");
  window_.Control<controls::Button>("page.apply").SetEnabled(false);
  QTest::keyClick(&window_.View(), Qt::Key_Return);
  QTest::keyClick(&window_.View(), Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(log_, "apply apply cancel apply ");
}

TEST_F(FormViewTest, AltAndALetterReachWhatALabelNamesAndPressAKey) {
  window_.Control<controls::ToolKey>("main.dx").on_click = [this] { log_ += "tools "; };
  QTest::keyClick(&window_.View(), Qt::Key_M, Qt::AltModifier);
  EXPECT_TRUE(window_.Widget<QComboBox>("page.mode").hasFocus());
  QTest::keyClick(&window_.View(), Qt::Key_T, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return log_ == "tools "; }));
}

TEST_F(FormViewTest, EscapeTakesAnUnfinishedTextBackAndClosesAListFirst) {
  window_.Control<controls::ToolKey>("main.one").on_click = [this] { log_ += "cancel "; };
  auto& mode = window_.Widget<QComboBox>("page.mode");
  mode.setFocus();
  QTest::keyClicks(&mode, "!");
  QTest::keyClick(&mode, Qt::Key_Escape);
  EXPECT_EQ(mode.currentText(), "Auto");
  mode.showPopup();
  QTest::keyClick(mode.view(), Qt::Key_Escape);
  EXPECT_FALSE(mode.view()->isVisible());
  EXPECT_EQ(log_, "");
  QTest::keyClick(&mode, Qt::Key_Escape);
  EXPECT_EQ(log_, "cancel ");
}

TEST_F(FormViewTest, AGraphShowsWhatWasDrawnSinceTheLastClearing) {
  window_.Control<Frame>("other").SetVisible(true);
  auto& graph = window_.Control<controls::Graph>("other.graph");
  auto& widget = window_.Widget<QWidget>("other.graph");
  const auto at = [&widget](int x, int y) { return widget.grab().toImage().pixelColor(x, y); };
  graph.Draw(controls::GraphLine{1500, 150, 1500, 1350, "#00ff00", 30});
  graph.Draw(controls::GraphPoint{750, 750, "#ff0000", 30});
  EXPECT_EQ(at(100, 50), QColor(0, 255, 0));
  EXPECT_EQ(at(50, 50), QColor(255, 0, 0));
  EXPECT_NE(at(100, 96), QColor(0, 255, 0));
  graph.Clear();
  graph.Draw(controls::GraphLine{-3000, 750, 30000, 750, "#0000ff", 15});
  EXPECT_EQ(at(199, 50), QColor(0, 0, 255));
  EXPECT_NE(at(100, 52), QColor(0, 255, 0));
}

/// Remembers which part of a widget was painted.
class PaintWatcher : public QObject {
 public:
  explicit PaintWatcher(QWidget& widget) { widget.installEventFilter(this); }

  QRegion Take() { return std::exchange(painted_, {}); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted_ += static_cast<QPaintEvent*>(event)->region();
    return QObject::eventFilter(watched, event);
  }

 private:
  QRegion painted_;
};

TEST_F(FormViewTest, AGraphPaintsWhatIsNewAlone) {
  window_.Control<Frame>("other").SetVisible(true);
  auto& graph = window_.Control<controls::Graph>("other.graph");
  auto& widget = window_.Widget<QWidget>("other.graph");
  const auto at = [&widget](int x, int y) { return widget.grab().toImage().pixelColor(x, y); };
  QCoreApplication::processEvents();
  PaintWatcher watcher(widget);
  const auto painted = [&watcher] {
    QCoreApplication::processEvents();
    return watcher.Take().boundingRect();
  };
  graph.Draw(controls::GraphLine{1500, 150, 1500, 1350, "#00ff00", 30});
  const QRect line = painted();
  EXPECT_TRUE(line.contains(QRect(99, 10, 2, 80)));
  EXPECT_LE(line.width(), 10);
  graph.Draw(controls::GraphPoint{2250, 750, "#ff0000", 30});
  const QRect point = painted();
  EXPECT_TRUE(point.contains(150, 50));
  EXPECT_LE(std::max(point.width(), point.height()), 10);
  EXPECT_EQ(at(100, 50), QColor(0, 255, 0));
  graph.Clear();
  EXPECT_EQ(painted().size(), widget.size());
  EXPECT_NE(at(100, 50), QColor(0, 255, 0));
}

TEST_F(FormViewTest, AGraphIsDrawnAnewWhereItHasGrownAndCutsOffWhatLiesOutside) {
  window_.Control<Frame>("other").SetVisible(true);
  auto& graph = window_.Control<controls::Graph>("other.graph");
  auto& widget = window_.Widget<QWidget>("other.graph");
  const auto at = [&widget](int x, int y) { return widget.grab().toImage().pixelColor(x, y); };
  graph.Draw(controls::GraphLine{1500, 0, 1500, 3000, "#00ff00", 30});
  EXPECT_EQ(at(100, 90), QColor(0, 255, 0));
  controls::Rect bounds = graph.Bounds();
  bounds.height = 1650;
  graph.SetBounds(bounds);
  EXPECT_EQ(at(100, 105), QColor(0, 255, 0));
  constexpr int kFar = 2'000'000'000;
  graph.Draw(controls::GraphLine{1500, 0, 1500, -kFar, "#ff0000", 30});
  graph.Draw(controls::GraphLine{2250, kFar, 2250, -kFar, "#0000ff", 30});
  EXPECT_EQ(at(100, 50), QColor(0, 255, 0));
  EXPECT_EQ(at(150, 50), QColor(0, 0, 255));
}

TEST_F(FormViewTest, ABarIsAsWideAsItsValueAndAReadOnlyBoxTakesNoTyping) {
  window_.Control<Frame>("other").SetVisible(true);
  window_.Control<controls::Bar>("other.bar").ShowWidth(900);
  EXPECT_EQ(window_.Widget<QWidget>("other.bar").width(), 60);
  auto& path = window_.Widget<QLineEdit>("other.path");
  QTest::keyClicks(&path, "x");
  EXPECT_EQ(path.text(), "fixed");
  window_.Control<TextBox>("other.path").ShowText("moved");
  EXPECT_EQ(path.text(), "moved");
}

constexpr forms::WindowRow kModalWindow = {
    .window = forms::Row(forms::Kind::kWindow, "modal", "", {0, 0, 3000, 1500}),
    .controls = {},
    .modal = true};

TEST_F(FormViewTest, AModalWindowStandsOverItsOwnerAndFadesIn) {
  forms::Form form(kModalWindow);
  platform::portable::FolderFiles files({}, 1252);
  controls::Gate gate;
  face::Context context(face::Scale(1.0 / 15), files, gate, nullptr);
  form.TheWindow().SetOpacity(0);
  const auto view = std::make_unique<FormView>(form, context, &window_.View());
  view->FollowWindow();
  EXPECT_EQ(view->windowModality(), Qt::ApplicationModal);
  EXPECT_EQ(view->minimumSize(), view->maximumSize());
  EXPECT_TRUE(view->isWindow());
  EXPECT_EQ(view->windowOpacity(), 0);
  form.TheWindow().SetOpacity(255);
  EXPECT_EQ(view->windowOpacity(), 1);
}

TEST_F(FormViewTest, TheCloseBoxAsksTheForm) {
  auto& control = window_.Control<controls::Window>("main");
  window_.View().close();
  EXPECT_TRUE(window_.View().isVisible());
  control.on_close = [&control] { control.SetVisible(false); };
  window_.View().close();
  EXPECT_FALSE(window_.View().isVisible());
}

}  // namespace
}  // namespace kestrune::qt
