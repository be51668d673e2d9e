#include "lines/serial_line.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace VirtualPanel {

SerialLine::SerialLine(PanelEngine* engine, QObject* parent, std::unique_ptr<Ports::Port> port)
    : QObject(parent),
      port_(std::move(port)),
      conversation_(engine, u"serial"_s, this),
      last_bytes_([this] { return port_->Unsent() == 0; }) {
  connect(port_.get(), &Ports::Port::Arrived, this,
          [this] { conversation_.Receive(port_->Read()); });
  connect(port_.get(), &Ports::Port::BytesHaveLeft, &conversation_, &Conversation::BytesHaveLeft);
  // Not at once: the port may be in the middle of a write that the conversation asked for.
  connect(
      port_.get(), &Ports::Port::Lost, this, [this] { Lose(port_->ErrorString()); },
      Qt::QueuedConnection);
  connect(&last_bytes_, &LastBytes::Finished, this, &SerialLine::Unplug);
}

SerialLine::~SerialLine() {
  port_->disconnect();
  Close();
}

bool SerialLine::Open(const QString& device, qint32 baud_rate) {
  Close();
  error_.clear();
  is_open_ = port_->Open(device, baud_rate);
  if (!is_open_) error_ = port_->ErrorString();
  return is_open_;
}

void SerialLine::Close() {
  is_open_ = false;
  last_bytes_.Stop();
  port_->Close();
  conversation_.Reset();
}

void SerialLine::Unplug() { Lose(u"unplugged"_s); }

void SerialLine::Send(const QByteArray& bytes) { port_->Write(bytes); }

qint64 SerialLine::Unsent() const { return port_->Waiting(); }

void SerialLine::HangUp() { last_bytes_.Await(); }

void SerialLine::Lose(const QString& reason) {
  if (!is_open_) return;
  Close();
  error_ = reason;
  Q_EMIT Unplugged(reason);
}

}  // namespace VirtualPanel
