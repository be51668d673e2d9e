#include <QApplication>

#include "app/frmMain.h"

using namespace Qt::StringLiterals;

int main(int /*argc*/, char** argv) {
  int count = 1;  // the program's name alone: no command line is read
  QApplication application(count, argv);
  // No display name: the toolkit would append it to the caption of every window.
  QApplication::setApplicationName(u"brivon"_s);

  frmMain window;
  window.show();
  return QApplication::exec();
}
