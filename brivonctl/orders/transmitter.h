// One line and the panels on it, one after the other: what one thread does.
#pragma once

#include <deque>
#include <functional>
#include <optional>

#include "orders/carry_out.h"
#include "orders/happenings.h"
#include "orders/order.h"
#include "panel_line/panel_connection.h"
#include "store/configuration_store.h"
#include "store/panel_list.h"

namespace BrivonCtl {

/// What all panels get, the same for all threads; nobody changes it while they run.
struct Assignment {
  Order order;
  Brivon1::Configuration configuration;
  int further_transmissions = 0;  ///< To a panel at which one has failed.
  bool tells_steps = true;        ///< Whether anybody looks at more than the ends.
  TimeSource now = [] { return QDateTime::currentDateTime(); };
};

/// Panels that are reached over one line, in their order.
using PanelsOfALine = QList<Brivon1::PanelListEntry>;

/// The panels by their lines: over TCP those of one address share one, the serial line is one for
/// all.
QList<PanelsOfALine> ByLine(const QList<Brivon1::PanelListEntry>& panels, Brivon1::SendMode mode);

using Tell = std::function<void(Happening)>;

class Transmitter {
 public:
  /// All arguments outlive it.
  Transmitter(const Assignment& assignment, const Brivon1::PanelPorts& ports, const Tell& tell);

  /// Carries out the order at each panel of a line and tells every step and every transmission. A
  /// panel at which it has failed has its next turn behind all others. After a stop each panel that
  /// is left is told as stopped.
  void Serve(const PanelsOfALine& panels);

 private:
  struct Turn {
    Brivon1::PanelListEntry panel;
    int number;
    Transmission previous;  // where it is not the first one
  };

  Transmission Transmit(const Turn& turn);
  PanelResult TransmitOverLine(const Turn& turn, Transmission* transmission);
  bool OpenFor(const Brivon1::PanelListEntry& panel);
  void Close();

  const Assignment& assignment_;
  const Tell& tell_;
  Brivon1::SendMode mode_;
  Brivon1::PanelConnection connection_;
  bool is_open_ = false;
};

}  // namespace BrivonCtl
