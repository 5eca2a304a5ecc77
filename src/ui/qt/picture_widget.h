#pragma once

#include <QPixmap>
#include <QWidget>

namespace kestrune::qt {

/// A picture as large as its place allows, in its own proportions, sharp on every screen. A file
/// that can't be read leaves it empty.
class PictureWidget : public QWidget {
 public:
  explicit PictureWidget(QWidget* parent) : QWidget(parent) {}

  /// The file's path on this machine; empty for none.
  void SetFile(const QString& path);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Load();

  QString path_;
  QPixmap pixmap_;  ///< for `loaded_size_` device pixels
  QSize loaded_size_;
};

}  // namespace kestrune::qt
