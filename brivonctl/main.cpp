#include <QCoreApplication>

#include "brivonctl/program.h"

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
  int count = 1;  // the program's name alone: the toolkit has no say in the command line
  QCoreApplication application(count, argv);
  QCoreApplication::setApplicationName(u"brivonctl"_s);
  return BrivonCtl::RunProgram(argc, argv);
}
