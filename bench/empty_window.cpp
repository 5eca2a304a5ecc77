// Shows an empty main window, or one with nothing but its argument's words in it, and ends when it
// has been painted.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>

#include "first_paint.h"

int main(int argument_count, char** arguments) {
  const QApplication application(argument_count, arguments);
  QMainWindow window;
  window.resize(545, 375);
  if (argument_count > 1) window.setCentralWidget(new QLabel(arguments[1]));
  const kestrune::bench::EndAfterFirstPaint end(window);
  window.show();
  return QApplication::exec();
}
