#include "panel_line/serial_link.h"

#include <limits>
#include <utility>

#include <QFileInfo>

#include "base/text.h"
#include "language/further_texts.h"
#include "panel_line/links.h"

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

SerialLink::SerialLink(QObject* parent, std::unique_ptr<Ports::Port> port)
    : QObject(parent), port_(port.release()) {
  port_->setParent(this);
  port_->setObjectName(u"Comm1"_s);
  connect(port_, &Ports::Port::Arrived, this, &SerialLink::Happened);
  connect(port_, &Ports::Port::BytesHaveLeft, this, &SerialLink::TakeInLeaving);
  connect(port_, &Ports::Port::Lost, this, &SerialLink::Happened);
}

bool SerialLink::Open(const QString& device, const QByteArray& settings) {
  Close();
  has_had_to_wait_ = false;
  failure_reason_.clear();
  const int baud_rate = LeadingNumber(settings, 0, std::numeric_limits<int>::max());
  if (baud_rate == 0) {
    failure_reason_ = OpenFailure(device, u"0 baud"_s);
    return false;
  }
  baud_rate_ = baud_rate;
  const bool opened = port_->Open(device, baud_rate);
  if (!opened) failure_reason_ = OpenFailure(device, port_->ErrorString());
  return opened;
}

void SerialLink::Write(const QByteArray& bytes) {
  if (IsLost() || !port_->IsOpen()) return;
  answer_is_due_ = true;
  port_->Write(bytes);
  has_had_to_wait_ = has_had_to_wait_ || port_->Waiting() > 0;
}

void SerialLink::TakeInLeaving() {
  if (!has_had_to_wait_ || port_->Waiting() > 0) return;
  has_had_to_wait_ = false;
  Q_EMIT Happened();
}

void SerialLink::GiveUp() {
  if (Unsent() == 0) return;
  port_->Discard();
  Write("\r\n");
}

QByteArray SerialLink::ReadAvailable() {
  const bool answer_is_due = std::exchange(answer_is_due_, false);
  return port_->Read(answer_is_due ? kPromptAnswer : 0);
}

}  // namespace Brivon1
