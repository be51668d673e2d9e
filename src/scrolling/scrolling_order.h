// The order to send a scrolling message file to a line of a panel, and the checks that it passes
// before anything is opened.
#pragma once

#include <optional>

#include <QString>

#include "base/file_source.h"
#include "base/refusal.h"
#include "store/configuration_store.h"
#include "store/panel_list.h"

namespace Brivon1 {

struct ScrollingOrder {
  QString path;
  std::optional<PanelListEntry> panel;  ///< Nothing where none is chosen.
  QString line;                         ///< The line's number as entered.
};

/// What keeps the order from being carried out; nothing where nothing does. A line below 1 is none
/// of it: what it means is the panel's affair.
std::optional<Refusal> CheckScrollingOrder(const ScrollingOrder& order,
                                           const Configuration& configuration,
                                           const FileSource& files = Disk());

/// The number that the text of a line begins with; 0 where it begins with none.
int LineNumber(const QString& text);

}  // namespace Brivon1
