#include <cstdlib>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

#include "journey/journey.h"

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QCommandLineParser options;
  const QCommandLineOption panel_program(u"panel-program"_s, u"The virtual panel."_s, u"FILE"_s);
  const QCommandLineOption samples(u"samples"_s, u"The sample files."_s, u"FOLDER"_s);
  const QCommandLineOption pictures(u"pictures"_s, u"Where the pictures go."_s, u"FOLDER"_s);
  options.addOptions({panel_program, samples, pictures});
  options.addHelpOption();
  options.process(application);
  if (!QDir().mkpath(options.value(pictures))) qFatal("cannot make the folder of the pictures");
  Journey journey(options.value(panel_program), options.value(samples), options.value(pictures));
  return journey.Run() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
