// An order from the command line to the exit status.
#pragma once

#include "brivonctl/order_options.h"
#include "orders/order.h"

namespace BrivonCtl {

/// Checks everything, carries the order out at every chosen panel, reports and logs, and returns
/// the program's exit status.
int RunOrder(Action action, const OrderOptions& options);

}  // namespace BrivonCtl
