#include "ui/qt/face.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

#include "ui/forms/main_form.h"
#include "ui/qt/store_notice.h"

// Resources of a static library are registered by name, from outside of any namespace.
static void RegisterIcons() { Q_INIT_RESOURCE(icons); }

namespace kestrune::qt {

namespace {

controls::Control& WindowOf(const forms::Form& form) { return *form.Controls().front(); }

}  // namespace

Face::Face(forms::Program& program, platform::FilesApi& files, StoreFailure store_failure)
    : program_(program),
      store_failure_(std::move(store_failure)),
      context_(Scale::ForFont(QApplication::font()), files, [this] { AfterAct(); }),
      timers_(program.Timers(), [this] { AfterAct(); }) {
  RegisterIcons();
  // Nothing in the window waits for it.
  QTimer::singleShot(0, qApp, [] { QApplication::setWindowIcon(QIcon(":/icons/kestrune.svg")); });
  QApplication::setQuitOnLastWindowClosed(false);
  main_view_ = std::make_unique<FormView>(program_.Main(), context_, nullptr);
  views_[&program_.Main()] = main_view_.get();
  main_view_->FollowWindow();
  for (forms::Form* form : program_.Forms()) {
    if (form == &program_.Main()) continue;
    controls::Control& window = WindowOf(*form);
    if (window.Visible()) ShowForm(*form, main_view_.get());
    subscriptions_.push_back(window.Observe([this, form, &window] {
      if (window.Visible()) ShowForm(*form, main_view_.get());
    }));
  }
  AfterAct();
}

Face::~Face() = default;

FormView* Face::ViewOf(const forms::Form& form) const {
  const auto found = views_.find(&form);
  return found == views_.end() ? nullptr : found->second;
}

void Face::ShowForm(forms::Form& form, FormView* owner) {
  if (ViewOf(form) != nullptr) return;
  auto* view = new FormView(form, context_, owner);
  views_[&form] = view;
  view->FollowWindow();
}

void Face::AfterAct() {
  if (program_.Ended()) {
    QCoreApplication::quit();
    return;
  }
  if (store_notice_ != nullptr || !store_failure_) return;
  if (const std::optional<std::string> failure = store_failure_()) {
    store_notice_ = new StoreNotice(QString::fromStdString(*failure),
                                    program_.Main().Get<controls::Label>("main.lower-panel-edge"),
                                    context_, main_view_.get());
  }
}

}  // namespace kestrune::qt
