#include "monkey/shrink.h"

#include <algorithm>
#include <utility>

#include <QProcess>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

QList<Action> Shrunk(QList<Action> actions,
                     const std::function<bool(const QList<Action>& actions)>& fails) {
  qsizetype part = std::max<qsizetype>(actions.size() / 2, 1);
  while (true) {
    bool helped = false;
    for (qsizetype from = 0; from < actions.size();) {
      QList<Action> fewer = actions;
      fewer.remove(from, std::min(part, actions.size() - from));
      if (!fewer.isEmpty() && fails(fewer)) {
        actions = std::move(fewer);
        helped = true;
      } else {
        from += part;
      }
    }
    if (part == 1 && !helped) return actions;
    part = std::max<qsizetype>(part / 2, 1);
  }
}

QByteArray FailureOf(const QString& program, const QList<Action>& actions) {
  QTemporaryFile file;
  if (!file.open() || !WriteActions(file.fileName(), actions)) qFatal("cannot write a log");
  QProcess replay;
  replay.start(program, {u"--replay"_s, file.fileName()});
  if (!replay.waitForFinished(-1)) qFatal("cannot start a replay");
  const bool has_ended = replay.exitStatus() == QProcess::NormalExit;
  if (has_ended && (replay.exitCode() == 0 || replay.exitCode() == kAtNothing)) return {};
  for (const QByteArray& line : replay.readAllStandardError().split('\n')) {
    // Numbers are those of this run alone.
    if (line.startsWith("FAILED: hang")) return "hang";
    if (line.startsWith("FAILED:")) return line;
    const qsizetype report = line.indexOf("Sanitizer: ");
    if (report >= 0) return line.mid(report).split(' ').mid(0, 2).join(' ');
    if (line.contains("runtime error: ")) return line.mid(line.indexOf("runtime error: "));
  }
  return "exit " + QByteArray::number(replay.exitCode());
}
