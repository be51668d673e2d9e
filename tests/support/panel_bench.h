// Panels at the end of a line, and a program folder that is configured for them.
#pragma once

#include <functional>
#include <string>

#include <QByteArray>
#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include "engine/panel_engine.h"
#include "lines/tcp_line.h"
#include "panel_line/panel_connection.h"
#include "support/memory_line.h"
#include "support/panel_port.h"
#include "support/program_folder.h"
#include "support/virtual_time.h"

enum class LineKind { kTcp, kSerial };

/// The name of a line in a test's own name.
std::string LineName(const testing::TestParamInfo<LineKind>& line);

/// What all benches have: the panels and the folder.
class Bench {
 public:
  Bench(LineKind kind, const QList<VirtualPanel::PanelDescription>& panels)
      : kind_(kind), panels_(panels), engine_(panels) {}

  TemporaryProgramFolder& Folder() { return folder_; }
  VirtualPanel::PanelEngine& Engine() { return engine_; }

  /// Sets the panels' faults; counts anew.
  void Fail(const VirtualPanel::Faults& faults) { engine_.SetFaults(faults); }

  /// Every frame received so far, its line end included.
  QList<QByteArray> Frames() const;

  /// The name of the serial line's device.
  QString Device() const { return folder_.Path(QStringLiteral("panel-line")); }

 protected:
  /// Writes "brivon.ini" for the panels and the line and loads it. `delay_period` in milliseconds.
  void Configure(quint16 tcp_port, int delay_period);

  LineKind kind_;

 private:
  QList<VirtualPanel::PanelDescription> panels_;
  TemporaryProgramFolder folder_;
  VirtualPanel::PanelEngine engine_;
};

/// The panels are at the end of a real line, a TCP port or a pseudo-terminal.
class PanelBench : public Bench {
 public:
  PanelBench(LineKind kind, const QList<VirtualPanel::PanelDescription>& panels);

  VirtualPanel::TcpLine& Tcp() { return tcp_; }
  const PanelPort& Port() const { return port_; }

  /// Cuts the line as a pulled plug does; makes it usable again.
  void Unplug();
  void PlugIn();

  /// Whether nobody holds the line open any more; waits for it up to five seconds.
  bool IsReleased();

  void Configure(int delay_period = 0);

 private:
  VirtualPanel::TcpLine tcp_;
  PanelPort port_;
  quint16 tcp_port_ = 0;  // any free one at first, the same one ever after
};

/// The panels are at the end of a line in memory, and time passes only while somebody waits. A wait
/// handles the events that are due, as the real one does.
class VirtualBench : public Bench {
 public:
  VirtualBench(LineKind kind, const QList<VirtualPanel::PanelDescription>& panels);

  /// What a window is given in place of the real ones.
  const Brivon1::PanelPorts* Ports() const { return &ports_; }
  VirtualTime& Time() { return time_; }
  const VirtualTickTimer& Timer() const { return timer_; }

  /// Cuts the line as a pulled plug does; makes it usable again.
  void Unplug();
  void PlugIn();

  /// Whether nobody holds a line open.
  bool IsReleased() const { return !serial_.IsOpen() && !tcp_.IsOpen(); }

  /// How often a connection was requested or a port opened, in vain or not.
  int Openings() const { return serial_.Openings() + tcp_.Openings(); }

  /// `opened` is called when somebody has tried to open a line.
  void OnOpen(const std::function<void()>& opened);

  /// `closing` is called when an open line is about to be closed.
  void OnClose(const std::function<void()>& closing);

 private:
  static constexpr quint16 kPort = 2101;

  VirtualTime time_;
  EventfulTickTimer timer_{time_};
  EventfulClock clock_{time_};
  MemoryPort serial_;
  MemorySocket tcp_;
  Brivon1::PanelPorts ports_{serial_, tcp_, timer_, clock_};
};

/// A page message file of `rows` rows, each a line of its own text and colour.
QByteArray SampleMessageFile(int rows, int columns);
