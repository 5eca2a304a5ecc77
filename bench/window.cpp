// Starts the program with its window, as kestrune does, and ends when it has been painted.
#include <QApplication>

#include "first_paint.h"
#include "platform/portable/portable_machine.h"
#include "platform/services.h"
#include "ui/forms/main_form.h"
#include "ui/forms/program.h"
#include "ui/qt/face.h"
#include "ui/qt/face_style.h"
#include "ui/qt/qt_dialog.h"

using namespace kestrune;

int main(int argument_count, char** arguments) {
  QApplication::setStyle(new qt::FaceStyle);
  QApplication::setApplicationName("kestrune");
  QGuiApplication::setDesktopFileName("kestrune");
  const QApplication application(argument_count, arguments);
  platform::portable::PortableMachines machines;
  const auto opened = machines.Open({});
  if (!opened) return 3;
  platform::Machine& machine = *opened.Value();
  qt::QtDialog dialog;
  const platform::Services services = machine.ServicesFor(dialog);
  forms::Program program(services);
  if (!program.Start("")) return 3;
  const qt::Face face(program, services.files,
                      {.store_failure = [&machine] { return machine.FirstFailure(); }});
  const bench::EndAfterFirstPaint end(*face.ViewOf(program.Main())->Content());
  return QApplication::exec();
}
