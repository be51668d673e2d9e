// The order to send a schedule file to a panel, and the checks that it passes before anything is
// opened. What the schedule itself and its message files are checked for stands in
// schedule_transmission.h.
#pragma once

#include <optional>

#include <QString>

#include "base/dimension.h"
#include "base/file_source.h"
#include "base/refusal.h"
#include "store/configuration_store.h"
#include "store/panel_list.h"

namespace Brivon1 {

struct ScheduleOrder {
  QString path;
  std::optional<PanelListEntry> panel;  ///< Nothing where none is chosen.
};

/// What keeps the order from being carried out; nothing where nothing does. `dimension` is what the
/// file was made for when it was last read, nothing where that has not been done; it is brought up
/// to date where the checks come to it, and stays where the file is no schedule any more.
std::optional<Refusal> CheckScheduleOrder(const ScheduleOrder& order,
                                          const Configuration& configuration,
                                          std::optional<Dimension>& dimension,
                                          const FileSource& files = Disk());

/// The message about a schedule that was acknowledged.
QString ScheduleSentText(SendMode mode);

}  // namespace Brivon1
