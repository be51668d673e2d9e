// The steps of a schedule as they are sent: which message file is shown when, and where in the
// schedule file that stands.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "schedule/schedule_reader.h"

namespace BrivonCtl {

struct ScheduleStep {
  int line = 0;             ///< In which its path stands, from 1.
  QByteArray path;          ///< Without the blanks at its ends.
  QString name;             ///< The same as text; of one longer than any file's, the beginning.
  qsizetype place = 0;      ///< Among the different files, from 0.
  bool is_complete = true;  ///< False: the file ends before its delay and effect.
  Brivon1::SequenceDetails details;
};

/// The steps that `file`, whose head has been read, still holds: as many as its head says, or fewer
/// where it ends early.
QList<ScheduleStep> ReadSteps(Brivon1::ScheduleReader* file);

/// The file that a schedule's name leads to.
QString NamedFile(const QString& name);

}  // namespace BrivonCtl
