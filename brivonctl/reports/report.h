// Whoever is told how an order proceeds: a person at a terminal, or a program.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "orders/happenings.h"
#include "orders/order.h"
#include "store/configuration_store.h"

namespace BrivonCtl {

/// What is known before the first byte leaves.
struct Beginning {
  Order order;
  QList<int> panels;  ///< That get it.
  QByteArray digest;  ///< Of the file; empty for a command.
  Brivon1::SendMode mode = Brivon1::SendMode::kNone;
  bool is_dry_run = false;
};

/// What is known at the end.
struct Summary {
  QList<PanelResult> results;  ///< Of every chosen panel, by its ID.
  qint64 milliseconds = 0;
  int status = 0;  ///< The program's exit status.
  QString reason;  ///< Why nothing was sent to any panel; empty where that is not so.

  int Count(Result result) const {
    int count = 0;
    for (const PanelResult& panel : results) count += panel.result == result ? 1 : 0;
    return count;
  }
};

class Report {
 public:
  virtual ~Report() = default;

  virtual void Begin(const Beginning& beginning) = 0;
  virtual void TakeIn(const Step& step) = 0;
  virtual void TakeIn(const Transmission& transmission) = 0;
  virtual void TakeInFrame(int panel, const QByteArray& frame) = 0;

  /// A panel to which nothing is sent.
  virtual void TakeInRefused(const PanelResult& result) = 0;

  virtual void TakeInStop() = 0;

  /// Called now and then, so that what moves is shown.
  virtual void Refresh() = 0;

  virtual void End(const Summary& summary) = 0;
};

}  // namespace BrivonCtl
