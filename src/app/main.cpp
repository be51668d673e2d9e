#include <QApplication>

#include "app/frmMain.h"

int main(int /*argc*/, char** argv) {
  int count = 1;  // the program's name alone: no command line is read
  QApplication application(count, argv);
  QApplication::setApplicationName(QStringLiteral("brivon"));
  QApplication::setApplicationDisplayName(QStringLiteral("Brivon"));

  frmMain window;
  window.show();
  return QApplication::exec();
}
