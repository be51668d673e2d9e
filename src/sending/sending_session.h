// What the windows that send share: each has ports of its own, and while it sends its controls are
// locked, the pointer is busy, the window stays open, and the operator may stop it.
#pragma once

#include <optional>

#include <QDialog>
#include <QList>
#include <QObject>
#include <QPair>
#include <QPointer>

#include "panel_line/panel_connection.h"
#include "panel_line/transmission.h"
#include "sending/progress_view.h"
#include "store/panel_list.h"
#include "widgets/message_boxes.h"

/// One per window that sends. It must be created in the window's constructor and live as long.
class SendingSession : public QObject {
  Q_OBJECT

 public:
  /// `locked_controls` are disabled while the window sends, and a ProgressView of the window shows
  /// how far it has come. Ctrl+Return sends from everywhere in the window. `ports` outlive the
  /// session; without any it has the real ones.
  SendingSession(QDialog* window, QList<QWidget*> locked_controls,
                 const Brivon1::PanelPorts* ports = nullptr);

  bool IsSending() const { return is_sending_; }

  /// Shows `note` in the window in place of the one about the configured link.
  void ShowNote(const QString& note);

  /// Ends the transmission after the attempt in progress; does nothing while none runs.
  void RequestStop();

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  friend class Sending;

  void Lock();
  void Unlock();
  void ShowLastBytes(qint64 milliseconds_left);

  QDialog* window_;
  ProgressView* view_;  // null in a window without one
  QList<QWidget*> locked_controls_;
  QList<QPair<QPointer<QWidget>, QCursor>> own_pointers_;  // of controls that have one
  QPointer<QWidget> focus_;
  Brivon1::PanelConnection connection_;
  bool is_sending_ = false;
};

/// While it lives, the window is locked and its pointer busy. Its end closes the line and unlocks
/// the window. Of a window that is sending already it is empty and changes nothing.
class [[nodiscard]] Sending {
 public:
  explicit Sending(SendingSession* session);
  ~Sending();

  Sending(const Sending&) = delete;
  Sending& operator=(const Sending&) = delete;

  explicit operator bool() const { return session_ != nullptr; }

  /// Opens the line by the configured send mode. Nothing where that fails, after the message about
  /// it in `failure_style`; nothing without a message in neither mode. What the line reports of its
  /// progress is shown.
  std::optional<Brivon1::OpenLine> Open(const Brivon1::TcpEndpoint& endpoint,
                                        const Brivon1::StatusLabel& status,
                                        const MessageBoxStyle& failure_style = {});

  /// The same for the serial line, whatever the configured send mode.
  std::optional<Brivon1::OpenLine> OpenSerial(const Brivon1::StatusLabel& status);

  /// Shows how a transmission over an open line has ended: with `text`.
  void ShowResult(const QString& text, const MessageBoxStyle& style = {});

  /// The same for one to panel `id` that has not succeeded; where the operator has stopped it, that
  /// is said in place of `text`, with what has arrived by then.
  void ShowFailure(const Brivon1::OpenLine& line, int id, const QString& text,
                   MessageBoxStyle style = {});

 private:
  std::optional<Brivon1::OpenLine> Open(Brivon1::SendMode mode,
                                        const Brivon1::TcpEndpoint& endpoint,
                                        const Brivon1::StatusLabel& status,
                                        MessageBoxStyle failure_style);
  void ShowAborted(const QString& arrived, MessageBoxStyle style);

  SendingSession* session_;
};
