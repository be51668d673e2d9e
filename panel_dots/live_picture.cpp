#include "panel_dots/live_picture.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace PanelDots {
namespace {

constexpr int kMinuteMs = 60'000;

}  // namespace

LivePicture::LivePicture(QWidget* parent) : PictureView([this] { return time_source_(); }, parent) {
  clock_timer_.setParent(this);
  clock_timer_.setObjectName(u"clock_timer_"_s);
  clock_timer_.setSingleShot(true);
  connect(&clock_timer_, &QTimer::timeout, this, &LivePicture::ShowClock);
}

void LivePicture::SetTimeSource(TimeSource now) { time_source_ = std::move(now); }

void LivePicture::ShowNow(PanelPicture picture) {
  const QDateTime now = time_source_();
  picture.clock = now;
  Show(std::move(picture), now);
  StartClockTimer(now);
}

void LivePicture::ShowClock() { ShowNow(Picture()); }

void LivePicture::StartClockTimer(const QDateTime& now) {
  // To the next minute: no panel shows seconds.
  if (isVisible() && HasClockCells(Picture())) {
    clock_timer_.start(kMinuteMs - now.time().msecsSinceStartOfDay() % kMinuteMs);
  } else {
    clock_timer_.stop();
  }
}

void LivePicture::showEvent(QShowEvent* event) {
  PictureView::showEvent(event);
  ShowClock();
  SetSeen(true);
}

void LivePicture::hideEvent(QHideEvent* event) {
  PictureView::hideEvent(event);
  clock_timer_.stop();
  SetSeen(false);
}

}  // namespace PanelDots
