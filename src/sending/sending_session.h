// What the windows that send share: they own a link, choose a panel from a list, and while they
// send their controls are locked, the pointer is busy and the window stays open.
#pragma once

#include <functional>
#include <optional>

#include <QDialog>
#include <QList>
#include <QObject>
#include <QPair>
#include <QPointer>

#include "panel_line/panel_connection.h"
#include "panel_line/transmission.h"
#include "store/panel_list.h"
#include "widgets/message_boxes.h"

class QComboBox;

/// Fills `list` with one entry for each configured panel, made by `line`; no entry is selected.
void FillPanelList(QComboBox* list,
                   QByteArray (*line)(int id,
                                      const Brivon1::PanelEntry& entry) = Brivon1::PanelListLine);

/// The selected panel of a list filled by FillPanelList(), or nothing without a selection.
std::optional<Brivon1::PanelListEntry> SelectedPanel(const QComboBox* list);

/// One per window that sends. It must be created in the window's constructor and live as long.
class SendingSession : public QObject {
  Q_OBJECT

 public:
  /// `locked_controls` are disabled while the window sends.
  SendingSession(QDialog* window, QList<QWidget*> locked_controls);

  /// Runs `body` with the controls locked and the pointer busy; the link is closed and everything
  /// unlocked afterwards, on every path. A call while one is running does nothing.
  void Run(const std::function<void()>& body);

  /// To be called from within Run(): opens the link by the configured send mode and hands it to
  /// `send`. Where it cannot be opened, the message about it is shown in `failure_style` and `send`
  /// is not called; in neither mode nothing happens at all.
  void Transmit(const Brivon1::TcpEndpoint& endpoint, const Brivon1::StatusLabel& status,
                MessageBoxStyle failure_style,
                const std::function<void(Brivon1::Transmission&)>& send);

  /// The same over the serial line, whatever the configured send mode.
  void TransmitOverSerial(const Brivon1::StatusLabel& status, MessageBoxStyle failure_style,
                          const std::function<void(Brivon1::Transmission&)>& send);

  bool IsSending() const { return is_sending_; }

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void TransmitOver(Brivon1::SendMode mode, const Brivon1::TcpEndpoint& endpoint,
                    const Brivon1::StatusLabel& status, MessageBoxStyle failure_style,
                    const std::function<void(Brivon1::Transmission&)>& send);
  void Lock();
  void Unlock();

  QDialog* window_;
  QList<QWidget*> locked_controls_;
  QList<QPair<QPointer<QWidget>, QCursor>> own_pointers_;  // of controls that have one
  QPointer<QWidget> focus_;
  Brivon1::PanelConnection connection_;
  bool is_sending_ = false;
};
