#include "ui/qt/store_notice.h"

#include "ui/qt/face_context.h"
#include "ui/qt/input_watcher.h"

namespace kestrune::qt {

StoreNotice::StoreNotice(const QString& sentence, controls::Control& edge, FaceContext& context,
                         QWidget* window)
    : LabelWidget(window) {
  setGeometry(context.TheScale().ToPixels(edge.Bounds()));
  SetHeading();
  SetCaption(sentence);
  setToolTip(sentence);
  setAccessibleName(sentence);
  setAutoFillBackground(true);
  setFocusPolicy(Qt::TabFocus);
  new InputWatcher(edge, context, this);
  show();
}

}  // namespace kestrune::qt
