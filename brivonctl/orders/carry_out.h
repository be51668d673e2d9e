// An order carried out at one panel over an open line, by the transmissions and with the words of
// the windows.
#pragma once

#include <functional>

#include <QDateTime>
#include <QString>

#include "orders/happenings.h"
#include "orders/order.h"
#include "panel_line/panel_connection.h"
#include "panel_line/transmission.h"
#include "store/panel_list.h"

namespace BrivonCtl {

using TimeSource = std::function<QDateTime()>;

/// Carries out `order` at `panel` and says how that has ended. The line stays open. `now` is asked
/// for what a clock is set to.
PanelResult CarryOut(Brivon1::OpenLine& line, const Order& order,
                     const Brivon1::PanelListEntry& panel, const TimeSource& now);

/// The result of an order whose line could not be opened, or whose opening was stopped.
PanelResult NotOpened(Brivon1::PanelConnection& connection, Brivon1::SendMode mode, int panel);

/// The result of an order that was stopped before it began.
PanelResult NotBegun(int panel);

/// Which link an order goes over: scrolling messages go over the serial line in every mode.
Brivon1::SendMode ModeFor(const Order& order, const Brivon1::Configuration& configuration);

}  // namespace BrivonCtl
