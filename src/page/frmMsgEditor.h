// The page message editor: composes one page for a display panel, every character with its own
// size, colour and blinking, and keeps it in a message file.
#pragma once

#include <memory>

#include <QDialog>

#include "page/page_dots.h"
#include "page/page_message.h"
#include "panel_line/panel_connection.h"
#include "row/blink_timers.h"
#include "row/row_commands.h"
#include "row/row_editing.h"
#include "widgets/edited_file.h"
#include "widgets/unsaved_work.h"

namespace Ui {
class frmMsgEditor;
}

class frmMsgEditor : public QDialog, public UnsavedWork {
  Q_OBJECT

 public:
  /// `ports` are those of the window that sends the page, as SendingSession takes them.
  explicit frmMsgEditor(QWidget* parent = nullptr, const Brivon1::PanelPorts* ports = nullptr);
  ~frmMsgEditor() override;

  /// Leaves the window as Exit does: Escape and the close box ask about unsaved work too.
  void reject() override;

  bool IsModified() const override { return file_->IsModified(); }
  bool MayLeave() override { return file_->MayLeave(); }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void FillLists();
  void ConnectButtons();
  void ConnectRows();
  void BuildPreview();

  void NewPage();
  void OpenFile(const QString& path);
  void OpenSendDialog();

  bool WriteFile(const QString& path);
  QString AskForName();
  QString AskWhatToOpen();

  void LayOutPage();

  void TypeText(int row, const QString& text);
  void Insert(QByteArrayView placeholder);
  void PressMoveKey(int row, Brivon1::MoveKey key);
  void ClickRow(int row, double x);
  void EnterRow(int row);

  /// Shows what became of the current row, its cursor first of all.
  void ShowEdit();

  /// The same where several rows may have changed.
  void ShowEdits();

  /// The same where the keyboard may be elsewhere: it goes back to the row.
  void ResumeTyping();

  /// Shows what a panel makes of the page, and says how the current row stands.
  void ShowPanel();

  /// Says what was left out of the current row, if anything was.
  void ShowLeftOut(const Brivon1::LeftOut& left_out);

  qint16 ShownColourType() const;

  void ShowCursor(bool shown);
  void HideBlinking(bool hidden);
  void ReturnKeyboardToRow();

  std::unique_ptr<Ui::frmMsgEditor> ui_;
  const Brivon1::PanelPorts* ports_;
  EditedFile* file_;
  BlinkTimers* timers_;
  Brivon1::PageMessage page_;
  RowCommands* commands_;
  Brivon1::PageDots dots_;
};
