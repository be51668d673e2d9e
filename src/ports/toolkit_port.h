// A serial port carried by the toolkit's own QSerialPort.
#pragma once

#include <QSerialPort>
#include <QSocketNotifier>
#include <QTimer>

#include "ports/port.h"

namespace Ports {

class ToolkitPort final : public Port {
  Q_OBJECT

 public:
  ToolkitPort();
  ~ToolkitPort() override;

  bool Open(const QString& name, int baud_rate) override;
  bool IsOpen() const override { return port_.isOpen(); }
  bool IsLost() const override { return is_lost_; }
  QString ErrorString() const override { return error_; }
  void SetDtr(bool raised) override { port_.setDataTerminalReady(raised); }
  void SetRts(bool raised) override { port_.setRequestToSend(raised); }
  void Write(const QByteArray& bytes) override;
  qint64 Waiting() const override;
  qint64 Unsent() const override;
  void Discard() override;
  QByteArray Read(int wait) override;
  void Close() override;

 private:
  void HandOver(bool is_called_writable);
  void HandleError(QSerialPort::SerialPortError error);
  void Lose(const QString& reason);
  void ClosePort();

  QSerialPort port_{this};
  QSocketNotifier room_{QSocketNotifier::Write, this};  // enabled while bytes wait
  QTimer again_{this};                                  // running where there is no room at all
  QByteArray waiting_;                                  // written, and not yet taken by the system
  bool is_lost_ = false;
  QByteArray saved_;  // what had arrived when the port was lost
  QString error_;
};

}  // namespace Ports
