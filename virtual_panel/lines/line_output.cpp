#include "lines/line_output.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace VirtualPanel {
namespace {

constexpr int kAgainMs = 10;
constexpr int kFinishLookMs = 10;
// Whoever has not read the last bytes after this many looks does not get them.
constexpr int kMostFinishLooks = 200;

}  // namespace

LineOutput::LineOutput(int descriptor, std::function<qint64()> on_its_way, QObject* parent)
    : QObject(parent),
      descriptor_(descriptor),
      on_its_way_(std::move(on_its_way)),
      writable_(descriptor, QSocketNotifier::Write) {
  writable_.setEnabled(false);
  connect(&writable_, &QSocketNotifier::activated, this, &LineOutput::Write);
  again_.setInterval(kAgainMs);
  again_.setSingleShot(true);
  connect(&again_, &QTimer::timeout, this, &LineOutput::Write);
  finish_timer_.setInterval(kFinishLookMs);
  connect(&finish_timer_, &QTimer::timeout, this, &LineOutput::FinishOnceGone);
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
  finish_timer_.stop();
}

void LineOutput::Finish() {
  finish_looks_ = 0;
  finish_timer_.start();
}

void LineOutput::FinishOnceGone() {
  ++finish_looks_;
  const bool is_gone = unsent_.isEmpty() && on_its_way_() == 0;
  if (!is_gone && finish_looks_ < kMostFinishLooks) return;
  finish_timer_.stop();
  Q_EMIT Finished();
}

}  // namespace VirtualPanel
