// What is checked before the first byte leaves: the link, the file, and every panel.
#pragma once

#include <optional>

#include <QList>
#include <QString>

#include "orders/happenings.h"
#include "orders/order.h"
#include "store/configuration_store.h"
#include "store/panel_list.h"

namespace BrivonCtl {

struct CheckedPanels {
  QList<Brivon1::PanelListEntry> fit;
  QList<PanelResult> unfit;  ///< Refused, each with why.
};

/// What keeps the order from every panel: no link is chosen, or the file does not do. Nothing where
/// nothing does.
QString WhatIsWrongWith(const Order& order, const Brivon1::Configuration& configuration);

/// Which of the panels `ids` the order can be carried out at, by the checks of the windows.
CheckedPanels CheckPanels(const Order& order, const QList<int>& ids,
                          const Brivon1::Configuration& configuration);

/// "ID003, ID007: Dimension not matched! ...; ID009: ...": panels with the same reason together.
QString UnfitPanels(const QList<PanelResult>& unfit);

/// A text of several lines as one.
QString OneLine(const QString& text);

}  // namespace BrivonCtl
