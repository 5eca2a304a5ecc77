#include "ui/qt/store_notice.h"

#include "ui/qt/face_context.h"
#include "ui/qt/input_watcher.h"

namespace kestrune::qt {

namespace {

// With the blank space around the label there is room for two lines.
constexpr int kRoomAbove = 60;
constexpr int kRoomBelow = 90;

}  // namespace

StoreNotice::StoreNotice(const QString& sentence, controls::Control& edge, FaceContext& context,
                         QWidget* window)
    : LabelWidget(window) {
  controls::Rect bounds = edge.Bounds();
  bounds.top -= kRoomAbove;
  bounds.height += kRoomAbove + kRoomBelow;
  setGeometry(context.TheScale().ToPixels(bounds));
  SetCaption(sentence);
  setToolTip(sentence);
  setAccessibleName(sentence);
  setAutoFillBackground(true);
  setFocusPolicy(Qt::TabFocus);
  new InputWatcher(edge, context, this);
  show();
}

}  // namespace kestrune::qt
