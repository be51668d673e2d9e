// The program as its options have it: the panels, the files that are kept of them, their lines, and
// the window.
#pragma once

#include <memory>

#include <QByteArray>
#include <QString>

#include "engine/panel_engine.h"
#include "lines/panel_lines.h"
#include "records/engine_records.h"
#include "virtual_panel/options.h"
#include "window/panel_window.h"

namespace VirtualPanel {

class Program {
 public:
  explicit Program(const Options& options);

  // Opens its files, its lines and its window. False, with a sentence in *error: something cannot
  // be opened. What goes on later is said on standard output and standard error.
  bool Start(QString* error);

 private:
  bool StartRecords(QString* error);
  bool OpenLines(QString* error);
  bool ShowWindow(QString* error);
  QByteArray WindowPicture();

  Options options_;
  PanelEngine engine_;
  EngineRecords records_{&engine_};
  PanelLines lines_{&engine_};
  std::unique_ptr<PanelWindow> window_;
};

// A line on standard output, at once.
void Say(const QString& line);
// A line on standard error, behind the program's name.
void Complain(const QString& line);

}  // namespace VirtualPanel
