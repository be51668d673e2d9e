// Makes the pictures of the papers: the real windows, with the virtual panel's engine at the end of
// a line in memory, at a time, in a font and a folder that are the same everywhere. So the same
// programs give the same pictures.
#pragma once

#include <functional>

#include <QDateTime>
#include <QDir>
#include <QImage>
#include <QString>
#include <QWidget>

#include "engine/panel_engine.h"
#include "panel_line/panel_connection.h"
#include "support/memory_line.h"
#include "support/program_folder.h"
#include "support/virtual_time.h"

class PictureMaker {
 public:
  /// `samples` is the folder of the sample files, `pictures` that of the pictures.
  PictureMaker(const QString& samples, const QString& pictures);

  /// All of them.
  void MakeAll();

 private:
  // Windows, each in the state that the manual explains.
  void Launcher();
  void GermanLauncher();
  void Config();
  void PageEditor();
  void SaveQuestion();
  void SmallDialogs();
  void SendPage();
  void NoPort();
  void ScheduleEditor();
  void ScrollingEditor();
  void CommandWindow();

  // What panels show.
  void VirtualPanelWindow();
  void EditorAndPanel();
  void Symbols();

  /// The panels are reached by `send_mode`, "TCPIP" or "RS232".
  void Configure(const char* send_mode = "TCPIP");

  /// Shows `window` as it opens.
  static void Show(QWidget& window);

  /// What `window` shows, with an operator's folders in place of this program's.
  QImage Picture(QWidget& window) const;
  void Save(QWidget& window, const char* name) const { Save(Picture(window), name); }
  void Save(const QImage& image, const char* name) const;

  /// Presses `button` of `window` and takes the picture of the box that appears, then leaves it.
  void SaveBox(QWidget& window, const char* button, const char* name) const;

  /// Sends the file to a panel, through the dialog.
  void SendFile(const char* file, int id, const char* page);
  void SendFrame(const QByteArray& frame);

  /// Lets so much time pass that no page is on its way in any more.
  void LetPagesEnter();

  QString Sample(const char* file) const { return folder_.Path(QString::fromLatin1(file)); }

  TemporaryProgramFolder folder_;
  QString samples_;
  QDir pictures_;
  VirtualTime time_;
  VirtualPanel::PanelEngine engine_;
  EventfulTickTimer timer_{time_};
  EventfulClock clock_{time_};
  MemoryPort serial_;
  MemorySocket tcp_;
  Brivon1::PanelPorts ports_{serial_, tcp_, timer_, clock_};
};
