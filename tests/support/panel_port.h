// The end of a serial line at which the panels are: a pseudo-terminal, which a test opens like any
// serial port.
#pragma once

#include <memory>

#include <QString>

#include "engine/panel_engine.h"

class PanelPort {
 public:
  // The engine must outlive the port.
  explicit PanelPort(VirtualPanel::PanelEngine* engine);
  ~PanelPort();

  PanelPort(const PanelPort&) = delete;
  PanelPort& operator=(const PanelPort&) = delete;

  /// Gives the line's other end this name. False where it cannot be, as on Windows.
  bool Open(const QString& device);

  /// Vanishes as an adapter does that is pulled.
  void Unplug();

  bool IsPlugged() const;

  /// Somebody has the other end open.
  bool IsInUse() const;

 private:
  class Line;
  std::unique_ptr<Line> line_;
};
