// The serial port of a window that sends: the rules' SerialPort over the toolkit's QSerialPort.
#pragma once

#include <QObject>
#include <QSerialPort>
#include <QSocketNotifier>

#include "panel_line/link.h"

namespace Brivon1 {

class SerialLink : public QObject, public SerialPort {
  Q_OBJECT

 public:
  /// The port object is a child named "Comm1".
  explicit SerialLink(QObject* parent);

  bool Open(const QString& device, const QByteArray& settings) override;
  void SetDtr(bool raised) override { port_->setDataTerminalReady(raised); }
  void SetRts(bool raised) override { port_->setRequestToSend(raised); }
  void Write(const QByteArray& bytes) override;
  qint64 Unsent() const override;
  int Speed() const override { return port_->baudRate(); }
  void GiveUp() override;
  QByteArray ReadAvailable() override;
  bool IsLost() const override { return is_lost_; }
  void Close() override;
  QString FailureReason() const override { return failure_reason_; }

 Q_SIGNALS:
  /// Bytes have arrived, the last ones that waited were handed to the system, or the line was lost.
  void Happened();

 private:
  void HandOver();
  void HandleError(QSerialPort::SerialPortError error);
  void Lose();
  void ClosePort();

  QSerialPort* port_;
  QSocketNotifier room_{QSocketNotifier::Write};  // enabled while bytes wait
  QByteArray waiting_;                            // written, and not yet taken by the system
  bool is_lost_ = false;
  bool answer_is_due_ = false;  // a frame has been written and nothing read since
  QByteArray saved_;            // what had arrived when the line was lost
  QString failure_reason_;
};

}  // namespace Brivon1
