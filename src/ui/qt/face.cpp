#include "ui/qt/face.h"

#include <QApplication>
#include <QFontInfo>
#include <QIcon>
#include <QTimer>
#include <chrono>
#include <utility>

#include "ui/forms/main_form.h"
#include "ui/qt/accessible.h"
#include "ui/qt/to_qt.h"

// Resources of a static library are registered by name, from outside of any namespace.
static void RegisterIcons() { Q_INIT_RESOURCE(icons); }

namespace kestrune::qt {

namespace {

constexpr std::string_view kEdge = "main.lower-panel-edge";
constexpr std::chrono::seconds kChangeIsNew(6);

face::Scale ScaleOfDesktop() {
  return face::Scale::ForFontHeight(QFontInfo(QApplication::font()).pixelSize());
}

}  // namespace

Face::Face(forms::Program& program, platform::FilesApi& files, FaceOptions options)
    : program_(program),
      failure_(std::move(options.store_failure)),
      context_(ScaleOfDesktop(), files, program.Gate(), [this] { AfterAct(); }),
      timers_(program.Timers(), [this] { AfterAct(); }),
      changes_(options.changes),
      dialog_(options.dialog) {
  context_.SetMachineTitle(std::move(options.machine_title));
  RegisterIcons();
  InstallAccessibility();
  // Nothing in the window waits for it.
  QTimer::singleShot(0, qApp, [] { QApplication::setWindowIcon(QIcon(":/icons/kestrune.svg")); });
  QApplication::setQuitOnLastWindowClosed(false);
  context_.SetPanelEdge(Edge());
  main_view_ = std::make_unique<FormView>(program_.Main(), context_, nullptr);
  views_[&program_.Main()] = main_view_.get();
  main_view_->FollowWindow();
  change_line_ = new EdgeLine(Edge(), context_, main_view_->Content());
  change_line_->hide();
  for (forms::Form* form : program_.Forms()) {
    if (form != &program_.Main()) ShowWhenVisible(*form);
  }
  TieFocus();
  change_is_new_.setSingleShot(true);
  QObject::connect(&change_is_new_, &QTimer::timeout, change_line_, &QWidget::hide);
  if (!program_.MissingFile().empty()) Notify(face::MissingFileSentence(program_.MissingFile()));
  if (dialog_ != nullptr) {
    dialog_->ShowNoticesBy([this](const std::string& sentence) { NotifyInPassing(sentence); });
  }
  // What start-up changed was no act.
  if (changes_ != nullptr) (void)changes_->Take();
  AfterAct();
}

Face::~Face() {
  program_.Focus() = {};
  if (dialog_ != nullptr) dialog_->ShowNoticesBy({});
}

FormView* Face::ViewOf(const forms::Form& form) const {
  const auto found = views_.find(&form);
  return found == views_.end() ? nullptr : found->second;
}

void Face::ShowWhenVisible(forms::Form& form) {
  controls::Control& window = *form.Controls().front();
  if (window.Visible()) Show(form);
  subscriptions_.push_back(window.Observe([this, &form, &window] {
    if (window.Visible()) Show(form);
  }));
}

void Face::Show(forms::Form& form) {
  if (ViewOf(form) != nullptr) return;
  const auto& window = dynamic_cast<const controls::Window&>(*form.Controls().front());
  auto* view = new FormView(form, context_, OwnerOf(window));
  views_[&form] = view;
  view->FollowWindow();
}

QWidget* Face::OwnerOf(const controls::Window& window) const {
  for (const auto& [form, view] : views_) {
    if (&view->TheWindow() == window.Owner()) return view;
  }
  return main_view_.get();
}

void Face::TieFocus() {
  program_.Focus().where = [this]() -> const controls::Control* {
    for (const auto& [form, view] : views_) {
      const controls::Control* control = view->ControlOf(QApplication::focusWidget());
      if (control != nullptr && control != &view->TheWindow()) return control;
    }
    return nullptr;
  };
  program_.Focus().move_to = [this](const controls::Control& control) {
    for (const auto& [form, view] : views_) {
      QWidget* widget = view->WidgetOf(control);
      if (widget == nullptr) continue;
      view->raise();
      view->activateWindow();
      if (widget != view) widget->setFocus(Qt::OtherFocusReason);
    }
  };
}

void Face::AfterAct() {
  if (program_.Ended()) {
    QCoreApplication::quit();
    return;
  }
  if (const std::optional<std::string> failure = failure_.Next()) Notify(*failure);
  if (changes_ == nullptr) return;
  if (const std::optional<face::ChangeNote> note = changes_->Take()) SayChange(*note);
}

void Face::Notify(const std::string& sentence) {
  lasting_notice_ = (lasting_notice_ + ' ' + ToQt(sentence)).trimmed();
  SayNotice(lasting_notice_);
}

void Face::NotifyInPassing(const std::string& sentence) {
  SayNotice((lasting_notice_ + ' ' + ToQt(sentence)).trimmed());
}

void Face::SayNotice(const QString& text) {
  if (notice_ == nullptr) notice_ = new EdgeNotice(Edge(), context_, main_view_->Content());
  change_line_->hide();
  notice_->Say(text, text);
}

void Face::SayChange(const face::ChangeNote& note) {
  if (notice_ != nullptr) return;
  change_line_->Say(ToQt(note.line), ToQt(note.trace));
  change_is_new_.start(kChangeIsNew);
}

controls::Control& Face::Edge() const { return program_.Main().Get<controls::Label>(kEdge); }

}  // namespace kestrune::qt
