#include "panel_dots/picture_view.h"

#include <utility>

#include <QPaintEvent>

using namespace Qt::StringLiterals;

namespace PanelDots {
namespace {

constexpr char kAppear = 'A';
// Nobody sees a text move more often than that.
constexpr qint64 kLeastScrollMs = 20;

}  // namespace

std::optional<Entrance> EntranceInto(const DotMatrix& before, char code, qint64 began_ms) {
  if (code == kAppear) return std::nullopt;
  return Entrance{before, code, began_ms};
}

PictureView::PictureView(TimeSource now, QWidget* parent) : QWidget(parent), now_(std::move(now)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  blink_timer_.setObjectName(u"blink_timer_"_s);
  scroll_timer_.setObjectName(u"scroll_timer_"_s);
  entrance_timer_.setObjectName(u"entrance_timer_"_s);
  for (QTimer* timer : {&blink_timer_, &scroll_timer_, &entrance_timer_}) {
    timer->setParent(this);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
  }
  connect(&blink_timer_, &QTimer::timeout, this, &PictureView::Blink);
  connect(&scroll_timer_, &QTimer::timeout, this, [this] {
    Scroll();
    StartScrollTimer(now_());
  });
  connect(&entrance_timer_, &QTimer::timeout, this, &PictureView::Enter);
}

void PictureView::Show(PanelPicture picture, const QDateTime& now) {
  picture.scroll_speed = picture_.scroll_speed;
  picture_ = std::move(picture);
  is_blinking_ = HasBlinkingCells(picture_);
  QStringList lines;
  for (int row = 1; row <= picture_.shape.rows; ++row) {
    if (picture_.scrolling_texts.contains(row)) {
      lines.append(RowText(picture_.scrolling_texts[row].cells, picture_.clock));
    } else if (picture_.rows.contains(row)) {
      lines.append(RowText(picture_.rows[row], picture_.clock));
    }
  }
  setAccessibleDescription(lines.join(QLatin1Char('\n')));
  update();
  StartTimers(now);
}

void PictureView::Blink() {
  update();
  StartTimers(now_());
}

void PictureView::Scroll() {
  for (auto text = picture_.scrolling_texts.cbegin(); text != picture_.scrolling_texts.cend();
       ++text) {
    const QRectF row = RowRect(size(), picture_.shape, text.key(), devicePixelRatioF());
    // Where the view itself lies between two pixels, what is drawn is moved to a whole one.
    update(row.toAlignedRect().adjusted(-1, -1, 1, 1));
  }
}

void PictureView::Enter() {
  const QDateTime now = now_();
  StartEntranceTimer(now);
  if (!MsToNextFrame(picture_, now.toMSecsSinceEpoch())) {
    picture_.entrance.reset();
    Q_EMIT Entered();
  }
  update();
}

void PictureView::SetSeen(bool is_seen) {
  is_seen_ = is_seen;
  StartTimers(now_());
}

void PictureView::SetScrollSpeed(int dots_per_second) {
  picture_.scroll_speed = dots_per_second;
  update();
  StartScrollTimer(now_());
}

void PictureView::StartTimers(const QDateTime& now) {
  StartBlinkTimer(now);
  StartScrollTimer(now);
  StartEntranceTimer(now);
}

void PictureView::StartBlinkTimer(const QDateTime& now) {
  // To the next change of phase, so that nothing drifts.
  std::optional<qint64> wait;
  if (is_blinking_) wait = kBlinkMs - now.toMSecsSinceEpoch() % kBlinkMs;
  StartTimer(&blink_timer_, wait);
}

void PictureView::StartScrollTimer(const QDateTime& now) {
  std::optional<qint64> wait;
  for (const ScrollingText& text : std::as_const(picture_.scrolling_texts)) {
    const qint64 to_next_dot = MsToNextDot(text, picture_, now.toMSecsSinceEpoch());
    wait = wait ? qMin(*wait, to_next_dot) : to_next_dot;
  }
  if (wait) wait = qMax(*wait, kLeastScrollMs);
  StartTimer(&scroll_timer_, wait);
}

void PictureView::StartEntranceTimer(const QDateTime& now) {
  StartTimer(&entrance_timer_, MsToNextFrame(picture_, now.toMSecsSinceEpoch()));
}

void PictureView::StartTimer(QTimer* timer, std::optional<qint64> wait_ms) const {
  if (wait_ms && is_seen_) {
    timer->start(static_cast<int>(*wait_ms));
  } else {
    timer->stop();
  }
}

void PictureView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  // A text that scrolls is drawn often, and it alone.
  painter.setClipRegion(event->region());
  DrawPanel(&painter, size(), picture_, now_().toMSecsSinceEpoch());
}

}  // namespace PanelDots
