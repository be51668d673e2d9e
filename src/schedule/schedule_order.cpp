#include "schedule/schedule_order.h"

#include "base/file_checks.h"
#include "base/files.h"
#include "language/module_language.h"
#include "sending/refusals.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

using ModuleLanguage::TranslateMessage;

std::optional<Refusal> CheckScheduleOrder(const ScheduleOrder& order,
                                          const Configuration& configuration,
                                          std::optional<Dimension>& dimension,
                                          const FileSource& files) {
  if (!files.Exists(order.path)) return FileNotFound(order.path);
  if (!order.panel) return NoPanel(u"No ID Selected!"_s, configuration);
  // The file may have been saved for another panel since it was chosen.
  if (const auto now = IsScheduleFile(order.path, files)) dimension = now;
  if (dimension != Dimension{order.panel->rows, order.panel->columns}) {
    return dimension ? DimensionNotMatched(FileSort::kSchedule, *dimension, *order.panel)
                     : Refusal{TranslateMessage(u"Dimension not matched!"_s),
                               WrongKindRemedy(order.path, FileSort::kSchedule)};
  }
  return std::nullopt;
}

QString ScheduleSentText(SendMode mode) {
  if (mode == SendMode::kSerial) return TranslateMessage(u"Transmission finished!"_s);
  // The language file's published text that says the same comes first.
  return TranslateMessage(
      u"Schedule file download done!"_s,
      TranslateMessage(u"Schedules file is sent successfully through network"_s));
}

}  // namespace Brivon1
