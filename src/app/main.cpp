#include <QApplication>

#include "app/first_start.h"
#include "app/frmMain.h"
#include "base/program_icon.h"
#include "store/program_folder.h"

using namespace Qt::StringLiterals;

int main(int /*argc*/, char** argv) {
  int count = 1;  // the program's name alone: no command line is read
  QApplication application(count, argv);
  // No display name: the toolkit would append it to the caption of every window.
  QApplication::setApplicationName(u"brivon"_s);
  QApplication::setApplicationVersion(QStringLiteral(BRIVON_VERSION));
  QApplication::setDesktopFileName(u"org.brivon.Brivon"_s);
  QApplication::setWindowIcon(Brivon1::ProgramIcon(u"org.brivon.Brivon"_s));
  const Brivon1::LayOutFailure failure = Brivon1::LayOutProgramFolder();

  frmMain window;
  window.show();
  TellLayOutFailure(&window, failure);
  return QApplication::exec();
}
