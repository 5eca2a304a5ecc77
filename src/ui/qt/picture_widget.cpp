#include "ui/qt/picture_widget.h"

#include <QImageReader>
#include <QPainter>

#include "ui/qt/focus_mark.h"

namespace kestrune::qt {

void PictureWidget::SetFile(const QString& path) {
  if (path == path_) return;
  path_ = path;
  loaded_size_ = QSize();
  update();
}

void PictureWidget::Load() {
  const QSize device_size = size() * devicePixelRatioF();
  if (device_size == loaded_size_) return;
  loaded_size_ = device_size;
  pixmap_ = QPixmap();
  if (path_.isEmpty()) return;
  QImageReader reader(path_);
  const QSize own_size = reader.size();
  if (own_size.isValid()) {
    reader.setScaledSize(own_size.scaled(device_size, Qt::KeepAspectRatio));
  }
  pixmap_ = QPixmap::fromImage(reader.read());
  pixmap_.setDevicePixelRatio(devicePixelRatioF());
}

void PictureWidget::paintEvent(QPaintEvent*) {
  Load();
  QPainter painter(this);
  if (!pixmap_.isNull()) {
    const QSizeF shown = pixmap_.deviceIndependentSize();
    painter.drawPixmap(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2),
                       pixmap_);
  }
  DrawFocusMark(painter, *this);
}

}  // namespace kestrune::qt
