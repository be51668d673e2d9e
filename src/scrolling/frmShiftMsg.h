// The scrolling message editor: composes one line of text that a panel scrolls across one of its
// rows, every character with its own size, colour and blinking.
#pragma once

#include <memory>

#include <QDialog>

#include "panel_line/panel_connection.h"
#include "row/blink_timers.h"
#include "row/row_commands.h"
#include "row/row_surface.h"
#include "scrolling/scrolling_message.h"
#include "scrolling/scrolling_preview.h"
#include "widgets/edited_file.h"
#include "widgets/unsaved_work.h"

namespace Ui {
class frmShiftMsg;
}

class frmShiftMsg : public QDialog, public UnsavedWork {
  Q_OBJECT

 public:
  /// The preview has the date and time of `now`, and runs by it. `ports` are those of the window
  /// that sends the message, as SendingSession takes them.
  explicit frmShiftMsg(
      QWidget* parent = nullptr,
      ScrollingPreview::TimeSource now = [] { return QDateTime::currentDateTime(); },
      const Brivon1::PanelPorts* ports = nullptr);
  ~frmShiftMsg() override;

  /// Leaves the window as Exit does: Escape and the close box ask about unsaved work too.
  void reject() override;

  bool IsModified() const override { return file_->IsModified(); }
  bool MayLeave() override { return file_->MayLeave(); }

 private:
  void ConnectButtons();
  void ConnectMessage();

  void NewMessage();
  void OpenFile(const QString& path);
  void OpenSendDialog();

  bool WriteFile(const QString& path);
  QString AskForName();
  QString AskWhatToOpen();

  void TypeText(const QString& text);

  /// Shows what became of the message, its cursor first of all.
  void ShowEdit();
  void ShowStatus();

  /// The same where the keyboard may be elsewhere: it goes back to the message.
  void ResumeTyping();

  Brivon1::ScrollingMessage message_;
  std::unique_ptr<Ui::frmShiftMsg> ui_;
  const Brivon1::PanelPorts* ports_;
  EditedFile* file_;
  RowSurface* surface_;
  BlinkTimers* timers_;
  RowCommands* commands_;
};
