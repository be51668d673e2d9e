#include "monkey/action.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kReadable = "!\"#$&'()*+,-./:;<=>?@[\\]^_`{|}~";

}  // namespace

QByteArray LineOf(const Action& action) {
  QByteArray line = action.verb.toLatin1();
  for (const QString& word : action.words) {
    const QByteArray readable = QByteArray(kReadable);
    line +=
        ' ' + (word.isEmpty() ? "%00"_ba : QByteArray(word.toUtf8().toPercentEncoding(readable)));
  }
  return line;
}

std::optional<Action> ActionOf(const QByteArray& line) {
  const QByteArray trimmed = line.trimmed();
  if (trimmed.isEmpty() || trimmed.startsWith('#')) return std::nullopt;
  const QList<QByteArray> parts = trimmed.split(' ');
  Action action{QString::fromLatin1(parts.first()), {}};
  for (const QByteArray& part : parts.mid(1)) {
    action.words.append(
        part == "%00"_ba ? QString() : QString::fromUtf8(QByteArray::fromPercentEncoding(part)));
  }
  return action;
}

std::optional<QList<Action>> ReadActions(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  QList<Action> actions;
  for (const QByteArray& line : file.readAll().split('\n')) {
    if (const auto action = ActionOf(line)) actions.append(*action);
  }
  return actions;
}

bool WriteActions(const QString& path, const QList<Action>& actions) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  for (const Action& action : actions) file.write(LineOf(action) + '\n');
  return file.flush();
}
