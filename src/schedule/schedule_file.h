// The schedule file (".sch"): a header, the time slot, the panel's size, and three lines for each
// sequence, the texts as fixed fields.
#pragma once

#include <optional>

#include <QString>

#include "base/file_failure.h"
#include "base/file_source.h"
#include "schedule/schedule.h"

namespace Brivon1 {

/// Reads a schedule, or gives nothing where ScheduleReader refuses the file or it ends early. A
/// file that names a 27th different message file is read up to there; the sequences from that one's
/// delay on are blank. `failure` receives why there is nothing.
std::optional<Schedule> LoadScheduleFile(const QString& path, FileFailure* failure = nullptr,
                                         const FileSource& files = Disk());

/// The failure of the schedule at `path` in the operator's language.
QString ScheduleFileRemedy(const QString& path, const FileFailure& failure);

/// How a save of a schedule ended.
enum class ScheduleSaveResult {
  kSaved,
  kHourWrong,    ///< Neither kEveryTime nor 0 to 23; a text that begins with no number counts as 0.
  kMinuteWrong,  ///< The same with 0 to 59.
  kInvalidPath,  ///< As SaveResult has it.
  kDriveNotAvailable,
};

/// Saves a schedule, whole or not at all. The hour is checked first, then the minute. `remedy`
/// receives why it failed and what to do, in the operator's language.
ScheduleSaveResult SaveScheduleFile(const QString& path, const Schedule& schedule,
                                    QString* remedy = nullptr);

/// The English message for a failed save; empty for one that succeeded.
QString SaveFailureText(ScheduleSaveResult result);

/// The same in the words that the editor has for it when it saves in order to send.
QString SaveFailureTextWhenSending(ScheduleSaveResult result);

/// Why the schedule file at `path` cannot be handed over to be sent, as English message: "Path Not
/// Valid" where its folder does not exist, "File not found" where only the file does not. Empty: it
/// can.
QString SendingRefusal(const QString& path);

/// A message file's path as the schedule's field, or nothing where it would not come back: longer
/// than the field, a blank at an end, a line end within, or a letter that the code page does not
/// have. Of a letter with an accent the form may change; FindFile() finds the file all the same.
std::optional<QByteArray> PathField(const QString& path);

/// The path that a field holds, without the blanks at its ends. One that is not full counts from
/// the program's folder.
QString FieldPath(const QByteArray& field);

/// The sizes of a page and of the schedule that it does not fit, in the operator's language.
QString StepRemedy(Dimension page, Dimension schedule);

/// Why a message file cannot enter a schedule made for `dimension`, as English message: "Not
/// Message File Format!", "Dimension not matched!", or "Invalid path!" where PathField() refuses
/// the path or another file would be found by the field. Empty: it can. `remedy` receives why, and
/// what to do, in the operator's language.
QString MessageFileRefusal(const QString& path, Dimension dimension, QString* remedy = nullptr);

}  // namespace Brivon1
