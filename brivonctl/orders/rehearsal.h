// An order carried out by the same transmissions at panels that acknowledge everything at once, in
// a time that takes none: which frames it sends, and whether its file can be read to the end.
#pragma once

#include <map>
#include <tuple>

#include <QByteArray>
#include <QList>

#include "orders/carry_out.h"
#include "orders/happenings.h"
#include "orders/order.h"
#include "store/configuration_store.h"
#include "store/panel_list.h"

namespace BrivonCtl {

struct Rehearsal {
  PanelResult result;
  QList<QByteArray> frames;  ///< In their order, each once, with its line end.
};

Rehearsal Rehearse(const Order& order, const Brivon1::PanelListEntry& panel,
                   const Brivon1::Configuration& configuration, const TimeSource& now);

/// The results of rehearsals, of which panels of the same size and colours need one.
class Rehearsals {
 public:
  Rehearsals(const Order& order, const Brivon1::Configuration& configuration)
      : order_(order), configuration_(configuration) {}

  PanelResult Of(const Brivon1::PanelListEntry& panel);

 private:
  using Kind = std::tuple<qint16, qint16, qint16>;  // rows, columns, colour type

  const Order& order_;
  const Brivon1::Configuration& configuration_;
  std::map<Kind, PanelResult> results_;
};

}  // namespace BrivonCtl
