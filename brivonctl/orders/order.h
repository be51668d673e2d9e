// What is asked of the chosen panels: one file to be sent, or one command.
#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

#include "command/commands.h"
#include "sending/refusals.h"

namespace BrivonCtl {

enum class Action {
  kSendPage,
  kSendSchedule,
  kSendScrolling,
  kPoll,
  kRunPage,
  kDeletePage,
  kDeleteAll,
  kSetClock
};

struct Order {
  Action action = Action::kPoll;
  QString path;    ///< Of the file to be sent; empty for a command.
  QString number;  ///< The page or the line, decimal; the letter of a schedule.
};

/// As it stands on the command line: "send page", "delete-all".
QString ActionName(Action action);

/// What the number of an order is: "page", "letter" or "line"; empty where it has none.
QString NumberName(Action action);

bool SendsFile(Action action);

/// The command that the action is; nothing where it sends a file.
std::optional<Brivon1::PanelCommand> CommandOf(Action action);

/// The SHA-256 of the file at `path` in hexadecimal digits, or nothing where it cannot be read.
QByteArray FileDigest(const QString& path);

/// A digest of everything that the order sends: of a schedule its message files included. Empty for
/// a command.
QByteArray ContentDigest(const Order& order);

using Brivon1::PanelName;

}  // namespace BrivonCtl
