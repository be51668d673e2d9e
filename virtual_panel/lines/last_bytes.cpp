#include "lines/last_bytes.h"

#include <utility>

namespace VirtualPanel {
namespace {

constexpr int kLookMs = 10;
// Whoever has not read the last bytes after this many looks does not get them.
constexpr int kMostLooks = 200;

}  // namespace

LastBytes::LastBytes(std::function<bool()> are_gone, QObject* parent)
    : QObject(parent), are_gone_(std::move(are_gone)) {
  timer_.setInterval(kLookMs);
  connect(&timer_, &QTimer::timeout, this, &LastBytes::Look);
}

void LastBytes::Await() {
  looks_ = 0;
  timer_.start();
}

void LastBytes::Look() {
  ++looks_;
  if (!are_gone_() && looks_ < kMostLooks) return;
  timer_.stop();
  Q_EMIT Finished();
}

}  // namespace VirtualPanel
