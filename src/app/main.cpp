#include <QApplication>

#include "app/frmMain.h"

int main(int /*argc*/, char** argv) {
  int count = 1;  // the program's name alone: no command line is read
  QApplication application(count, argv);
  // No display name: the toolkit would append it to the caption of every window.
  QApplication::setApplicationName(QStringLiteral("brivon"));

  frmMain window;
  window.show();
  return QApplication::exec();
}
