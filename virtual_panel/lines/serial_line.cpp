#include "lines/serial_line.h"

namespace VirtualPanel {

SerialLine::SerialLine(PanelEngine* engine, QObject* parent)
    : QObject(parent), conversation_(engine, QStringLiteral("serial"), this) {
  connect(&port_, &QSerialPort::readyRead, this,
          [this] { conversation_.Receive(port_.readAll()); });
  connect(&port_, &QSerialPort::bytesWritten, &conversation_, &Conversation::BytesHaveLeft);
  connect(&port_, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
    // Errors of opening are reported by Open. Reading and writing fail only when the line is gone,
    // and then again and again: the first one closes it.
    if (error == QSerialPort::ReadError || error == QSerialPort::WriteError ||
        error == QSerialPort::ResourceError) {
      const QString reason = port_.errorString();
      QMetaObject::invokeMethod(
          this, [this, reason] { Lose(reason); }, Qt::QueuedConnection);
    }
  });
}

SerialLine::~SerialLine() { port_.disconnect(); }

bool SerialLine::Open(const QString& device, qint32 baud_rate) {
  if (port_.isOpen()) port_.close();
  conversation_.Reset();
  error_.clear();
  port_.setPortName(device);
  if (port_.open(QIODevice::ReadWrite) && port_.setBaudRate(baud_rate) &&
      port_.setDataBits(QSerialPort::Data8) && port_.setParity(QSerialPort::NoParity) &&
      port_.setStopBits(QSerialPort::OneStop) && port_.setFlowControl(QSerialPort::NoFlowControl)) {
    return true;
  }
  error_ = port_.errorString();
  if (port_.isOpen()) port_.close();
  return false;
}

void SerialLine::Unplug() { Lose(QStringLiteral("unplugged")); }

void SerialLine::Send(const QByteArray& bytes) {
  if (port_.isOpen()) port_.write(bytes);
}

qint64 SerialLine::Unsent() const { return port_.bytesToWrite(); }

void SerialLine::HangUp() {
  port_.flush();
  // Not at once: the port may be the one that is calling.
  QMetaObject::invokeMethod(this, &SerialLine::Unplug, Qt::QueuedConnection);
}

void SerialLine::Lose(const QString& reason) {
  if (!port_.isOpen()) return;
  port_.close();
  conversation_.Reset();
  error_ = reason;
  Q_EMIT Unplugged(reason);
}

}  // namespace VirtualPanel
