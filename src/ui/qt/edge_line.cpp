#include "ui/qt/edge_line.h"

#include <QAccessible>

#include "ui/face/captions.h"
#include "ui/face/context.h"
#include "ui/face/failure_notice.h"
#include "ui/qt/input_watcher.h"
#include "ui/qt/to_qt.h"

namespace kestrune::qt {

EdgeLine::EdgeLine(controls::Control& edge, face::Context& context, QWidget* window)
    : LabelWidget(window) {
  setGeometry(ToQt(context.TheScale().ToPixels(edge.Bounds())));
  setAutoFillBackground(true);
  new InputWatcher(edge, context, this);
}

void EdgeLine::Say(const QString& text, const QString& tip) {
  SetCaption(text, ToQt(face::WithoutMnemonic(text.toStdString())));
  setToolTip(tip);
  setAccessibleName(text);
  show();
  raise();
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

EdgeNotice::EdgeNotice(controls::Control& edge, face::Context& context, QWidget* window)
    : EdgeLine(edge, context, window) {
  setGeometry(ToQt(context.TheScale().ToPixels(face::NoticeBounds(edge.Bounds()))));
  setFocusPolicy(Qt::TabFocus);
}

}  // namespace kestrune::qt
