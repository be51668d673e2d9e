#include "ports/asio_port.h"

#include <utility>

#include <QPointer>

#include "ports/waiting_bytes.h"

namespace Ports {

AsioPort::AsioPort()
    : port_(
          [this] {
            QMetaObject::invokeMethod(
                this, [this] { TakeInNews(); }, Qt::QueuedConnection);
          },
          kReadBuffer) {}

bool AsioPort::Open(const QString& name, int baud_rate) {
  is_lost_ = false;
  saved_.clear();
  error_.clear();
  const bool opened = port_.Open(name.toStdString(), static_cast<unsigned>(baud_rate));
  if (!opened) error_ = QString::fromLocal8Bit(port_.Reason());
  return opened;
}

void AsioPort::Write(const QByteArray& bytes) {
  port_.Write(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

qint64 AsioPort::Waiting() const { return static_cast<qint64>(port_.Waiting()); }

qint64 AsioPort::Unsent() const { return static_cast<qint64>(port_.Unsent()); }

QByteArray AsioPort::Read(int wait) {
  QByteArray bytes = std::exchange(saved_, {});
  return bytes += QByteArray::fromStdString(port_.Read(wait));
}

void AsioPort::Close() {
  // The port's thread may have seen a loss that has not been told yet.
  if (port_.IsLost()) {
    error_ = QString::fromLocal8Bit(port_.Reason());
    is_lost_ = true;
  }
  port_.Close();
}

void AsioPort::TakeInNews() {
  const AsyncPort::News news = port_.TakeNews();
  // Whoever hears of the news may remove the port.
  const QPointer<AsioPort> self(this);
  if (news.has_left) Q_EMIT BytesHaveLeft();
  if (self && news.has_input) Q_EMIT Arrived();
  // Whoever has heard of the news may have opened the port again.
  if (self && port_.IsLost()) Lose();
}

void AsioPort::Lose() {
  error_ = QString::fromLocal8Bit(port_.Reason());
  saved_ += QByteArray::fromStdString(port_.Read(0));
  is_lost_ = true;
  port_.Close();
  Q_EMIT Lost();
}

}  // namespace Ports
