#include "lines/line_output.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace VirtualPanel {
namespace {

constexpr int kAgainMs = 10;

}  // namespace

LineOutput::LineOutput(int descriptor, std::function<qint64()> on_its_way, QObject* parent)
    : QObject(parent),
      descriptor_(descriptor),
      writable_(descriptor, QSocketNotifier::Write),
      last_bytes_([this, on_its_way = std::move(on_its_way)] {
        return unsent_.isEmpty() && on_its_way() == 0;
      }) {
  writable_.setEnabled(false);
  connect(&writable_, &QSocketNotifier::activated, this, &LineOutput::Write);
  again_.setInterval(kAgainMs);
  again_.setSingleShot(true);
  connect(&again_, &QTimer::timeout, this, &LineOutput::Write);
  connect(&last_bytes_, &LastBytes::Finished, this, &LineOutput::Finished);
}

void LineOutput::Send(const QByteArray& bytes) {
  unsent_ += bytes;
  if (!writable_.isEnabled() && !again_.isActive()) Write();
}

void LineOutput::Write() {
  bool has_written = false;
  ssize_t size = 0;
  while (!unsent_.isEmpty()) {
    size = ::write(descriptor_, unsent_.constData(), static_cast<size_t>(unsent_.size()));
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) break;
    unsent_.remove(0, size);
    has_written = true;
  }
  if (size < 0 && errno != EAGAIN && errno != EWOULDBLOCK) {
    const QString reason = QString::fromLocal8Bit(std::strerror(errno));
    unsent_.clear();
    writable_.setEnabled(false);
    QMetaObject::invokeMethod(
        this, [this, reason] { Q_EMIT Failed(reason); }, Qt::QueuedConnection);
    return;
  }
  // A terminal may be called writable where it has no room for a single byte.
  const bool is_stuck = !unsent_.isEmpty() && !has_written;
  writable_.setEnabled(!unsent_.isEmpty() && !is_stuck);
  if (is_stuck) again_.start();
  if (has_written) {
    // Not at once: a flood would never come to an end.
    QMetaObject::invokeMethod(this, &LineOutput::BytesHaveLeft, Qt::QueuedConnection);
  }
}

void LineOutput::Close() {
  disconnect();
  unsent_.clear();
  writable_.setEnabled(false);
  again_.stop();
  last_bytes_.Stop();
}

}  // namespace VirtualPanel
