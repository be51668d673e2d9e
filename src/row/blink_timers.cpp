#include "row/blink_timers.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int kBlinkMilliseconds = 500;

QTimer* TimerNamed(const QString& name, QObject* window) {
  auto* timer = new QTimer(window);
  timer->setObjectName(name);
  timer->setInterval(kBlinkMilliseconds);
  return timer;
}

}  // namespace

BlinkTimers::BlinkTimers(QObject* window)
    : QObject(window),
      cursor_timer_(TimerNamed(u"Timer1"_s, window)),
      character_timer_(TimerNamed(u"Timer2"_s, window)) {
  connect(cursor_timer_, &QTimer::timeout, this, [this] { SetCursorShown(!cursor_shown_); });
  connect(character_timer_, &QTimer::timeout, this, [this] {
    characters_hidden_ = !characters_hidden_;
    Q_EMIT CharactersBlinked(characters_hidden_);
  });
  character_timer_->start();
}

void BlinkTimers::ShowCursor() {
  SetCursorShown(true);
  cursor_timer_->start();
}

void BlinkTimers::SetCursorShown(bool shown) {
  cursor_shown_ = shown;
  Q_EMIT CursorBlinked(shown);
}
