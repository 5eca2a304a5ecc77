#include "picture_file.h"

#include <QDir>
#include <QImageWriter>

namespace kestrune::pictures {

QString WritePicture(const QImage& image, const QString& folder, const QString& name) {
  constexpr int kQuality = 92;
  if (!QDir().mkpath(folder)) return QStringLiteral("cannot make the folder %1").arg(folder);
  const QString path = QDir(folder).filePath(name + QStringLiteral(".jpg"));
  QImageWriter writer(path, "jpeg");
  writer.setQuality(kQuality);
  writer.setOptimizedWrite(true);
  if (writer.write(image)) return {};
  return QStringLiteral("cannot write %1: %2").arg(path, writer.errorString());
}

}  // namespace kestrune::pictures
