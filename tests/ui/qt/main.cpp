#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include "ui/qt/accessible.h"

namespace {

/// A screen on which nothing is seen, as large as those of the driver's years.
QByteArray OffscreenPlatform(const QTemporaryDir& folder) {
  QFile file(folder.filePath("screen.json"));
  if (file.open(QIODevice::WriteOnly)) {
    file.write(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1024, "height": 768,
                   "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
  }
  return "offscreen:configfile=" + file.fileName().toLocal8Bit();
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir folder;
  qputenv("QT_QPA_PLATFORM", OffscreenPlatform(folder));
  QApplication::setStyle("fusion");
  QApplication application(argc, argv);
  kestrune::qt::InstallAccessibility();
  return RUN_ALL_TESTS();
}
