// One caller of a TCP line: a socket and its conversation with the panels. It waits for its turn to
// be heard, and goes when its socket is closed and everything that arrived by it has been heard.
#pragma once

#include <QTcpSocket>

#include "lines/conversation.h"

namespace VirtualPanel {

class TcpConnection : public QObject, private Outlet {
  Q_OBJECT

 public:
  // Takes the socket over. The engine must outlive the connection.
  TcpConnection(PanelEngine* engine, QTcpSocket* socket, QObject* parent);
  ~TcpConnection() override;

  // Whether it has something to say.
  bool HasInput() const { return socket_->bytesAvailable() > 0; }
  // Hears it for a moment.
  void Hear();
  bool IsConnected() const { return socket_->state() == QAbstractSocket::ConnectedState; }
  // The bytes that are kept for this caller: a frame without an end, answers to come, answers that
  // were not read.
  qint64 Held() const { return conversation_.Held(); }
  // It goes at once, whatever it has still to say.
  void Cut();

 Q_SIGNALS:
  void HasSpoken();
  // What is held may have changed.
  void Worked();
  void Closed();

 private:
  void Send(const QByteArray& bytes) override { socket_->write(bytes); }
  qint64 Unsent() const override { return socket_->bytesToWrite(); }
  void HangUp() override { socket_->disconnectFromHost(); }

  void NoticeDeadCallers();
  void GoOnceHeard();
  void Go();

  QTcpSocket* socket_;
  Conversation conversation_;
};

}  // namespace VirtualPanel
