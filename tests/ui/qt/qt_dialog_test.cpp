#include "ui/qt/qt_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace kestrune::qt {
namespace {

/// A window that counts what reaches it.
class BusyWindow : public QWidget {
 public:
  BusyWindow() : box_(this), line_(this) {
    box_.setFocusPolicy(Qt::NoFocus);
    box_.setGeometry(0, 0, 100, 30);
    line_.setGeometry(0, 40, 100, 30);
    setGeometry(0, 0, 200, 100);
    show();
    activateWindow();
    (void)QTest::qWaitForWindowActive(this);
    line_.setFocus();
  }

  /// What a person does: it arrives when events are processed.
  void ClickAndType() {
    const QPointF place(8, 15);
    for (const auto& [type, held] : {std::pair(QEvent::MouseButtonPress, Qt::LeftButton),
                                     std::pair(QEvent::MouseButtonRelease, Qt::NoButton)}) {
      QCoreApplication::postEvent(
          windowHandle(), new QMouseEvent(type, place, place, mapToGlobal(place), Qt::LeftButton,
                                          held, Qt::NoModifier));
    }
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QCoreApplication::postEvent(windowHandle(),
                                  new QKeyEvent(type, Qt::Key_A, Qt::NoModifier, "a"));
    }
  }
  std::string Done() const {
    return std::to_string(static_cast<int>(box_.isChecked())) + line_.text().toStdString();
  }
  int Paints() const { return paints_; }

 protected:
  void paintEvent(QPaintEvent*) override { ++paints_; }

 private:
  QCheckBox box_;
  QLineEdit line_;
  int paints_ = 0;
};

TEST(QtDialogTest, WhatAPersonDoesDuringAWaitIsDroppedAndWindowsLive) {
  BusyWindow window;
  window.ClickAndType();
  QCoreApplication::processEvents();
  ASSERT_EQ(window.Done(), "1a");

  QtDialog dialog;
  QTimer timer;
  int ticks = 0;
  QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
  timer.start(1);
  const int paints = window.Paints();
  int asked = 0;
  // The last clicks come after the last look at the events.
  dialog.WaitWhile([&] {
    window.ClickAndType();
    window.update();
    if (asked == 0) QTimer::singleShot(0, &window, [&window] { window.close(); });
    QTest::qSleep(20);
    return ++asked < 4;
  });
  QCoreApplication::processEvents();
  EXPECT_EQ(asked, 4);
  EXPECT_EQ(window.Done(), "1a");
  EXPECT_TRUE(window.isVisible());
  EXPECT_GT(window.Paints(), paints);
  EXPECT_GT(ticks, 0);

  window.ClickAndType();
  QCoreApplication::processEvents();
  EXPECT_EQ(window.Done(), "0aa");
}

/// What presses Enter in the message that is shown, or nothing when that is no message.
void PressEnter() {
  if (QWidget* box = QApplication::activeModalWidget()) QTest::keyClick(box, Qt::Key_Return);
}

TEST(QtDialogTest, EnterPressesThePresetButtonAndTheTimeLimitTheLast) {
  using platform::Answer;
  using platform::Buttons;
  QtDialog dialog;
  const std::tuple<Buttons, Answer, Answer> cases[] = {
      {Buttons::kOk, Answer::kOk, Answer::kOk},
      {Buttons::kOkCancel, Answer::kOk, Answer::kOk},
      {Buttons::kOkCancel, Answer::kCancel, Answer::kCancel}};
  for (const auto& [buttons, preset, answer] : cases) {
    QTimer::singleShot(50, PressEnter);
    EXPECT_EQ(dialog.Ask("title", "text", {buttons, preset, 0}), answer);
  }
  QElapsedTimer clock;
  clock.start();
  EXPECT_EQ(dialog.Ask("title", "text", {Buttons::kOkCancel, Answer::kOk, 1}), Answer::kCancel);
  EXPECT_EQ(dialog.Ask("title", "text", {Buttons::kOk, Answer::kOk, 1}), Answer::kOk);
  EXPECT_GE(clock.elapsed(), 1900);
}

TEST(QtDialogTest, NoticesGoToTheFaceElseToStandardError) {
  QtDialog dialog;
  std::string shown;
  dialog.ShowNoticesBy([&shown](const std::string& sentence) { shown = sentence; });
  testing::internal::CaptureStderr();
  dialog.Notify("first");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(shown, "first");
  dialog.ShowNoticesBy({});
  testing::internal::CaptureStderr();
  dialog.Notify("two\nlines");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "kestrune: two\\nlines\n");
}

}  // namespace
}  // namespace kestrune::qt
