// Panels at the end of a real line, a TCP port or a pseudo-terminal, and a program folder that is
// configured for them.
#pragma once

#include <string>

#include <QByteArray>
#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include "engine/panel_engine.h"
#include "lines/pty_line.h"
#include "lines/tcp_line.h"
#include "support/program_folder.h"

enum class LineKind { kTcp, kSerial };

/// The name of a line in a test's own name.
std::string LineName(const testing::TestParamInfo<LineKind>& line);

class PanelBench {
 public:
  explicit PanelBench(LineKind kind, const QList<VirtualPanel::PanelDescription>& panels);

  TemporaryProgramFolder& Folder() { return folder_; }
  VirtualPanel::PanelEngine& Engine() { return engine_; }
  VirtualPanel::TcpLine& Tcp() { return tcp_; }
  VirtualPanel::PtyLine& Pty() { return pty_; }

  /// Sets the panels' faults; counts anew.
  void Fail(const VirtualPanel::Faults& faults) { engine_.SetFaults(faults); }

  /// Cuts the line as a pulled plug does; makes it usable again.
  void Unplug();
  void PlugIn();

  /// Whether nobody holds the line open any more; waits for it up to five seconds.
  bool IsReleased();

  /// Every frame received so far, its line end included.
  QList<QByteArray> Frames() const;

  /// Writes "brivon.ini" for the panels and the line and loads it. `delay_period` in milliseconds.
  void Configure(int delay_period = 0);

 private:
  LineKind kind_;
  QList<VirtualPanel::PanelDescription> panels_;
  TemporaryProgramFolder folder_;
  VirtualPanel::PanelEngine engine_;
  VirtualPanel::TcpLine tcp_;
  VirtualPanel::PtyLine pty_;
  quint16 tcp_port_ = 0;  // any free one at first, the same one ever after
};

/// A page message file of `rows` rows, each a line of its own text and colour.
QByteArray SampleMessageFile(int rows, int columns);
