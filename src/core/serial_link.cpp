#include "core/serial_link.h"

#include <utility>

#include <QElapsedTimer>
#include <QFileInfo>

#include "core/text.h"
#include "core/waiting_input.h"

namespace Brivon1 {
namespace {

constexpr qint64 kLongestDrain = 3000;  // milliseconds for the last bytes to leave at a close

QString OpenFailure(const QString& device, const QString& system_reason) {
  QString reason = device + QStringLiteral(": ") + system_reason;
  const QFileInfo file(device);
  const bool group_may = file.permission(QFile::ReadGroup | QFile::WriteGroup);
  if (file.exists() && (!file.isReadable() || !file.isWritable()) && group_may) {
    reason += QStringLiteral(
                  "\nThe group \"%1\" may use this port: add your user to it and log in again.")
                  .arg(file.group());
  }
  return reason;
}

}  // namespace

SerialLink::SerialLink(QObject* parent) : QObject(parent), port_(new QSerialPort(this)) {
  port_->setObjectName(QStringLiteral("Comm1"));
  port_->setReadBufferSize(kReadBuffer);
  connect(port_, &QSerialPort::readyRead, this, &SerialLink::Happened);
  connect(port_, &QSerialPort::errorOccurred, this, &SerialLink::HandleError);
}

bool SerialLink::Open(const QString& device, const QByteArray& settings) {
  Close();
  is_lost_ = false;
  saved_.clear();
  failure_reason_.clear();
  const int baud_rate = LeadingNumber(settings, 0, 2147483647);
  port_->setPortName(device);
  const bool opened =
      port_->open(QIODevice::ReadWrite) && baud_rate > 0 && port_->setBaudRate(baud_rate) &&
      port_->setDataBits(QSerialPort::Data8) && port_->setParity(QSerialPort::NoParity) &&
      port_->setStopBits(QSerialPort::OneStop) && port_->setFlowControl(QSerialPort::NoFlowControl);
  if (!opened) {
    const bool bad_speed = port_->isOpen() && baud_rate == 0;
    failure_reason_ =
        OpenFailure(device, bad_speed ? QStringLiteral("0 baud") : port_->errorString());
    port_->close();
  }
  is_lost_ = false;
  return opened;
}

void SerialLink::Write(const QByteArray& bytes) {
  if (is_lost_ || !port_->isOpen()) return;
  if (port_->write(bytes) != bytes.size()) {
    Lose();
  } else {
    port_->flush();
    answer_is_due_ = true;
  }
}

QByteArray SerialLink::ReadAvailable() {
  const bool answer_is_due = std::exchange(answer_is_due_, false);
  if (port_->isOpen() && !is_lost_ && (answer_is_due || HasWaitingInput(port_->handle()))) {
    port_->waitForReadyRead(answer_is_due ? kPromptAnswer : 0);
  }
  QByteArray bytes = std::exchange(saved_, {});
  if (port_->isOpen()) bytes += port_->readAll();
  return bytes;
}

void SerialLink::Close() {
  if (!port_->isOpen()) return;
  QElapsedTimer draining;
  draining.start();
  while (!is_lost_ && port_->bytesToWrite() > 0 && draining.elapsed() < kLongestDrain) {
    port_->waitForBytesWritten(100);
  }
  if (!is_lost_) port_->flush();
  port_->close();
}

void SerialLink::HandleError(QSerialPort::SerialPortError error) {
  switch (error) {
    case QSerialPort::ReadError:
    case QSerialPort::WriteError:
    case QSerialPort::ResourceError:
      if (port_->isOpen()) Lose();
      break;
    default:
      break;  // opening and polling report theirs by their results
  }
}

void SerialLink::Lose() {
  if (std::exchange(is_lost_, true)) return;
  // A lost port reports its error over and over until it is closed, which cannot be done in here.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (!is_lost_ || !port_->isOpen()) return;
        saved_ += port_->readAll();
        port_->close();
      },
      Qt::QueuedConnection);
  Q_EMIT Happened();
}

}  // namespace Brivon1
