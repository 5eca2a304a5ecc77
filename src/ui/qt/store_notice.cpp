#include "ui/qt/store_notice.h"

#include "ui/face/context.h"
#include "ui/face/failure_notice.h"
#include "ui/qt/input_watcher.h"
#include "ui/qt/to_qt.h"

namespace kestrune::qt {

StoreNotice::StoreNotice(const QString& sentence, controls::Control& edge, face::Context& context,
                         QWidget* window)
    : LabelWidget(window) {
  setGeometry(ToQt(context.TheScale().ToPixels(face::NoticeBounds(edge.Bounds()))));
  SetCaption(sentence, sentence);
  setToolTip(sentence);
  setAccessibleName(sentence);
  setAutoFillBackground(true);
  setFocusPolicy(Qt::TabFocus);
  new InputWatcher(edge, context, this);
  show();
}

}  // namespace kestrune::qt
