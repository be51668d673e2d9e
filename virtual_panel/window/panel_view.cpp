#include "window/panel_view.h"

#include <utility>

#include <QPaintEvent>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

using PanelDots::Entrance;
using PanelDots::PageRows;
using PanelDots::PanelShape;
using PanelDots::ScrollingText;
using PanelDots::ScrollingTexts;

constexpr char kAppear = 'A';
// Nobody sees a text move more often than that.
constexpr qint64 kLeastScrollMs = 20;

PanelShape ShapeOf(const PanelDescription& description) {
  return {description.rows, description.columns, description.tri_colour};
}

PageRows RowsOf(const StoredPage& page) {
  PageRows rows;
  for (auto row = page.cbegin(); row != page.cend(); ++row) rows.insert(row.key(), row->cells);
  return rows;
}

ScrollingTexts TextsOf(const ScrollingLines& lines) {
  ScrollingTexts texts;
  for (auto line = lines.cbegin(); line != lines.cend(); ++line) {
    texts.insert(line.key(), {line->row.cells, line->began_ms});
  }
  return texts;
}

}  // namespace

PanelView::PanelView(const PanelEngine* engine, int id, QWidget* parent)
    : QWidget(parent), engine_(engine), id_(id) {
  setObjectName(u"panel_%1"_s.arg(id));
  setAccessibleName(u"Panel %1"_s.arg(id));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  const auto prepare = [&](QTimer* timer, const char* name) {
    timer->setObjectName(QLatin1String(name) + QString::number(id));
    timer->setParent(this);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
  };
  prepare(&blink_timer_, "blink_timer_");
  prepare(&scroll_timer_, "scroll_timer_");
  prepare(&entrance_timer_, "entrance_timer_");
  connect(&blink_timer_, &QTimer::timeout, this, &PanelView::Blink);
  connect(&scroll_timer_, &QTimer::timeout, this, [this] {
    Scroll();
    StartScrollTimer(engine_->Now());
  });
  connect(&entrance_timer_, &QTimer::timeout, this, &PanelView::Enter);
  picture_.shape = ShapeOf(engine_->FindPanel(id)->Description());
  Refresh(engine_->Now());
}

void PanelView::Refresh(const QDateTime& now) {
  const Panel& panel = *engine_->FindPanel(id_);
  auto entrance = NextEntrance(now);
  picture_ = {ShapeOf(panel.Description()),
              RowsOf(panel.ShownRows(now)),
              panel.Clock(now),
              TextsOf(panel.Memory().Scrolling()),
              scroll_speed_,
              std::move(entrance)};
  is_blinking_ = PanelDots::HasBlinkingCells(picture_);
  QStringList lines;
  for (int row = 1; row <= picture_.shape.rows; ++row) {
    if (picture_.scrolling_texts.contains(row)) {
      lines.append(PanelDots::RowText(picture_.scrolling_texts[row].cells, picture_.clock));
    } else if (picture_.rows.contains(row)) {
      lines.append(PanelDots::RowText(picture_.rows[row], picture_.clock));
    }
  }
  setAccessibleDescription(lines.join(QLatin1Char('\n')));
  update();
  StartTimers(now);
}

std::optional<Entrance> PanelView::NextEntrance(const QDateTime& now) {
  const auto last = engine_->LastEntrance(id_, now);
  const bool is_other =
      last.has_value() != last_entrance_.has_value() ||
      (last && (last->page != last_entrance_->page || last->began_ms != last_entrance_->began_ms));
  last_entrance_ = last;
  // The effect of a page that has entered already may become another one: that comes too late.
  if (!is_other) return picture_.entrance;
  if (!last || last->effect == kAppear) return std::nullopt;
  return Entrance{PanelDots::DotsOf(picture_, now.toMSecsSinceEpoch()), last->effect,
                  last->began_ms};
}

void PanelView::Blink() {
  update();
  StartTimers(engine_->Now());
}

void PanelView::Scroll() {
  for (auto text = picture_.scrolling_texts.cbegin(); text != picture_.scrolling_texts.cend();
       ++text) {
    const QRectF row = PanelDots::RowRect(size(), picture_.shape, text.key(), devicePixelRatioF());
    // Where the view itself lies between two pixels, what is drawn is moved to a whole one.
    update(row.toAlignedRect().adjusted(-1, -1, 1, 1));
  }
}

void PanelView::Enter() {
  const QDateTime now = engine_->Now();
  StartEntranceTimer(now);
  if (!PanelDots::MsToNextFrame(picture_, now.toMSecsSinceEpoch())) {
    picture_.entrance.reset();
    Q_EMIT Entered();
  }
  update();
}

void PanelView::SetSeen(bool is_seen) {
  is_seen_ = is_seen;
  StartTimers(engine_->Now());
}

void PanelView::SetScrollSpeed(int dots_per_second) {
  scroll_speed_ = dots_per_second;
  picture_.scroll_speed = dots_per_second;
  update();
  StartScrollTimer(engine_->Now());
}

void PanelView::StartTimers(const QDateTime& now) {
  StartBlinkTimer(now);
  StartScrollTimer(now);
  StartEntranceTimer(now);
}

void PanelView::StartBlinkTimer(const QDateTime& now) {
  // To the next change of phase, so that nothing drifts.
  std::optional<qint64> wait;
  if (is_blinking_) wait = PanelDots::kBlinkMs - now.toMSecsSinceEpoch() % PanelDots::kBlinkMs;
  StartTimer(&blink_timer_, wait);
}

void PanelView::StartScrollTimer(const QDateTime& now) {
  std::optional<qint64> wait;
  for (const ScrollingText& text : std::as_const(picture_.scrolling_texts)) {
    const qint64 to_next_dot = PanelDots::MsToNextDot(text, picture_, now.toMSecsSinceEpoch());
    wait = wait ? qMin(*wait, to_next_dot) : to_next_dot;
  }
  if (wait) wait = qMax(*wait, kLeastScrollMs);
  StartTimer(&scroll_timer_, wait);
}

void PanelView::StartEntranceTimer(const QDateTime& now) {
  StartTimer(&entrance_timer_, PanelDots::MsToNextFrame(picture_, now.toMSecsSinceEpoch()));
}

void PanelView::StartTimer(QTimer* timer, std::optional<qint64> wait_ms) const {
  if (wait_ms && is_seen_) {
    timer->start(static_cast<int>(*wait_ms));
  } else {
    timer->stop();
  }
}

void PanelView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  // A text that scrolls is drawn often, and it alone.
  painter.setClipRegion(event->region());
  PanelDots::DrawPanel(&painter, size(), picture_, engine_->Now().toMSecsSinceEpoch());
}

}  // namespace VirtualPanel
