#include "ui/qt/face.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <set>

#include "core/options.h"
#include "platform/portable/portable_machine.h"
#include "platform/services.h"
#include "platform/tracing.h"
#include "ui/forms/main_form.h"
#include "ui/forms/windows.h"
#include "ui/qt/face_style.h"
#include "ui/qt/qt_dialog.h"

namespace kestrune::qt {
namespace {

using platform::RegRoot;

/// A started program on a machine of its own, and its windows.
class RunningProgram {
 public:
  explicit RunningProgram(const QString& store, const QString& program_folder = {},
                          const std::string& machine = "winxp-geforce7800")
      : machine_(Open(store, program_folder, machine)),
        services_(machine_->ServicesFor(dialog_)),
        registry_(services_.registry, trace_),
        program_({registry_, services_.display, services_.version, services_.system,
                  services_.shell, services_.files, services_.dialog}) {
    EXPECT_TRUE(program_.Start(""));
    face_.emplace(program_, services_.files,
                  FaceOptions{.store_failure = [this] { return store_failure_; },
                              .machine_title = machine_->Title(),
                              .changes = &changes_,
                              .dialog = &dialog_});
    Window().activateWindow();
    (void)QTest::qWaitForWindowActive(&Window());
  }

  forms::Program& TheProgram() { return program_; }
  FormView& Window() { return *face_->ViewOf(program_.Main()); }
  FormView* ViewOf(std::string_view window) { return face_->ViewOf(program_.FormOf(window)); }
  platform::DialogApi& Dialog() { return dialog_; }
  void FailStore(const std::string& sentence) { store_failure_ = sentence; }

  template <typename T>
  T& Widget(std::string_view id) {
    auto* widget = dynamic_cast<T*>(Window().WidgetOf(*program_.Find(id)));
    if (widget == nullptr) throw std::out_of_range(std::string(id));
    return *widget;
  }
  void Pick(std::string_view combo_id, const QString& entry) {
    auto& combo = Widget<QComboBox>(combo_id);
    combo.showPopup();
    combo.view()->setCurrentIndex(combo.model()->index(combo.findText(entry), 0));
    QTest::keyClick(combo.view(), Qt::Key_Return);
  }
  /// A binary or numeric value as hex digits; empty when it isn't set.
  std::string Stored(RegRoot root, const std::string& key_path, std::string_view name) {
    platform::RegHandle key = 0;
    if (services_.registry.OpenKey(root, key_path, key) != platform::RegStatus::kSuccess) {
      return "";
    }
    platform::RegType type = platform::RegType::kNone;
    std::size_t size = 0;
    QByteArray data(64, '\0');
    const auto bytes = std::as_writable_bytes(std::span(data.data(), 64));
    const auto status = services_.registry.QueryValue(key, name, type, size, bytes);
    services_.registry.CloseKey(key);
    if (status != platform::RegStatus::kSuccess) return "";
    return data.left(static_cast<qsizetype>(size)).toHex(' ').toStdString();
  }
  std::string DriverValue(std::string_view name) {
    for (const auto& [row, value] : program_.State()) {
      if (row == "PureKey")
        return Stored(RegRoot::kLocalMachine, std::get<std::string>(value), name);
    }
    return "";
  }
  int State(std::string_view name) {
    for (const auto& [row, value] : program_.State()) {
      if (row == name) return std::get<int>(value);
    }
    return -1;
  }
  void KeepLanguage(const std::string& name) {
    core::basRegistry registry(services_.registry);
    core::OwnOptions(registry).Write(core::kLanguageValue, name);
  }
  std::string Option(std::string_view name) {
    return Stored(RegRoot::kCurrentUser, "Software\\Kestrune", name);
  }

 private:
  static std::unique_ptr<platform::Machine> Open(const QString& store,
                                                 const QString& program_folder,
                                                 const std::string& machine) {
    auto opened = platform::portable::PortableMachines().Open(
        {.store = store.toStdString(),
         .machine = machine,
         .program_folder = program_folder.toStdString()});
    if (!opened) throw std::runtime_error(opened.Reason());
    return std::move(opened).Value();
  }

  std::unique_ptr<platform::Machine> machine_;
  QtDialog dialog_;
  platform::Services services_;
  face::ChangeLog changes_;
  platform::Trace trace_{changes_.Sink()};
  platform::TracingRegistry registry_;
  forms::Program program_;
  std::optional<std::string> store_failure_;
  std::optional<Face> face_;
};

/// The labels by which assistive technology hears a text.
QList<QLabel*> Spoken(RunningProgram& running, const QString& text) {
  QList<QLabel*> labels = running.Window().findChildren<QLabel*>();
  labels.removeIf([&text](const QLabel* label) { return label->accessibleName() != text; });
  return labels;
}

class FaceTest : public testing::Test {
 protected:
  QString NewStore() { return folder_.filePath("face.store"); }

  QTemporaryDir folder_;
};

TEST_F(FaceTest, AModePickedInTheWindowIsStoredMirroredAndShownAtTheNextStart) {
  {
    RunningProgram running(NewStore());
    QTest::mouseClick(&running.Widget<QToolButton>("main.dx"), Qt::LeftButton, {}, QPoint(10, 10));
    running.Pick("direct3d.antialiasing.antialiasing-mode", "4x");
    EXPECT_EQ(running.DriverValue("D3DOGL_70835937"), "10 00 00 10");
    QTest::mouseClick(&running.Widget<QToolButton>("main.ogl"), Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_EQ(running.Widget<QComboBox>("opengl.antialiasing.antialiasing-mode").currentText(),
              "4x");
  }
  RunningProgram again(NewStore());
  again.TheProgram().GoToPage(1);
  EXPECT_EQ(again.Widget<QComboBox>("direct3d.antialiasing.antialiasing-mode").currentText(), "4x");
}

TEST_F(FaceTest, AMenuItemLeadsToItsPage) {
  RunningProgram running(NewStore());
  auto& button = running.Widget<QToolButton>("main.dx");
  QTimer::singleShot(0, &button, [&button] { QTest::keyClick(button.menu(), Qt::Key_M); });
  QTest::keyClick(&button, Qt::Key_Down);
  EXPECT_EQ(running.TheProgram().ActivePage(), 8);
  EXPECT_TRUE(running.Widget<QWidget>("direct3d.misc").isVisible());
}

TEST_F(FaceTest, WhatTheProcessorsDoIsDrawnAndRecordedInRealTime) {
  RunningProgram running(NewStore(), folder_.path());
  running.TheProgram().GoToPage(14);
  QTest::mouseClick(&running.Widget<QRadioButton>("info.monitoring.fast"), Qt::LeftButton, {},
                    QPoint(10, 10));
  QTest::mouseClick(&running.Widget<QPushButton>("info.monitoring.rec"), Qt::LeftButton);
  EXPECT_EQ(running.State("Recording"), 1);
  auto& graph = running.TheProgram().Main().Get<controls::Graph>("info.monitoring.cpu-graph");
  // One line for each of the two processors a sample.
  EXPECT_TRUE(QTest::qWaitFor([&graph] { return graph.Shapes().size() >= 6; }));
  // The line of a load of 37 percent on the third sample, 180 twips from the left.
  auto& widget = running.Widget<QWidget>("info.monitoring.cpu-graph");
  EXPECT_EQ(widget.grab().toImage().pixelColor(12, widget.height() - 20), QColor(0, 255, 0));
  QTest::mouseClick(&running.Widget<QPushButton>("info.monitoring.stop"), Qt::LeftButton);
  QWidget* window = running.ViewOf("monitoring");
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->isModal());
  EXPECT_TRUE(QFile::exists(folder_.filePath("sm.dat")));
  window->close();
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(QFile::exists(folder_.filePath("sm.dat")));
}

TEST_F(FaceTest, TabReachesEverythingThatCanBeUsedOnEachPage) {
  RunningProgram running(NewStore());
  for (int page = 0; page < forms::PageCount(); ++page) {
    running.TheProgram().GoToPage(page);
    std::set<QString> usable;
    for (const auto& control : running.TheProgram().Main().Controls()) {
      const QWidget* widget = running.Window().WidgetOf(*control);
      const auto* label = dynamic_cast<controls::Label*>(control.get());
      const bool is_text = label != nullptr && label->Role() != controls::LabelRole::kLink;
      const bool is_drawn_on = dynamic_cast<controls::Graph*>(control.get()) != nullptr ||
                               dynamic_cast<controls::Bar*>(control.get()) != nullptr;
      const bool takes_use = !is_text && !is_drawn_on &&
                             dynamic_cast<controls::Frame*>(control.get()) == nullptr &&
                             dynamic_cast<controls::Window*>(control.get()) == nullptr;
      const bool is_picture = dynamic_cast<controls::PictureBox*>(control.get()) != nullptr;
      if (widget == nullptr || !takes_use || !control->Usable()) continue;
      if (!is_picture || control->on_click) usable.insert(widget->objectName());
    }
    std::set<QString> visited;
    running.Widget<QWidget>("main.nvcpl").setFocus();
    for (std::size_t i = 0; i < usable.size() + 2; ++i) {
      // The platform of the tests makes any window that opens the active one.
      running.Window().activateWindow();
      ASSERT_TRUE(QTest::qWaitForWindowActive(&running.Window()));
      ASSERT_NE(QApplication::focusWidget(), nullptr) << "page " << page;
      visited.insert(QApplication::focusWidget()->objectName());
      // The lower panel opens under the focus.
      running.TheProgram().Timers().Advance(1000);
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (const QString& id : usable) {
      EXPECT_TRUE(visited.contains(id)) << "page " << page << ", " << id.toStdString();
    }
  }
}

TEST_F(FaceTest, TheKeyboardOpensTheLowerPanelAndItsOptionsAreStored) {
  RunningProgram running(NewStore());
  running.Widget<QWidget>("main.lower-panel-edge").setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(QTest::qWaitFor([&] { return running.Window().height() == 427; }));
  auto& box = running.Widget<QCheckBox>("main.enable-help-system");
  EXPECT_TRUE(box.isChecked());
  QTest::keyClick(&box, Qt::Key_Space);
  EXPECT_EQ(running.Option("HelpSystem"), "00 00 00 00");
}

TEST_F(FaceTest, TheClosedLowerPanelTakesNoFocusAndTheOpenOneKeepsIt) {
  RunningProgram running(NewStore());
  auto& languages = running.Widget<QWidget>("main.language");
  const auto is_heard = [&languages] {
    return !QAccessible::queryAccessibleInterface(&languages)->state().invisible;
  };
  auto& first = running.Widget<QWidget>("main.nvcpl");
  first.setFocus();
  languages.setFocus();
  EXPECT_TRUE(first.hasFocus());
  EXPECT_FALSE(is_heard());
  QTest::keyClick(&first, Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_TRUE(running.Widget<QWidget>("main.lower-panel-edge").hasFocus());
  EXPECT_TRUE(QTest::qWaitFor([&] { return running.Window().height() == 427; }));
  EXPECT_TRUE(is_heard());
  auto& page = running.Widget<QWidget>("info.basic");
  languages.setFocus(Qt::MouseFocusReason);
  QTest::mouseMove(&page, QPoint(500, 200));
  EXPECT_FALSE(QTest::qWaitFor([&] { return running.Window().height() < 427; }, 250));
  // A panel that is closing already opens again.
  first.setFocus();
  QTest::mouseMove(&page, QPoint(501, 200));
  ASSERT_TRUE(QTest::qWaitFor([&] { return running.Window().height() < 415; }));
  languages.setFocus(Qt::MouseFocusReason);
  EXPECT_TRUE(QTest::qWaitFor([&] { return running.Window().height() == 427; }));
  EXPECT_TRUE(languages.hasFocus());
  first.setFocus();
  QTest::mouseMove(&page, QPoint(502, 200));
  EXPECT_TRUE(QTest::qWaitFor([&] { return running.Window().height() == 375; }));
  EXPECT_FALSE(is_heard());
}

TEST_F(FaceTest, HelpStandsBesideTheWindowWhereThereIsRoomAndTheFormIsNotTold) {
  RunningProgram running(NewStore());
  running.TheProgram().GoToPage(6);
  const auto right = [](const QRect& main, const QRect&) { return main.right() + 1; };
  const auto left = [](const QRect& main, const QRect& help) { return main.x() - help.width(); };
  const auto corner = [](const QRect&, const QRect& help) { return 1024 - help.width(); };
  const std::pair<int, int (*)(const QRect&, const QRect&)> cases[] = {
      {10, right}, {470, left}, {240, corner}};
  for (const auto& [place, expected] : cases) {
    running.Window().move(place, 40);
    const controls::Rect& main = running.TheProgram().Find("main")->Bounds();
    ASSERT_TRUE(QTest::qWaitFor([&, x = place] { return main.left == x * 15; }));
    QTest::mouseMove(&running.Widget<QWidget>("direct3d.filtering.force-mipmaps"), QPoint(9, 9));
    QTest::qWait(20);
    EXPECT_EQ(running.ViewOf("help")->x(),
              expected(running.Window().frameGeometry(), running.ViewOf("help")->frameGeometry()));
    EXPECT_EQ(running.TheProgram().Find("help")->Bounds().left, main.left + main.width);
    running.ViewOf("help")->close();
  }
}

TEST_F(FaceTest, HoveringOpensHelpAndLeavesTheFocusAlone) {
  RunningProgram running(NewStore());
  running.TheProgram().GoToPage(6);
  EXPECT_EQ(running.ViewOf("help"), nullptr);
  QTest::mouseMove(&running.Widget<QWidget>("direct3d.filtering.force-mipmaps"), QPoint(9, 9));
  ASSERT_NE(running.ViewOf("help"), nullptr);
  EXPECT_TRUE(running.ViewOf("help")->isVisible());
  EXPECT_TRUE(running.ViewOf("help")->testAttribute(Qt::WA_ShowWithoutActivating));
  running.ViewOf("help")->close();
  EXPECT_FALSE(running.ViewOf("help")->isVisible());
  QTest::mouseMove(&running.Widget<QWidget>("direct3d.filtering.force-mipmaps"), QPoint(11, 9));
  EXPECT_TRUE(running.ViewOf("help")->isVisible());
}

TEST_F(FaceTest, PageKeysGoThroughThePagesAndPassOverWhatCannotBeReached) {
  RunningProgram running(NewStore(), {}, "vista-geforce7900");
  running.TheProgram().GoToPage(0);
  std::vector<int> pages;
  for (int i = 0; i < 15; ++i) {
    QTest::keyClick(&running.Window(), Qt::Key_PageDown, Qt::ControlModifier);
    pages.push_back(running.TheProgram().ActivePage());
  }
  EXPECT_EQ(pages, (std::vector{1, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 15}));
  running.TheProgram().GoToPage(4);
  QTest::keyClick(&running.Window(), Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(running.TheProgram().ActivePage(), 2);
}

TEST_F(FaceTest, F1ExplainsTheFocusedControlAndEscapeClosesHelp) {
  RunningProgram running(NewStore());
  running.TheProgram().GoToPage(5);
  const auto press = [&running](Qt::Key key) { QTest::keyClick(&running.Window(), key); };
  running.Widget<QWidget>("opengl.filtering.aniso-sample-optimization").setFocus();
  for (const bool by_help : {false, true}) {
    press(Qt::Key_F1);
    ASSERT_NE(running.ViewOf("help"), nullptr);
    EXPECT_TRUE(running.ViewOf("help")->isVisible());
    EXPECT_EQ(running.State("LastHelpTopic"), 5);
    QWidget& window = by_help ? *running.ViewOf("help") : running.Window();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(running.ViewOf("help")->isVisible());
    running.Window().activateWindow();
  }
  press(Qt::Key_Escape);
  EXPECT_FALSE(running.TheProgram().Ended());
  running.Widget<QWidget>("opengl.filtering.trilinear-quality").setFocus();
  (void)running.TheProgram().Main().Get<controls::CheckBox>("main.enable-help-system").Use(0);
  running.Widget<QWidget>("opengl.filtering.aniso-sample-optimization").setFocus();
  press(Qt::Key_F1);
  EXPECT_FALSE(running.ViewOf("help")->isVisible());
}

TEST_F(FaceTest, LabelsExplainWhatTheyNameAlsoWhileTheyAreDisabled) {
  RunningProgram running(NewStore());
  int explained = 0;
  for (int page = 0; page < forms::PageCount(); ++page) {
    running.TheProgram().GoToPage(page);
    for (const auto& control : running.TheProgram().Main().Controls()) {
      const auto* label = dynamic_cast<const controls::Label*>(control.get());
      if (label == nullptr || label->Names() == nullptr || !label->Names()->on_hover) continue;
      if (running.TheProgram().PageOf(*label) != page) continue;
      QTest::mouseMove(running.Window().WidgetOf(*label->Names()), QPoint(9, 9));
      const int topic = running.State("LastHelpTopic");
      running.ViewOf("help")->close();
      control->SetEnabled(false);
      QTest::mouseMove(running.Window().WidgetOf(*label), QPoint(9, 9));
      EXPECT_EQ(running.State("LastHelpTopic"), topic) << label->Id();
      ++explained;
    }
  }
  EXPECT_EQ(explained, 13);
}

TEST_F(FaceTest, F5ShowsWhatIsStoredByNow) {
  RunningProgram running(NewStore());
  running.TheProgram().GoToPage(1);
  running.Pick("direct3d.antialiasing.antialiasing-mode", "4x");
  const int binary = running.State("WriteAsBinary");
  auto& mode = running.Widget<QComboBox>("direct3d.antialiasing.antialiasing-mode");
  running.TheProgram().Main().Get<controls::ComboBox>(mode.objectName().toStdString()).ShowText("");
  running.TheProgram()
      .Main()
      .Get<controls::CheckBox>("control-panel.settings.override-nview-capable")
      .Show(1);
  QTest::keyClick(&running.Window(), Qt::Key_F5);
  EXPECT_EQ(mode.currentText(), "4x");
  EXPECT_EQ(running.TheProgram().Find("control-panel.settings.override-nview-capable")->ValueText(),
            "off");
  EXPECT_EQ(running.State("WriteAsBinary"), binary);
  EXPECT_EQ(running.State("IsStart"), 0);
}

TEST_F(FaceTest, ReturnInAClockBoxApplies) {
  RunningProgram running(NewStore());
  running.TheProgram().GoToPage(3);
  auto& box = running.Widget<QLineEdit>("overclocking.core-clock");
  box.setFocus();
  box.selectAll();
  QTest::keyClicks(&box, "433");
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(running.State("CoreMHz"), 433);
}

TEST_F(FaceTest, TheFocusIsKnownAndMovesWhereTheProgramSays) {
  std::optional<RunningProgram> running(std::in_place, NewStore());
  forms::Program& program = running->TheProgram();
  program.GoToPage(1);
  auto& combo = running->Widget<QComboBox>("direct3d.antialiasing.antialiasing-mode");
  combo.lineEdit()->setFocus();
  EXPECT_EQ(program.Focus().Where(), program.Find("direct3d.antialiasing.antialiasing-mode"));
  program.Focus().MoveTo(*program.Find("main.oc"));
  EXPECT_TRUE(running->Widget<QWidget>("main.oc").hasFocus());
  EXPECT_EQ(program.Focus().Where(), program.Find("main.oc"));
}

TEST_F(FaceTest, TheWindowGoesBackToItsWidthAndFromMaximised) {
  RunningProgram running(NewStore());
  FormView& window = running.Window();
  window.setMinimumSize(0, 0);
  window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  window.resize(700, window.height());
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.width() == 545; }));
  window.showMaximized();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isMaximized() && window.width() == 545; }));
}

TEST_F(FaceTest, ClosingTheWindowRunsTheShutDown) {
  RunningProgram running(NewStore());
  running.TheProgram().GoToPage(12);
  QTest::mouseClick(&running.Widget<QCheckBox>("main.remember-last-visited-page"), Qt::LeftButton,
                    {}, QPoint(5, 8));
  running.TheProgram().GoToPage(13);
  running.Window().close();
  EXPECT_TRUE(running.TheProgram().Ended());
  EXPECT_EQ(running.Option("LVP"), "0d 00 00 00");
}

TEST_F(FaceTest, AFailureOfTheStoreIsSaidOnceAndTheLowerPanelStillOpens) {
  RunningProgram running(NewStore());
  running.FailStore("The store is full.");
  running.TheProgram().GoToPage(6);
  for (int i = 0; i < 2; ++i) {
    QTest::mouseClick(&running.Widget<QCheckBox>("direct3d.filtering.disable-mipmap-filtering"),
                      Qt::LeftButton, {}, QPoint(5, 8));
  }
  const QList<QLabel*> notices = Spoken(running, "The store is full.");
  ASSERT_EQ(notices.size(), 1);
  EXPECT_TRUE(notices[0]->isVisible());
  QTest::mouseMove(notices[0], QPoint(5, 5));
  EXPECT_TRUE(QTest::qWaitFor([&] { return running.Window().height() == 427; }));
}

TEST_F(FaceTest, ANoticeTakesThePlaceOfTheLastOneBehindAFailureOfTheStore) {
  RunningProgram running(NewStore());
  running.TheProgram().GoToPage(1);
  running.Dialog().Notify("First.");
  ASSERT_EQ(Spoken(running, "First.").size(), 1);
  const QLabel* notice = Spoken(running, "First.")[0];
  EXPECT_TRUE(notice->isVisible());
  running.FailStore("The store is full.");
  running.Pick("direct3d.antialiasing.antialiasing-mode", "4x");
  EXPECT_EQ(notice->accessibleName(), "The store is full.");
  for (const char* sentence : {"Second.", "Third."}) running.Dialog().Notify(sentence);
  EXPECT_EQ(notice->accessibleName(), "The store is full. Third.");
}

TEST_F(FaceTest, WhatAnActChangedIsSaidOverTheEdgeOfTheLowerPanel) {
  RunningProgram running(NewStore());
  running.TheProgram().GoToPage(1);
  const auto said = [&running] {
    for (const QLabel* label : running.Window().findChildren<QLabel*>()) {
      if (label->isVisible() && label->text().contains(" = ")) return label;
    }
    return static_cast<const QLabel*>(nullptr);
  };
  EXPECT_EQ(said(), nullptr) << "start-up is no act";
  running.Pick("direct3d.antialiasing.antialiasing-mode", "4x");
  ASSERT_NE(said(), nullptr);
  EXPECT_EQ(said()->text(), "D3DOGL_70835937 = 10 00 00 10");
  EXPECT_TRUE(said()->toolTip().startsWith("write\tHKLM\\"));
  EXPECT_EQ(running.TheProgram().Find("main.lower-panel-edge")->Caption(), "Options");
  EXPECT_TRUE(QTest::qWaitFor([&] { return said() == nullptr; }, 8000));
  running.FailStore("The store is full.");
  running.Pick("direct3d.antialiasing.antialiasing-mode", "2x");
  EXPECT_EQ(said(), nullptr) << "a notice stays";
}

TEST_F(FaceTest, WhatIsDisabledSaysWhyWhereTheCardTheDriverOrTheSystemIsTheReason) {
  struct Case {
    const char* machine;
    const char* id;
    const char* tip;
  };
  const Case cases[] = {
      {"winxp-geforce6800", "opengl.antialiasing.transparency-antialiasing", "Not on this card"},
      {"winxp-geforce6800", "direct3d.antialiasing.gamma-correct-antialiasing", "Not on this card"},
      {"winxp-geforcefx5900", "direct3d.misc.enable-fog-table-emulation", ""},
      {"win98-geforce4ti", "control-panel.settings.enable-application-profile-page",
       "From driver release 55.00"},
      {"winxp-geforce6800", "control-panel.settings.enable-thermal-settings-page", ""},
      {"winxp-geforce6800", "main.oc", ""},
      {"vista-geforce7900", "main.oc", "Not on this system"}};
  for (const Case& each : cases) {
    RunningProgram running(folder_.filePath(each.machine), {}, each.machine);
    const controls::Control& control = *running.TheProgram().Find(each.id);
    if (running.TheProgram().PageOf(control) >= 0) {
      running.TheProgram().GoToPage(running.TheProgram().PageOf(control));
    }
    EXPECT_EQ(control.ToolTip(), each.tip) << each.machine << ' ' << each.id;
    const std::string drawn = running.Widget<QWidget>(each.id).toolTip().toStdString();
    EXPECT_TRUE(drawn == each.tip || control.ToolTip().empty()) << each.id;
  }
}

TEST_F(FaceTest, TheToolbarMarksTheGroupThatIsShown) {
  RunningProgram running(NewStore());
  const std::pair<int, const char*> cases[] = {
      {8, "main.dx"}, {13, "main.ogl"}, {3, "main.oc"}, {10, "main.nvcpl"}, {4, "main.info"}};
  for (const auto& [page, marked] : cases) {
    running.TheProgram().GoToPage(page);
    for (const char* key : {"main.nvcpl", "main.dx", "main.ogl", "main.oc", "main.info"}) {
      auto& widget = running.Widget<QToolButton>(key);
      EXPECT_EQ(QAccessible::queryAccessibleInterface(&widget)->state().selected,
                key == std::string_view(marked))
          << page << key;
      const QImage seen = widget.grab().toImage();
      const bool has_bar =
          seen.pixel(2, seen.height() - 2) == FaceStyle::FocusColour(widget.palette()).rgb();
      EXPECT_EQ(has_bar, key == std::string_view(marked)) << page << key;
    }
  }
}

TEST_F(FaceTest, TheTitleNamesTheMachineUnlessItIsThisComputer) {
  RunningProgram running(NewStore());
  const QString caption = QString::fromStdString(running.TheProgram().Main().TheWindow().Caption());
  EXPECT_EQ(running.Window().windowTitle(),
            caption + " - Windows XP SP2, GeForce 7800 GTX, driver 81.95");
  RunningProgram host(folder_.filePath("host.store"), {}, "host");
  EXPECT_EQ(host.Window().windowTitle(), caption);
}

TEST_F(FaceTest, TheLanguageBoxTellsTheLanguageThatIsInUse) {
  RunningProgram running(NewStore());
  QAccessibleInterface& heard =
      *QAccessible::queryAccessibleInterface(&running.Widget<QWidget>("main.language"));
  EXPECT_EQ(heard.text(QAccessible::Value), "English");
  EXPECT_EQ(running.TheProgram().Find("main.language")->ValueText(), "");
}

TEST_F(FaceTest, FramesAndBoxesNameWhatStandsInThemOrBelow) {
  const QString store = NewStore();
  RunningProgram(store).KeepLanguage("cs");
  RunningProgram running(store);
  running.TheProgram().TheWindows().Open("registry-editor");
  const FormView& editor = *running.ViewOf("registry-editor");
  const auto name_of = [&](const char* id) {
    return editor.WidgetOf(*running.TheProgram().Find(id))->accessibleName();
  };
  EXPECT_EQ(name_of("registry-editor.available-values"), "Dostupn\u00E9 hodnoty");
  EXPECT_EQ(name_of("registry-editor.typed-value"), "Vlastn\u00ED hodnota");
}

TEST_F(FaceTest, WithoutALanguageFileEverythingStillHasANameAndCanBeUsed) {
  RunningProgram running(NewStore(), folder_.path());
  for (int page = 0; page < forms::PageCount(); ++page) {
    running.TheProgram().GoToPage(page);
    for (const auto& control : running.TheProgram().Main().Controls()) {
      const QWidget* widget = running.Window().WidgetOf(*control);
      if (widget == nullptr || !widget->isVisible()) continue;
      EXPECT_FALSE(widget->accessibleName().isEmpty() && !widget->isWindow()) << control->Id();
    }
  }
  auto& button = running.Widget<QToolButton>("main.dx");
  QTimer::singleShot(0, &button, [&button] {
    EXPECT_FALSE(button.menu()->actions().first()->text().isEmpty());
    QTest::keyClick(button.menu(), Qt::Key_Return);
    button.menu()->close();
  });
  QTest::keyClick(&button, Qt::Key_Down);
  running.TheProgram().GoToPage(8);
  auto& box = running.Widget<QCheckBox>("direct3d.misc.enable-fog-table-emulation");
  EXPECT_EQ(box.text(), "Enable fog table emulation");
  EXPECT_TRUE(
      running.TheProgram().Find("direct3d.misc.enable-fog-table-emulation")->Caption().empty());
  const auto labels = running.Window().findChildren<QLabel*>();
  EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
    return label->isVisible() && label->accessibleName().contains("DATA/LANGUAGE/en.dat");
  }));
}

}  // namespace
}  // namespace kestrune::qt
