// The windows that send, and what a test must know of one to do with it what all of them do alike.
// Another window gets its tests by an entry in SendingWindows().
#pragma once

#include <memory>
#include <ostream>
#include <string>

#include <QDialog>
#include <QList>
#include <QMessageBox>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include "support/panel_bench.h"
#include "support/send_dialog.h"

/// How one sends the same few frames over a line.
struct SendingWindow {
  const char* name;
  QList<LineKind> lines;  ///< The links that it sends over.
  QString title;          ///< Of its message boxes.
  QMessageBox::Icon success_icon;
  QMessageBox::Icon failure_icon;
  QList<const char*> locked;  ///< The controls that are locked while it sends.
  const char* text_box;       ///< A text box in which Return sends; null where there is none.

  VirtualPanel::PanelDescription panel;
  std::unique_ptr<QDialog> (*make)(const QString& path, const Brivon1::PanelPorts* ports);
  /// Writes the file that it sends and returns its path; empty for a window that sends none.
  QString (*write_file)(TemporaryProgramFolder& folder);
  void (*fill_in)(SendDialog& dialog);

  QList<QByteArray> frames;  ///< What the panel receives, every byte of it.
  QStringList statuses;      ///< What the window shows as each frame is received; empty: nothing.
  bool keeps_status;         ///< Whether the last status stays when it has sent.
  QString (*finished)(LineKind line);
  /// The message boxes after a failure at the first frame.
  QStringList (*failed)(const TemporaryProgramFolder& folder);

  /// The same in the language of kLanguage.
  QString (*translated_finished)(LineKind line);
  QStringList (*translated_failed)(const TemporaryProgramFolder& folder);
};

inline constexpr const char* kLanguage =
    "[Message]\r\nmsgTxOK=Fertig!\r\nmsgSendSchOK=Zeitplan ist da!\r\nmsgErrSend=Fehler bei\r\n"
    "msgTxFail=Fehler!\r\nmsgErrTCP=Kein Netz!\r\nmsgErrComm=Kein Anschluss!\r\n"
    "msgSendCmdOK=Befehl ist da!\r\nmsgErrPoll=Keiner da!\r\n";

const QList<SendingWindow>& SendingWindows();

/// One of them over one of its lines.
struct WindowOverLine {
  const SendingWindow* window;
  LineKind line;
};

/// As a test names its parameter.
inline void PrintTo(const WindowOverLine& pair, std::ostream* out) { *out << pair.window->name; }

/// Those of all pairs for which `holds`.
QList<WindowOverLine> WindowsOverLines(bool (*holds)(const WindowOverLine& pair));
QList<WindowOverLine> WindowsOverLines();
/// Over a line whose opening takes a wait.
bool IsOverTcp(const WindowOverLine& pair);

std::string WindowOverLineName(const testing::TestParamInfo<WindowOverLine>& info);
