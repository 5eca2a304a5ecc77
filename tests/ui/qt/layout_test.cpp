// Whether the layout leaves the room that texts of other languages need.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTemporaryDir>
#include <memory>

#include "platform/portable/portable_machine.h"
#include "ui/face/printed_dialog.h"
#include "ui/face/scale.h"
#include "ui/forms/main_form.h"
#include "ui/forms/program.h"
#include "ui/qt/face_style.h"
#include "ui/qt/to_qt.h"

namespace kestrune::qt {
namespace {

using forms::ControlRow;
using forms::Kind;

/// A started program, whose captions are measured with the font that the layout is made for.
class LayoutTest : public testing::Test {
 protected:
  LayoutTest() {
    QFont font = QApplication::font();
    font.setPixelSize(12);
    font_ = font;
    bold_ = font;
    bold_.setBold(true);
  }

  void SetUp() override {
    auto opened = platform::portable::PortableMachines().Open(
        {.store = folder_.filePath("layout.store").toStdString(), .machine = "winxp-geforce7800"});
    ASSERT_TRUE(opened);
    machine_ = std::move(opened).Value();
    program_ = std::make_unique<forms::Program>(machine_->ServicesFor(dialog_));
    ASSERT_TRUE(program_->Start(""));
  }

  /// The pixels that a row leaves for its caption, of all lines together; 0 for a kind without one.
  int RoomOf(const ControlRow& row) {
    const QSize size = ToQt(scale_.ToPixels(row.bounds)).size();
    QStyleOptionButton option;
    option.rect = QRect(QPoint(), size);
    option.fontMetrics = QFontMetrics(font_);
    const int lines = std::max(1, size.height() / QFontMetrics(font_).lineSpacing());
    const auto contents = [&](QStyle::SubElement element) {
      return style_.subElementRect(element, &option, nullptr).width() * lines;
    };
    switch (row.kind) {
      case Kind::kCheck:
        return contents(QStyle::SE_CheckBoxContents);
      case Kind::kOption:
        return contents(QStyle::SE_RadioButtonContents);
      case Kind::kButton:
        return contents(QStyle::SE_PushButtonContents);
      case Kind::kLabel:
      case Kind::kHeading:
      case Kind::kLink:
      case Kind::kEdge:
        return size.width() * lines;
      case Kind::kFrame:
        return size.width() - 16;
      default:
        return 0;
    }
  }
  int WidthOf(const ControlRow& row, const std::string& caption) const {
    return QFontMetrics(row.kind == Kind::kHeading ? bold_ : font_)
        .horizontalAdvance(ToQt(caption));
  }
  template <typename Check>
  void ForEachRow(Check check) {
    for (const forms::Form* form : program_->Forms()) {
      const std::string& id = form->TheWindow().Id();
      // What stands here is in English whatever the language.
      if (id == "help" || id == "intro") continue;
      for (std::size_t i = 0; i < form->Rows().size(); ++i) {
        const ControlRow& row = form->Rows()[i];
        // An option that is hidden stands for what is chosen elsewhere; no window shows it.
        if (row.visible || row.kind != Kind::kOption) check(row, *form->Controls()[i]);
      }
    }
  }

  QTemporaryDir folder_;
  face::PrintedDialog dialog_;
  std::unique_ptr<platform::Machine> machine_;
  std::unique_ptr<forms::Program> program_;
  const face::Scale scale_{1.0 / 15};
  FaceStyle style_;
  QFont font_;
  QFont bold_;
};

TEST_F(LayoutTest, EnglishCaptionsHaveHalfAsMuchRoomAgain) {
  ForEachRow([this](const ControlRow& row, const controls::Control& control) {
    if (const int room = RoomOf(row)) {
      EXPECT_GE(room * 2, WidthOf(row, control.Caption()) * 3)
          << row.id << ": " << room << " for " << WidthOf(row, control.Caption());
    }
  });
}

TEST_F(LayoutTest, NoTextTouchesTheNextColumn) {
  static constexpr int kGap = 90;
  ForEachRow([this](const ControlRow& left, const controls::Control& left_control) {
    if (RoomOf(left) == 0 || left.kind == Kind::kFrame) return;
    ForEachRow([&](const ControlRow& right, const controls::Control& right_control) {
      const bool are_beside = left_control.Parent() == right_control.Parent() &&
                              left.bounds.top < right.bounds.top + right.bounds.height &&
                              right.bounds.top < left.bounds.top + left.bounds.height &&
                              left.bounds.left < right.bounds.left;
      if (!are_beside) return;
      EXPECT_GE(right.bounds.left - left.bounds.left - left.bounds.width, kGap)
          << left.id << " touches " << right.id;
    });
  });
}

}  // namespace
}  // namespace kestrune::qt
