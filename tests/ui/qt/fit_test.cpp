// Whether every language's texts fit where they are shown, at 100 % and in a font of 12 pixels.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDir>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStyleOptionFrame>
#include <QStyleOptionToolButton>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <set>

#include "lang/language.h"
#include "platform/portable/portable_machine.h"
#include "platform/windowless_dialog.h"
#include "ui/face/captions.h"
#include "ui/face/context.h"
#include "ui/forms/main_form.h"
#include "ui/forms/program.h"
#include "ui/forms/windows.h"
#include "ui/qt/combo_widget.h"
#include "ui/qt/label_widget.h"
#include "ui/qt/list_widget.h"
#include "ui/qt/to_qt.h"
#include "ui/qt/tool_button.h"
#include "ui/qt/widget_maker.h"
#include "ui/qt/wrapped.h"

namespace kestrune::qt {
namespace {

/// How many texts of a language may end in an ellipsis.
constexpr std::size_t kMostElided = 4;
/// The width of the smallest screen, and what a title bar has beside the title.
constexpr int kScreenWidth = 800;
constexpr int kTitleBarButtons = 120;

/// Lists of what there is on the computer, which is in no language.
const std::set<std::string_view> kNames = {
    "associated-application.drives", "associated-application.folders",
    "associated-application.files", "info.processes.processes"};

/// Texts that aren't whole: a caption by its control, with whatever value behind it; an item by
/// its control and itself.
using CutTexts = std::map<std::string, std::string>;

struct Cuts {
  CutTexts forbidden;  ///< of buttons, menus, pages and windows
  CutTexts elided;

  void AddItem(const controls::Control& control, const QString& item) {
    elided.emplace(control.Id() + " " + item.toStdString(), item.toStdString());
  }
};

bool IsSame(const QString& shown, const std::string& caption) {
  return IsWhole(QString(shown).replace("&&", "&"), ToQt(caption));
}

/// The widgets of a whole form, those that are hidden too.
class FormWidgets {
 public:
  FormWidgets(const forms::Form& form, face::Context& context) : form_(form) {
    QFont font = root_.font();
    font.setPixelSize(12);
    root_.setFont(font);
    WidgetMaker maker(form, context, subscriptions_);
    for (std::size_t i = 0; i < form.Rows().size(); ++i) {
      controls::Control* control = form.Controls()[i].get();
      if (control->Parent() == nullptr || IsMenuItem(*control) || IsNeverShown(form.Rows()[i])) {
        continue;
      }
      const auto parent = widgets_.find(control->Parent());
      widgets_[control] = maker.Make(*control, parent == widgets_.end() ? &root_ : parent->second);
    }
  }
  ~FormWidgets() { subscriptions_.clear(); }
  FormWidgets(const FormWidgets&) = delete;
  FormWidgets& operator=(const FormWidgets&) = delete;

  void Look(Cuts& cuts) const {
    for (const auto& [control, widget] : widgets_) {
      if (widget == nullptr) continue;
      if (!IsCaptionWhole(*control, *widget)) {
        const bool must_fit = qobject_cast<QPushButton*>(widget) != nullptr ||
                              qobject_cast<QToolButton*>(widget) != nullptr ||
                              forms::IsPageId(control->Id());
        (must_fit ? cuts.forbidden : cuts.elided)
            .emplace(control->Id(), face::DrawnCaption(form_, *control));
      }
      LookAtItems(*control, *widget, cuts);
    }
    const controls::Window& window = form_.TheWindow();
    QFont bold = root_.font();
    bold.setBold(true);
    const int title = QFontMetrics(bold).horizontalAdvance(ToQt(window.Caption()));
    if (title + kTitleBarButtons > window.Bounds().width / 15) {
      cuts.forbidden.emplace(window.Id(), window.Caption());
    }
  }

 private:
  /// An option that is hidden stands for what is chosen elsewhere.
  static bool IsNeverShown(const forms::ControlRow& row) {
    return row.kind == forms::Kind::kOption && !row.visible;
  }
  static bool IsMenuItem(const controls::Control& control) {
    return dynamic_cast<const controls::ToolKey*>(&control) != nullptr &&
           dynamic_cast<const controls::ToolKey*>(control.Parent()) != nullptr;
  }

  bool IsCaptionWhole(const controls::Control& control, QWidget& widget) const {
    const std::string caption = face::DrawnCaption(form_, control);
    if (const auto* label = dynamic_cast<LabelWidget*>(&widget)) return !label->IsCut();
    if (const auto* key = qobject_cast<QToolButton*>(&widget)) return IsKeyWhole(*key, caption);
    if (const auto* button = qobject_cast<QAbstractButton*>(&widget)) {
      return IsSame(button->text(), caption);
    }
    if (const auto* box = qobject_cast<QGroupBox*>(&widget)) return IsSame(box->title(), caption);
    return true;
  }

  static bool IsKeyWhole(const QToolButton& key, const std::string& caption) {
    QStyleOptionToolButton option;
    option.initFrom(&key);
    if (key.menu() != nullptr) option.features = QStyleOptionToolButton::MenuButtonPopup;
    option.subControls = QStyle::SC_ToolButton;
    const int room =
        key.style()
            ->subControlRect(QStyle::CC_ToolButton, &option, QStyle::SC_ToolButton, &key)
            .width() -
        2 * key.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &key);
    return key.fontMetrics().horizontalAdvance(ToQt(caption)) <= room;
  }

  static void LookAtItems(const controls::Control& control, QWidget& widget, Cuts& cuts) {
    if (const auto* combo = dynamic_cast<ComboWidget*>(&widget)) {
      QStringList texts{combo->ShownText()};
      for (int i = 0; i < combo->count(); ++i) texts += combo->itemText(i);
      for (const QString& text : texts) {
        if (!combo->Fits(text)) cuts.AddItem(control, text);
      }
    } else if (const auto* box = qobject_cast<QLineEdit*>(&widget)) {
      constexpr int kInnerMargin = 2;
      QStyleOptionFrame option;
      option.initFrom(box);
      const int room =
          box->style()->subElementRect(QStyle::SE_LineEditContents, &option, box).width() -
          2 * kInnerMargin;
      if (box->fontMetrics().horizontalAdvance(box->text()) > room) {
        cuts.AddItem(control, box->text());
      }
    } else if (const auto* list = dynamic_cast<ListWidget*>(&widget)) {
      if (kNames.contains(control.Id())) return;
      const int room = list->width() - 2 * list->frameWidth() -
                       list->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
      for (int i = 0; i < list->count(); ++i) {
        const int margins = 2 * (list->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
        const QString text = list->item(i)->text();
        if (list->fontMetrics().horizontalAdvance(text) + margins > room) {
          cuts.AddItem(control, text);
        }
      }
    } else if (const auto* key = qobject_cast<QToolButton*>(&widget)) {
      if (key->menu() == nullptr) return;
      Q_EMIT key->menu()->aboutToShow();
      if (key->menu()->sizeHint().width() > kScreenWidth) {
        cuts.forbidden.emplace(control.Id(), "its menu");
      }
    }
  }

  const forms::Form& form_;
  QWidget root_;
  std::vector<controls::Subscription> subscriptions_;
  std::map<const controls::Control*, QWidget*> widgets_;
};

/// The described machines, which between them offer every item that is offered anywhere.
std::vector<std::string> Machines() {
  constexpr std::string_view kOwnComputer = "host";
  std::vector<std::string> names;
  for (const auto& each :
       platform::portable::PortableMachines().List({.program_folder = KESTRUNE_DATA_FOLDER})) {
    if (each.name != kOwnComputer) names.push_back(each.name);
  }
  return names;
}

/// A program in a language on a machine, of which nothing is kept, with all its widgets.
class ShownProgram {
 public:
  ShownProgram(const std::string& machine, const std::string& language) {
    auto opened = platform::portable::PortableMachines().Open(
        {.store = folder_.filePath("fit.store").toStdString(),
         .machine = machine,
         .program_folder = KESTRUNE_DATA_FOLDER,
         .dry_run = true});
    if (!opened) throw std::runtime_error(opened.Reason());
    machine_ = std::move(opened).Value();
    const platform::Services services = machine_->ServicesFor(dialog_);
    core::basRegistry registry(services.registry);
    core::OwnOptions(registry).Write(core::kLanguageValue, language);
    lang::Language chosen(registry, services.files, services.dialog);
    chosen.LoadLanguage();
    texts_ = std::move(chosen.LangText);
    program_ = std::make_unique<forms::Program>(services);
    if (!program_->Start("")) throw std::runtime_error("the program doesn't start");
    context_ = std::make_unique<face::Context>(face::Scale(1.0 / 15), services.files,
                                               program_->Gate(), [] {});
    OpenAll();
    for (const forms::Form* form : program_->Forms()) {
      widgets_.push_back(std::make_unique<FormWidgets>(*form, *context_));
    }
  }

  const lang::LangTable& Texts() const { return texts_; }

  /// Looks at everything, for each position of each slider.
  void Look(Cuts& cuts) {
    LookOnce(cuts);
    UseWindows();
    LookOnce(cuts);
    for (const forms::Form* form : program_->Forms()) {
      for (const auto& control : form->Controls()) {
        auto* slider = dynamic_cast<controls::Slider*>(control.get());
        if (slider == nullptr || slider->IsScrollBar()) continue;
        const int step = std::max(1, (slider->Maximum() - slider->Minimum()) / 10);
        for (int value = slider->Minimum(); value <= slider->Maximum(); value += step) {
          (void)slider->Use(value);
          LookOnce(cuts);
        }
      }
    }
  }

 private:
  void OpenAll() {
    for (int page = 0; page < forms::PageCount(); ++page) program_->GoToPage(page);
    for (const forms::Form* form : program_->Forms()) {
      if (form != &program_->Main()) program_->TheWindows().Load(form->TheWindow());
    }
  }
  /// What shows further texts: a profile in the list, an entry in the registry editor.
  void UseWindows() {
    const auto& manager = program_->FormOf("profile-manager");
    manager.Get<controls::TextBox>("profile-manager.profile-name").ShowText("Fit");
    manager.Get<controls::Button>("profile-manager.save").Click();
    const auto& editor = program_->FormOf("registry-editor");
    (void)editor.Get<controls::ListBox>("registry-editor.values").Choose(0);
  }
  void LookOnce(Cuts& cuts) const {
    for (const auto& form : widgets_) form->Look(cuts);
  }

  QTemporaryDir folder_;
  platform::WindowlessDialog dialog_;
  std::unique_ptr<platform::Machine> machine_;
  lang::LangTable texts_;
  std::unique_ptr<forms::Program> program_;
  std::unique_ptr<face::Context> context_;
  std::vector<std::unique_ptr<FormWidgets>> widgets_;
};

struct Report {
  int texts = 0;
  std::vector<std::string> as_in_english;
  Cuts cuts;
};

Report ReportOn(const std::string& language, const lang::LangTable& english) {
  Report report;
  for (const std::string& machine : Machines()) {
    ShownProgram program(machine, language);
    program.Look(report.cuts);
    if (report.texts > 0) continue;
    for (int number = 0; number < lang::kTextCount; ++number) {
      const std::string& text = program.Texts()[number];
      if (text.empty()) continue;
      ++report.texts;
      if (text == english[number]) {
        report.as_in_english.push_back(std::to_string(number) + " " + text);
      }
    }
  }
  return report;
}

void Print(const std::string& language, const Report& report) {
  std::printf("%s: %d texts, %zu elided, %zu as in English\n", language.c_str(), report.texts,
              report.cuts.elided.size(), report.as_in_english.size());
  for (const auto& [place, text] : report.cuts.elided) {
    std::printf("  elided: %s: %s\n", place.c_str(), text.c_str());
  }
  if (language == "en") return;
  for (const std::string& text : report.as_in_english) {
    std::printf("  as in English: %s\n", text.c_str());
  }
}

TEST(FitTest, EveryTextOfEveryLanguageIsWhole) {
  const lang::LangTable english = ShownProgram(Machines().front(), "en").Texts();
  const QDir languages(QString(KESTRUNE_DATA_FOLDER) + "/DATA/LANGUAGE");
  for (const QFileInfo& file : languages.entryInfoList({"*.dat"}, QDir::Files, QDir::Name)) {
    const std::string language = file.completeBaseName().toStdString();
    const Report report = ReportOn(language, english);
    Print(language, report);
    for (const auto& [place, text] : report.cuts.forbidden) {
      ADD_FAILURE() << language << ": " << place << " is cut: " << text;
    }
    EXPECT_LE(report.cuts.elided.size(), kMostElided) << language;
  }
}

}  // namespace
}  // namespace kestrune::qt
