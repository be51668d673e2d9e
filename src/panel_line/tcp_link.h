// The TCP client of a window that sends: the rules' TcpSocket over the toolkit's QTcpSocket.
#pragma once

#include <QObject>
#include <QTcpSocket>

#include "panel_line/link.h"
#include "panel_line/links.h"

namespace Brivon1 {

class TcpLink : public QObject, public TcpSocket {
  Q_OBJECT

 public:
  /// The socket object is a child named "Winsock1". The first read behind a frame waits up to
  /// `prompt_answer` milliseconds for its answer.
  explicit TcpLink(QObject* parent, int prompt_answer = kPromptAnswer);

  void Connect(const QString& host, int port) override;
  bool IsConnected() const override;
  void Write(const QByteArray& bytes) override;
  qint64 Unsent() const override;
  int Speed() const override;
  QByteArray ReadAvailable() override;
  bool IsLost() const override { return !IsConnected(); }
  void Close() override;
  QString FailureReason() const override;

  /// Sleeps, without a look at any other event, until bytes arrive, the connection is lost, or so
  /// many milliseconds have passed. False at once where there is no connection.
  bool WaitForInput(qint64 at_most);

 Q_SIGNALS:
  /// Bytes have arrived, or the connection was lost.
  void Happened();

 private:
  QTcpSocket* socket_;
  const int prompt_answer_;
  QString endpoint_;
  bool answer_is_due_ = false;  // a frame has been written and nothing read since
};

}  // namespace Brivon1
