// Panels on real lines, a TCP port on loopback and a pseudo-terminal, and the program folder that
// is configured for them.
#pragma once

#include <QByteArray>
#include <QList>

#include "engine/panel_engine.h"
#include "lines/pty_line.h"
#include "lines/tcp_line.h"
#include "soak/random.h"
#include "soak/random_work.h"
#include "support/program_folder.h"

class HostileLines {
 public:
  explicit HostileLines(Random& random);

  const TemporaryProgramFolder& Folder() const { return folder_; }
  const QList<VirtualPanel::PanelDescription>& Panels() const { return panels_; }
  const VirtualPanel::PanelEngine& Engine() const { return engine_; }

  /// Makes both lines usable and configures the one that is sent over; what the panels receive is
  /// kept from now on.
  void Begin(bool over_tcp, const VirtualPanel::Faults& faults);
  const QList<QByteArray>& Received() const { return received_; }

  /// Cuts both lines at once, as a reset and a pulled plug do.
  void Cut();

  /// Whether nobody holds a line open; waits for it up to five seconds.
  bool IsReleased();

 private:
  /// Fills what the panels keep up to its bounds, so that it does not grow later.
  void Fill(Random& random);

  QList<VirtualPanel::PanelDescription> panels_;
  TemporaryProgramFolder folder_;
  VirtualPanel::PanelEngine engine_;
  VirtualPanel::TcpLine tcp_;
  VirtualPanel::PtyLine pty_;
  QList<QByteArray> received_;
};
