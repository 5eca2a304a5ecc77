#pragma once

#include <QToolButton>
#include <vector>

#include "controls/controls.h"

namespace kestrune::forms {
class Form;
}

namespace kestrune::face {
class Context;
}

namespace kestrune::qt {

/// A key of the toolbar, with the keys that stand in it as a menu. The arrow or the Down key opens
/// the menu; it is filled anew each time, with a mnemonic for each item. A bar below it marks the
/// key of the page that is shown.
class ToolButton : public QToolButton {
 public:
  ToolButton(controls::ToolKey& key, const forms::Form& form, face::Context& context,
             QWidget* parent);

  void Redraw();
  bool LeadsToShownPage() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void FollowPages();
  void FillMenu();

  controls::ToolKey& key_;
  const forms::Form& form_;
  face::Context& context_;
  std::vector<controls::ToolKey*> items_;
  std::vector<const controls::Control*> pages_;  ///< to which it or one of its items leads
  std::vector<controls::Subscription> subscriptions_;
};

}  // namespace kestrune::qt
