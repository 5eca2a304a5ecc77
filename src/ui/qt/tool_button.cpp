#include "ui/qt/tool_button.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <algorithm>

#include "ui/face/captions.h"
#include "ui/face/context.h"
#include "ui/forms/form.h"
#include "ui/forms/pages.h"
#include "ui/qt/face_style.h"
#include "ui/qt/to_qt.h"

namespace kestrune::qt {

namespace {

constexpr int kIconPixels = 24;

std::vector<controls::ToolKey*> KeysIn(const forms::Form& form, const controls::Control& parent) {
  std::vector<controls::ToolKey*> keys;
  for (const auto& control : form.Controls()) {
    if (control->Parent() != &parent) continue;
    if (auto* key = dynamic_cast<controls::ToolKey*>(control.get())) keys.push_back(key);
  }
  return keys;
}

QIcon IconOf(const controls::Control& key) {
  const std::string& id = key.Id();
  const QString path = QStringLiteral(":/icons/%1.svg").arg(ToQt(id.substr(id.rfind('.') + 1)));
  return QIcon(path);
}

}  // namespace

ToolButton::ToolButton(controls::ToolKey& key, const forms::Form& form, face::Context& context,
                       QWidget* parent)
    : QToolButton(parent), key_(key), form_(form), context_(context), items_(KeysIn(form, key)) {
  setAutoRaise(true);
  setFocusPolicy(Qt::StrongFocus);
  setIcon(IconOf(key));
  setIconSize(QSize(kIconPixels, kIconPixels));
  connect(this, &QToolButton::clicked, this, [this] { context_.Press(key_); });
  FollowPages();
  if (items_.empty()) return;
  auto* menu = new QMenu(this);
  connect(menu, &QMenu::aboutToShow, this, [this] { FillMenu(); });
  setMenu(menu);
  setPopupMode(MenuButtonPopup);
}

void ToolButton::FollowPages() {
  for (const forms::PageRow& row : forms::kPages) {
    const controls::Control* key = form_.Find(row.key);
    controls::Control* page = form_.Find(row.id);
    if (page == nullptr || key == nullptr || (key != &key_ && key->Parent() != &key_)) continue;
    pages_.push_back(page);
    subscriptions_.push_back(page->Observe([this] { update(); }));
  }
}

bool ToolButton::LeadsToShownPage() const {
  return std::any_of(pages_.begin(), pages_.end(),
                     [](const controls::Control* page) { return page->Visible(); });
}

void ToolButton::paintEvent(QPaintEvent* event) {
  QToolButton::paintEvent(event);
  if (!LeadsToShownPage()) return;
  constexpr int kBarHeight = 3;
  QPainter(this).fillRect(rect().adjusted(0, height() - kBarHeight, 0, 0),
                          FaceStyle::FocusColour(palette()));
}

void ToolButton::FillMenu() {
  menu()->clear();
  std::vector<std::string> captions;
  for (const controls::ToolKey* item : items_) captions.push_back(face::DrawnCaption(form_, *item));
  captions = face::WithMnemonics(captions);
  for (std::size_t i = 0; i < items_.size(); ++i) {
    controls::ToolKey* item = items_[i];
    QAction* action = menu()->addAction(ToQt(captions[i]));
    action->setObjectName(ToQt(item->Id()));
    action->setEnabled(item->Enabled());
    action->setVisible(item->Visible());
    connect(action, &QAction::triggered, this, [this, item] { context_.Press(*item); });
  }
}

void ToolButton::Redraw() {
  setText(ToQt(face::CaptionWithMnemonic(form_, key_)));
  const bool has_room_below = height() >= kIconPixels + fontMetrics().height();
  setToolButtonStyle(has_room_below ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonTextBesideIcon);
}

void ToolButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Down && menu() != nullptr) {
    showMenu();
  } else {
    QToolButton::keyPressEvent(event);
  }
}

}  // namespace kestrune::qt
