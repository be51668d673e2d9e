#include "lines/serial_line.h"

#include <sys/ioctl.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace VirtualPanel {

SerialLine::SerialLine(PanelEngine* engine, QObject* parent)
    : QObject(parent), conversation_(engine, u"serial"_s, this) {
  connect(&port_, &QSerialPort::readyRead, this,
          [this] { conversation_.Receive(port_.readAll()); });
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

SerialLine::~SerialLine() {
  port_.disconnect();
  Close();
}

bool SerialLine::Open(const QString& device, qint32 baud_rate) {
  Close();
  error_.clear();
  port_.setPortName(device);
  // All of it while the port is closed, so that it never stands at another speed.
  port_.setBaudRate(baud_rate);
  port_.setDataBits(QSerialPort::Data8);
  port_.setParity(QSerialPort::NoParity);
  port_.setStopBits(QSerialPort::OneStop);
  port_.setFlowControl(QSerialPort::NoFlowControl);
  if (port_.open(QIODevice::ReadWrite)) {
    output_ = std::make_unique<LineOutput>(port_.handle(), [this] { return OnItsWay(); });
    connect(output_.get(), &LineOutput::BytesHaveLeft, &conversation_,
            &Conversation::BytesHaveLeft);
    connect(output_.get(), &LineOutput::Failed, this, &SerialLine::Lose);
    connect(output_.get(), &LineOutput::Finished, this, &SerialLine::Unplug);
    return true;
  }
  error_ = port_.errorString();
  if (port_.isOpen()) port_.close();
  return false;
}

void SerialLine::Close() {
  if (output_ != nullptr) {
    // It may be the one that is calling.
    output_->Close();
    output_.release()->deleteLater();
  }
  if (port_.isOpen()) {
    // The system would wait for a line that takes nothing.
    if (OnItsWay() > 0) port_.clear(QSerialPort::Output);
    port_.close();
  }
  conversation_.Reset();
}

void SerialLine::Unplug() { Lose(u"unplugged"_s); }

void SerialLine::Send(const QByteArray& bytes) {
  if (output_ != nullptr) output_->Send(bytes);
}

qint64 SerialLine::Unsent() const { return output_ == nullptr ? 0 : output_->Unsent(); }

qint64 SerialLine::OnItsWay() const {
  int waiting = 0;
  return ::ioctl(port_.handle(), TIOCOUTQ, &waiting) == 0 ? waiting : 0;
}

void SerialLine::HangUp() {
  if (output_ != nullptr) output_->Finish();
}

void SerialLine::Lose(const QString& reason) {
  if (!port_.isOpen()) return;
  Close();
  error_ = reason;
  Q_EMIT Unplugged(reason);
}

}  // namespace VirtualPanel
