// One thing that a hand does at the program, as a line of text that can be done again.
#pragma once

#include <optional>

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// "click frmMsgEditor/butNew 500 500 left": what is done, and with what. Places are thousandths of
/// a control, so that a line means the same in another font.
struct Action {
  QString verb;
  QStringList words;

  QString Word(qsizetype index) const { return words.value(index); }
  int Number(qsizetype index) const { return words.value(index).toInt(); }

  friend bool operator==(const Action&, const Action&) = default;
};

/// As a line of a log, without its end; any character of the words comes back.
QByteArray LineOf(const Action& action);

/// Nothing for an empty line and for a comment, which begins with "#".
std::optional<Action> ActionOf(const QByteArray& line);

/// The actions of a log; nothing where it cannot be read.
std::optional<QList<Action>> ReadActions(const QString& path);

/// False where the file cannot be written.
bool WriteActions(const QString& path, const QList<Action>& actions);
