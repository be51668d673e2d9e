// The order to send a page message file to a panel, and the checks that it passes before anything
// is opened.
#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

#include "base/file_source.h"
#include "base/refusal.h"
#include "store/configuration_store.h"
#include "store/panel_list.h"

namespace Brivon1 {

struct PageOrder {
  QString path;
  std::optional<PanelListEntry> panel;  ///< Nothing where none is chosen.
  QString page;                         ///< The page number as entered.
};

/// What keeps the order from being carried out over the configured link; nothing where nothing
/// does.
std::optional<Refusal> CheckPageOrder(const PageOrder& order, const Configuration& configuration,
                                      const FileSource& files = Disk());

/// The refusal of a page number.
Refusal PageNumberRefusal();

/// The page number as it goes on the wire: the number that the text begins with, at least three
/// digits long.
QByteArray PageDigits(const QString& text);

}  // namespace Brivon1
