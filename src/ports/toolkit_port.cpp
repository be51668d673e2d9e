#include "ports/toolkit_port.h"

#include <optional>
#include <utility>

#include "ports/toolkit_system.h"
#include "ports/waiting_bytes.h"

namespace Ports {

ToolkitPort::ToolkitPort() {
  constexpr int kAgainMs = 10;
  port_.setReadBufferSize(kReadBuffer);
  again_.setInterval(kAgainMs);
  again_.setSingleShot(true);
  connect(&port_, &QSerialPort::readyRead, this, &Port::Arrived);
  connect(&port_, &QSerialPort::bytesWritten, this, &Port::BytesHaveLeft);
  connect(&port_, &QSerialPort::errorOccurred, this, &ToolkitPort::HandleError);
  connect(&room_, &QSocketNotifier::activated, this, [this] { HandOver(true); });
  connect(&again_, &QTimer::timeout, this, [this] { HandOver(true); });
}

ToolkitPort::~ToolkitPort() {
  port_.disconnect();
  Close();
}

bool ToolkitPort::Open(const QString& name, int baud_rate) {
  Close();
  is_lost_ = false;
  saved_.clear();
  error_.clear();
  // All of it while the port is closed, so that it never stands at another speed.
  port_.setPortName(name);
  port_.setBaudRate(baud_rate);
  port_.setDataBits(QSerialPort::Data8);
  port_.setParity(QSerialPort::NoParity);
  port_.setStopBits(QSerialPort::OneStop);
  port_.setFlowControl(QSerialPort::NoFlowControl);
  const bool opened = port_.open(QIODevice::ReadWrite);
  if (opened) {
    room_.setSocket(Descriptor(port_));
  } else {
    error_ = port_.errorString();
  }
  is_lost_ = false;
  return opened;
}

void ToolkitPort::Write(const QByteArray& bytes) {
  if (is_lost_ || !port_.isOpen()) return;
  waiting_ += bytes;
  HandOver(false);
}

void ToolkitPort::HandOver(bool is_called_writable) {
  if (is_lost_ || !port_.isOpen()) return;
  const std::optional<qsizetype> taken = WriteWhatFits(port_, waiting_);
  if (!taken) {
    Lose(qt_error_string());
    return;
  }
  waiting_.remove(0, *taken);
  // A terminal may be called writable where it has no room for a single byte.
  const bool is_stuck = is_called_writable && !waiting_.isEmpty() && *taken == 0;
  room_.setEnabled(!waiting_.isEmpty() && !is_stuck);
  if (is_stuck) again_.start();
  if (*taken > 0) {
    // Not at once: a flood would never come to an end.
    QMetaObject::invokeMethod(this, &Port::BytesHaveLeft, Qt::QueuedConnection);
  }
}

qint64 ToolkitPort::Waiting() const { return waiting_.size() + port_.bytesToWrite(); }

qint64 ToolkitPort::Unsent() const {
  if (is_lost_ || !port_.isOpen()) return 0;
  return Waiting() + BytesInSystem(Descriptor(port_));
}

void ToolkitPort::Discard() {
  room_.setEnabled(false);
  again_.stop();
  waiting_.clear();
  port_.clear(QSerialPort::Output);
}

QByteArray ToolkitPort::Read(int wait) {
  if (port_.isOpen() && !is_lost_ && (wait > 0 || HasWaitingInput(Descriptor(port_)))) {
    port_.waitForReadyRead(wait);
  }
  QByteArray bytes = std::exchange(saved_, {});
  if (port_.isOpen()) bytes += port_.readAll();
  return bytes;
}

void ToolkitPort::Close() {
  if (!port_.isOpen()) return;
  // The system would wait for what it holds, and send it at the speed that the port had before.
  if (Unsent() > 0) port_.clear(QSerialPort::Output);
  ClosePort();
}

void ToolkitPort::ClosePort() {
  room_.setEnabled(false);
  again_.stop();
  waiting_.clear();
  port_.close();
}

void ToolkitPort::HandleError(QSerialPort::SerialPortError error) {
  switch (error) {
    case QSerialPort::ReadError:
    case QSerialPort::WriteError:
    case QSerialPort::ResourceError:
      if (port_.isOpen()) Lose(port_.errorString());
      break;
    default:
      break;  // opening and polling report theirs by their results
  }
}

void ToolkitPort::Lose(const QString& reason) {
  if (std::exchange(is_lost_, true)) return;
  error_ = reason;
  room_.setEnabled(false);
  again_.stop();
  waiting_.clear();
  // A lost port reports its error over and over until it is closed, which cannot be done in here.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (!is_lost_ || !port_.isOpen()) return;
        saved_ += port_.readAll();
        ClosePort();
      },
      Qt::QueuedConnection);
  Q_EMIT Lost();
}

}  // namespace Ports
