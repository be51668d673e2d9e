#include "panel_line/serial_link.h"

#include <limits>
#include <utility>

#include <QFileInfo>

#include "base/text.h"
#include "language/further_texts.h"
#include "panel_line/waiting_input.h"
#include "panel_line/waiting_output.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using ModuleLanguage::TranslateText;

QString OpenFailure(const QString& device, const QString& system_reason) {
  QString reason = device + u": "_s + TranslateText(system_reason);
  const QFileInfo file(device);
  const bool group_may = file.permission(QFile::ReadGroup | QFile::WriteGroup);
  if (file.exists() && (!file.isReadable() || !file.isWritable()) && group_may) {
    reason +=
        u'\n' + TranslateText(
                    u"The group \"%1\" may use this port: add your user to it and log in again."_s)
                    .arg(file.group());
  }
  return reason;
}

}  // namespace

SerialLink::SerialLink(QObject* parent) : QObject(parent), port_(new QSerialPort(this)) {
  port_->setObjectName(u"Comm1"_s);
  port_->setReadBufferSize(kReadBuffer);
  connect(port_, &QSerialPort::readyRead, this, &SerialLink::Happened);
  connect(port_, &QSerialPort::errorOccurred, this, &SerialLink::HandleError);
  connect(&room_, &QSocketNotifier::activated, this, &SerialLink::HandOver);
}

bool SerialLink::Open(const QString& device, const QByteArray& settings) {
  Close();
  is_lost_ = false;
  saved_.clear();
  failure_reason_.clear();
  const int baud_rate = LeadingNumber(settings, 0, std::numeric_limits<int>::max());
  if (baud_rate == 0) {
    failure_reason_ = OpenFailure(device, u"0 baud"_s);
    return false;
  }
  // All of it while the port is closed, so that it never stands at another speed.
  port_->setPortName(device);
  port_->setBaudRate(baud_rate);
  port_->setDataBits(QSerialPort::Data8);
  port_->setParity(QSerialPort::NoParity);
  port_->setStopBits(QSerialPort::OneStop);
  port_->setFlowControl(QSerialPort::NoFlowControl);
  const bool opened = port_->open(QIODevice::ReadWrite);
  if (opened) {
    room_.setSocket(port_->handle());
  } else {
    failure_reason_ = OpenFailure(device, port_->errorString());
  }
  is_lost_ = false;
  return opened;
}

void SerialLink::Write(const QByteArray& bytes) {
  if (is_lost_ || !port_->isOpen()) return;
  waiting_ += bytes;
  answer_is_due_ = true;
  HandOver();
}

void SerialLink::HandOver() {
  const std::optional<qsizetype> taken = WriteWhatFits(*port_, waiting_);
  waiting_.remove(0, taken.value_or(waiting_.size()));
  const bool had_to_wait = room_.isEnabled();
  room_.setEnabled(!waiting_.isEmpty());
  if (!taken) {
    Lose();
  } else if (had_to_wait && waiting_.isEmpty()) {
    Q_EMIT Happened();
  }
}

qint64 SerialLink::Unsent() const {
  if (is_lost_ || !port_->isOpen()) return 0;
  return waiting_.size() + port_->bytesToWrite() + BytesInSystem(port_->handle());
}

void SerialLink::GiveUp() {
  if (Unsent() == 0) return;
  waiting_.clear();
  port_->clear(QSerialPort::Output);
  Write("\r\n");
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
  // The system would wait for what it holds, and send it at the speed that the port had before.
  if (Unsent() > 0) port_->clear(QSerialPort::Output);
  ClosePort();
}

void SerialLink::ClosePort() {
  room_.setEnabled(false);
  waiting_.clear();
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
        ClosePort();
      },
      Qt::QueuedConnection);
  Q_EMIT Happened();
}

}  // namespace Brivon1
