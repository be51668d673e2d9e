// Panels on a serial port of this machine: 8 data bits, no parity, 1 stop bit.
#pragma once

#include <memory>

#include <QSerialPort>

#include "lines/conversation.h"
#include "lines/line_output.h"

namespace VirtualPanel {

class SerialLine : public QObject, private Outlet {
  Q_OBJECT

 public:
  static constexpr qint32 kUsualBaudRate = 9600;

  // The engine must outlive the line.
  explicit SerialLine(PanelEngine* engine, QObject* parent = nullptr);
  ~SerialLine() override;

  // `device` is a name such as ttyS0 or a path. False, with the reason in ErrorString, if it fails.
  bool Open(const QString& device, qint32 baud_rate = kUsualBaudRate);
  bool IsOpen() const { return port_.isOpen(); }
  QString ErrorString() const { return error_; }
  // Takes the panels off the line.
  void Unplug();

 Q_SIGNALS:
  void Unplugged(const QString& reason);

 private:
  void Send(const QByteArray& bytes) override;
  qint64 Unsent() const override;
  void HangUp() override;
  qint64 OnItsWay() const;  // bytes that the system holds and has not sent yet
  void Close();
  void Lose(const QString& reason);

  QSerialPort port_;
  // The port's own way of writing takes a full buffer for a lost line.
  std::unique_ptr<LineOutput> output_;
  Conversation conversation_;
  QString error_;
};

}  // namespace VirtualPanel
