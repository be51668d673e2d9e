// Sending a schedule to one panel over an open link: its message files as a block of pages, then
// the one frame that says when to show which of them.
#pragma once

#include <functional>
#include <optional>

#include <QString>

#include "base/file_source.h"
#include "base/refusal.h"
#include "panel_line/transmission.h"

namespace Brivon1 {

/// Tells the operator why a schedule is not sent, or why no more of it.
using TellRefusal = std::function<void(const Refusal& refusal)>;

/// The letter of a schedule that `text` is, A to J in either case, as a capital; nothing for any
/// other text.
std::optional<char> ScheduleLetter(const QString& text);

/// The path of the schedule file that is read where `path` is to be sent: without the blanks at its
/// ends.
QString SentSchedulePath(const QString& path);

/// What keeps the schedule file at `path` (blanks at its ends do not count) from being sent under
/// the schedule letter `letter`: the letter, the schedule, the first of its message files that
/// cannot be sent. Nothing where nothing does. The refusal of a schedule that cannot be read has no
/// text: who sends it says that the transmission has failed.
std::optional<Refusal> CheckScheduleFile(const QString& path, const QString& letter,
                                         const FileSource& files = Disk());

/// Sends the schedule file at `path` (blanks at its ends do not count) to panel `id` under the
/// schedule letter `letter`, "A" to "J" in either case. Each different message file is sent once,
/// as the letter's first page and the ones that follow it; a name without a folder's full path is
/// that of a file in the program's folder. Everything is checked before the first
/// byte leaves, but for the row lines of the message files.
///
/// True when all message files and the schedule were acknowledged. A refused letter, schedule or
/// message file, and the first message file that fails, give false after at most one refusal.
bool SendScheduleFile(OpenLine& line, const QString& path, int id, const QString& letter,
                      const TellRefusal& tell_refusal);

}  // namespace Brivon1
