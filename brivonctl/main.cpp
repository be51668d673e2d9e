// The program's start.

#include <string>
#include <vector>

#include <QCoreApplication>

#include "base/shell.h"
#include "brivonctl/program.h"
#include "brivonctl/start_up.h"

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
  BrivonCtl::PrepareProcess();
  int count = 1;  // the program's name alone: the toolkit has no say in the command line
  QCoreApplication application(count, argv);
  QCoreApplication::setApplicationName(u"brivonctl"_s);
  const std::vector<std::string> texts = Brivon1::CommandLineWords(argc, argv);
  std::vector<const char*> words;
  words.reserve(texts.size());
  for (const std::string& text : texts) words.push_back(text.c_str());
  return BrivonCtl::RunProgram(static_cast<int>(words.size()), words.data());
}
