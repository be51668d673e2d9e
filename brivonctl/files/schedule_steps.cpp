#include "files/schedule_steps.h"

#include <QHash>

#include "base/files.h"
#include "base/text.h"
#include "schedule/step_file.h"
#include "store/configuration_store.h"

namespace BrivonCtl {

QList<ScheduleStep> ReadSteps(Brivon1::ScheduleReader* file) {
  QList<ScheduleStep> steps;
  QHash<QString, qsizetype> places;  // of the files, by their names in upper case
  while (file->Head() && steps.size() < file->Head()->sequences) {
    const auto path = file->NextPath();
    if (!path) break;
    ScheduleStep step;
    step.line = file->LineNumber();
    step.path = Brivon1::TrimBlanks(*path);
    step.name = Brivon1::StepFileName(*path);
    const QString compared = step.name.toUpper();
    if (!places.contains(compared)) places.insert(compared, places.size());
    step.place = places.value(compared);
    const auto details = file->NextDetails();
    step.is_complete = details.has_value();
    if (details) step.details = *details;
    steps.append(step);
    if (!details) break;
  }
  return steps;
}

QString NamedFile(const QString& name) { return Brivon1::FindFile(Brivon1::InProgramFolder(name)); }

}  // namespace BrivonCtl
