// The TCP client of a window that sends: the rules' TcpSocket over the toolkit's QTcpSocket.
#pragma once

#include <QObject>
#include <QTcpSocket>

#include "panel_line/link.h"

namespace Brivon1 {

class TcpLink : public QObject, public TcpSocket {
  Q_OBJECT

 public:
  /// The socket object is a child named "Winsock1".
  explicit TcpLink(QObject* parent);

  void Connect(const QString& host, int port) override;
  bool IsConnected() const override;
  void Write(const QByteArray& bytes) override;
  qint64 Unsent() const override;
  int Speed() const override;
  QByteArray ReadAvailable() override;
  bool IsLost() const override { return !IsConnected(); }
  void Close() override;
  QString FailureReason() const override;

 Q_SIGNALS:
  /// Bytes have arrived, or the connection was lost.
  void Happened();

 private:
  QTcpSocket* socket_;
  QString endpoint_;
  bool answer_is_due_ = false;  // a frame has been written and nothing read since
};

}  // namespace Brivon1
