// Shows a main window with nothing but one label in it, and ends when it has been painted. Without
// a word in it not even a font would be loaded.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>

#include "first_paint.h"

int main(int argument_count, char** arguments) {
  const QApplication application(argument_count, arguments);
  QMainWindow window;
  window.resize(545, 375);
  window.setCentralWidget(new QLabel("Settings"));
  const kestrune::bench::EndAfterFirstPaint end(window);
  window.show();
  return QApplication::exec();
}
