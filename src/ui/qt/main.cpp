#include <QApplication>
#include <QMessageBox>
#include <QPixmap>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "platform/plain_text.h"
#include "platform/portable/desktop_entry.h"
#include "platform/portable/portable_machine.h"
#include "platform/portable/user_folders.h"
#include "platform/services.h"
#include "platform/thrown.h"
#include "platform/tracing.h"
#include "ui/face/change_log.h"
#include "ui/face/command_line.h"
#include "ui/face/printed_dialog.h"
#include "ui/forms/main_form.h"
#include "ui/forms/program.h"
#include "ui/forms/windows.h"
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

/// What the toolkit is told: nothing that stands on the command line, since a path may look like
/// one of its options. A profile is applied without a window, so it needs no display.
std::vector<std::string> ToolkitArguments(const char* own_name, bool has_profile) {
  const auto is_set = [](const char* name) { return !qEnvironmentVariableIsEmpty(name); };
  const bool has_display =
      is_set("DISPLAY") || is_set("WAYLAND_DISPLAY") || is_set("QT_QPA_PLATFORM");
  if (!has_profile || has_display) return {own_name};
  return {own_name, "-platform", "offscreen"};
}

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

void AssociateProfiles() {
  platform::portable::AssociateProfiles(platform::portable::ExecutablePath());
}

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
  forms::Program program({registry, services.display, services.version, services.system,
                          services.shell, services.files, services.dialog});
  const bool done = program.Start(profile_path);
  if (program.Ended()) return done ? 0 : kFailed;
  const qt::Face face(program, services.files,
                      {.store_failure = [&machine] { return machine.FirstFailure(); },
                       .machine_title = machine.Title(),
                       .changes = &changes,
                       .dialog = has_person ? &shown : nullptr});
  if (program.IsFirstStart() && HasPerson()) program.TheWindows().Open("intro");
  TakeScreenshotIfAsked(*face.ViewOf(program.Main()));
  // Nothing in the window waits for it.
  if (has_person) QTimer::singleShot(0, qApp, AssociateProfiles);
  return QApplication::exec();
}

}  // namespace

int main(int argument_count, char** arguments) {
  if (const auto answer = face::PrintedAnswer(argument_count, arguments)) {
    std::fputs(answer->c_str(), stdout);
    return 0;
  }
  const std::string profile_path = face::ProfilePath(argument_count, arguments);
  std::vector<std::string> told = ToolkitArguments(arguments[0], !profile_path.empty());
  std::vector<char*> words;
  words.reserve(told.size() + 1);
  for (std::string& word : told) words.push_back(word.data());
  int word_count = static_cast<int>(words.size());
  words.push_back(nullptr);
  QApplication::setStyle(new qt::FaceStyle);
  QApplication::setApplicationName("kestrune");
  QGuiApplication::setDesktopFileName("kestrune");
  const QtMessageHandler usual = qInstallMessageHandler(EndWithoutDisplay);
  const Application application(word_count, words.data());
  qInstallMessageHandler(usual);
  try {
    return Run(profile_path);
  } catch (...) {
    return Fail(platform::ThrownSentence());
  }
}
