#include <gtest/gtest.h>

#include <QApplication>

#include "ui/qt/accessible.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication::setStyle("fusion");
  QApplication application(argc, argv);
  kestrune::qt::InstallAccessibility();
  return RUN_ALL_TESTS();
}
