// kestrune_pictures: draws every picture that is installed with the program.
#include <QGuiApplication>
#include <QTextStream>
#include <array>

#include "aa_pictures.h"
#include "help_picture.h"
#include "lod_pictures.h"
#include "panel_pictures.h"

namespace {

struct PictureGroup {
  const char* folder;  // below the output folder
  QString (*write)(const QString& folder);
};

constexpr std::array kGroups{
    PictureGroup{"aa", kestrune::pictures::WriteAaPictures},
    PictureGroup{"cpl", kestrune::pictures::WritePanelPictures},
    PictureGroup{"hs/pic", kestrune::pictures::WriteHelpPicture},
    PictureGroup{"hs/pic", kestrune::pictures::WriteLodPictures},
};

}  // namespace

// Status 0: all written; 1: a picture could not be written; 2: wrong command line.
int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  QTextStream errors(stderr);
  if (arguments.size() != 2) {
    errors << "usage: kestrune_pictures OUTPUT_FOLDER\n";
    return 2;
  }
  for (const PictureGroup& group : kGroups) {
    const QString failure =
        group.write(arguments[1] + QLatin1Char('/') + QLatin1String(group.folder));
    if (!failure.isEmpty()) {
      errors << failure << '\n';
      return 1;
    }
  }
  return 0;
}
