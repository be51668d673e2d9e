#include <cstdio>
#include <cstdlib>

#include <QApplication>
#include <QCommandLineParser>

#include "disk/faulty_disk.h"
#include "monkey/monkey.h"
#include "monkey/shrink.h"

using namespace Qt::StringLiterals;

namespace {

QList<Action> Read(const QString& path) {
  const auto actions = ReadActions(path);
  if (!actions) qFatal("cannot read the log");
  return *actions;
}

int Shrink(const QString& path) {
  const QString program = QCoreApplication::applicationFilePath();
  const QList<Action> actions = Read(path);
  const QByteArray failure = FailureOf(program, actions);
  if (failure.isEmpty()) {
    std::fprintf(stderr, "Nothing fails.\n");
    return EXIT_FAILURE;
  }
  std::fprintf(stderr, "%s\n", failure.constData());
  const QList<Action> shrunk = Shrunk(
      actions, [&](const QList<Action>& fewer) { return FailureOf(program, fewer) == failure; });
  for (const Action& action : shrunk) std::printf("%s\n", LineOf(action).constData());
  return EXIT_SUCCESS;
}

// The platform without a screen says of much what it cannot do.
void TellMistakes(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type != QtCriticalMsg && type != QtFatalMsg) return;
  std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
}

}  // namespace

int main(int argc, char** argv) {
  if (!FaultyDisk::Load(argv)) return EXIT_FAILURE;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(TellMistakes);
  QApplication application(argc, argv);
  QCommandLineParser options;
  options.setApplicationDescription(
      u"Random keys, clicks and faults at all windows of Brivon, in a folder and at panels of its "
      "own."_s);
  const QCommandLineOption start(u"start"_s, u"The number that chooses the actions."_s, u"NUMBER"_s,
                                 u"1"_s);
  const QCommandLineOption steps(u"steps"_s, u"How many actions are done."_s, u"COUNT"_s,
                                 u"3000"_s);
  const QCommandLineOption log(u"log"_s, u"Keeps the actions."_s, u"FILE"_s);
  const QCommandLineOption hang(u"hang"_s, u"The longest work at one event."_s, u"MS"_s,
                                u"" BRIVON_LONGEST_WORK ""_s);
  const QCommandLineOption replay(u"replay"_s, u"Does the actions of a log again."_s, u"FILE"_s);
  const QCommandLineOption shrink(
      u"shrink"_s, u"Prints the shortest part of a log that fails in the same way."_s, u"FILE"_s);
  options.addOptions({start, steps, log, hang, replay, shrink});
  options.addHelpOption();
  options.process(application);
  if (options.isSet(shrink)) return Shrink(options.value(shrink));

  Day day;
  day.log = options.value(log);
  day.hang_ms = options.value(hang).toInt();
  if (options.isSet(replay)) {
    day.actions = Read(options.value(replay));
  } else {
    day.start = options.value(start).toULongLong();
    day.steps = options.value(steps).toInt();
  }
  if (Monkey(std::move(day)).Live()) return EXIT_SUCCESS;
  std::fprintf(stderr, "Too many actions had nothing to act at.\n");
  return kAtNothing;
}
