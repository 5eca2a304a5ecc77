#include <QApplication>
#include <QMessageBox>
#include <QPixmap>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "platform/plain_text.h"
#include "platform/portable/portable_machine.h"
#include "platform/services.h"
#include "platform/thrown.h"
#include "platform/tracing.h"
#include "ui/face/change_log.h"
#include "ui/face/command_line.h"
#include "ui/face/printed_dialog.h"
#include "ui/forms/main_form.h"
#include "ui/forms/program.h"
#include "ui/qt/face.h"
#include "ui/qt/face_style.h"
#include "ui/qt/qt_dialog.h"

namespace {

using namespace kestrune;

constexpr int kFailed = 3;

bool HasScreen() {
  const QString platform = QGuiApplication::platformName();
  return platform != "offscreen" && platform != "minimal";
}

/// Whether someone can press a button: not off the screen, and not while a picture is taken.
bool HasPerson() { return HasScreen() && qEnvironmentVariableIsEmpty("KESTRUNE_SCREENSHOT"); }

/// Takes what the toolkit says while it looks for a display. Without one it would abort; all else
/// only leads up to that.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext& /*place*/,
                       const QString& /*text*/) {
  if (type != QtFatalMsg) return;
  std::fputs("kestrune: there is no display that answers; kestrunectl works without one.\n",
             stderr);
  std::_Exit(kFailed);
}

int Fail(const std::string& sentence) {
  std::fprintf(stderr, "kestrune: %s\n", platform::PlainText(sentence).c_str());
  if (HasPerson()) {
    QMessageBox::critical(nullptr, "Kestrune", QString::fromStdString(sentence));
  }
  return kFailed;
}

/// KESTRUNE_SCREENSHOT names a file: once the window has been painted its picture goes there, and
/// the program ends, with status 3 if the file can't be written.
void TakeScreenshotIfAsked(QWidget& window) {
  const QString file = qEnvironmentVariable("KESTRUNE_SCREENSHOT");
  if (file.isEmpty()) return;
  // A timer of 0 runs when the events of the window's appearance have been dealt with.
  QTimer::singleShot(0, &window, [&window, file] {
    QCoreApplication::exit(window.grab().save(file, "PNG") ? 0 : kFailed);
  });
}

/// What a handler throws ends the program with a sentence.
class Application : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (...) {
      exit(Fail(platform::ThrownSentence()));
      return true;
    }
  }
};

int Run(const std::string& profile_path) {
  platform::portable::PortableMachines machines;
  const auto opened = machines.Open({});
  if (!opened) return Fail(opened.Reason());
  platform::Machine& machine = *opened.Value();
  for (const std::string& warning : machine.Warnings()) {
    std::fprintf(stderr, "kestrune: %s\n", platform::PlainText(warning).c_str());
  }
  qt::QtDialog shown;
  face::PrintedDialog printed;
  const bool has_person = HasPerson();
  platform::DialogApi& dialog = has_person ? static_cast<platform::DialogApi&>(shown) : printed;
  const platform::Services services = machine.ServicesFor(dialog);
  face::ChangeLog changes;
  platform::Trace trace(changes.Sink());
  platform::TracingRegistry registry(services.registry, trace);
  forms::Program program({registry, services.display, services.version, services.shell,
                          services.files, services.dialog});
  const bool done = program.Start(profile_path);
  if (program.Ended()) return done ? 0 : kFailed;
  const qt::Face face(program, services.files,
                      {.store_failure = [&machine] { return machine.FirstFailure(); },
                       .machine_title = machine.Title(),
                       .changes = &changes,
                       .dialog = has_person ? &shown : nullptr});
  TakeScreenshotIfAsked(*face.ViewOf(program.Main()));
  return QApplication::exec();
}

}  // namespace

int main(int argument_count, char** arguments) {
  if (const auto answer = face::PrintedAnswer(argument_count, arguments)) {
    std::fputs(answer->c_str(), stdout);
    return 0;
  }
  QApplication::setStyle(new qt::FaceStyle);
  QApplication::setApplicationName("kestrune");
  QGuiApplication::setDesktopFileName("kestrune");
  // The toolkit would take its own options out of a path that happens to look like one.
  int own_count = 1;
  const QtMessageHandler usual = qInstallMessageHandler(EndWithoutDisplay);
  const Application application(own_count, arguments);
  qInstallMessageHandler(usual);
  try {
    return Run(face::ProfilePath(argument_count, arguments));
  } catch (...) {
    return Fail(platform::ThrownSentence());
  }
}
