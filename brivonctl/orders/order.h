// What is asked of the chosen panels: one file to be sent, or one command.
#pragma once

#include <memory>
#include <optional>

#include <QByteArray>
#include <QString>

#include "command/commands.h"
#include "orders/file_copies.h"
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
  std::shared_ptr<const FileCopies> copies = {};  ///< What is sent; else the files as they are.

  const Brivon1::FileSource& Files() const;

  /// The path of the file that is sent.
  QString SentPath() const;

  QByteArray Digest() const { return copies ? copies->Digest(SentPath()) : QByteArray(); }
};

/// As it stands on the command line: "send page", "delete-all".
QString ActionName(Action action);

/// What the number of an order is: "page", "letter" or "line"; empty where it has none.
QString NumberName(Action action);

bool SendsFile(Action action);

/// The command that the action is; nothing where it sends a file.
std::optional<Brivon1::PanelCommand> CommandOf(Action action);

using Brivon1::PanelName;

}  // namespace BrivonCtl
