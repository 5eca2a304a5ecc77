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
/// the menu; it is filled anew each time, with a mnemonic for each item.
class ToolButton : public QToolButton {
 public:
  ToolButton(controls::ToolKey& key, const forms::Form& form, face::Context& context,
             QWidget* parent);

  void Redraw();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void FillMenu();

  controls::ToolKey& key_;
  const forms::Form& form_;
  face::Context& context_;
  std::vector<controls::ToolKey*> items_;
};

}  // namespace kestrune::qt
