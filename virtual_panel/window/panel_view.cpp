#include "window/panel_view.h"

#include <utility>

#include <QPaintEvent>

namespace VirtualPanel {
namespace {

using PanelDots::Entrance;
using PanelDots::PageRows;
using PanelDots::PanelShape;
using PanelDots::RowText;
using PanelDots::ScrollingText;
using PanelDots::ScrollingTexts;

constexpr char kAppear = 'A';

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
  setAccessibleName(QStringLiteral("Panel %1").arg(id));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  picture_.shape = ShapeOf(engine_->FindPanel(id)->description);
  Refresh(engine_->Now());
}

void PanelView::Refresh(const QDateTime& now) {
  const Panel* panel = engine_->FindPanel(id_);
  auto entrance = NextEntrance(now);
  picture_ = {ShapeOf(panel->description),
              RowsOf(engine_->ShownRows(id_, now)),
              engine_->Clock(id_, now),
              TextsOf(panel->scrolling_lines),
              scroll_speed_,
              std::move(entrance)};
  is_blinking_ = PanelDots::HasBlinkingCells(picture_);
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

void PanelView::Enter(const QDateTime& now) {
  if (!picture_.entrance) return;
  if (!MsToNextFrame(now)) picture_.entrance.reset();
  update();
}

std::optional<qint64> PanelView::MsToNextFrame(const QDateTime& now) const {
  return PanelDots::MsToNextFrame(picture_, now.toMSecsSinceEpoch());
}

void PanelView::Scroll() {
  for (auto text = picture_.scrolling_texts.cbegin(); text != picture_.scrolling_texts.cend();
       ++text) {
    const QRectF row = PanelDots::RowRect(size(), picture_.shape, text.key(), devicePixelRatioF());
    // Where the view itself lies between two pixels, what is drawn is moved to a whole one.
    update(row.toAlignedRect().adjusted(-1, -1, 1, 1));
  }
}

std::optional<qint64> PanelView::MsToNextDot(const QDateTime& now) const {
  std::optional<qint64> first;
  for (const ScrollingText& text : picture_.scrolling_texts) {
    const qint64 wait = PanelDots::MsToNextDot(text, picture_, now.toMSecsSinceEpoch());
    first = first ? qMin(*first, wait) : wait;
  }
  return first;
}

void PanelView::SetScrollSpeed(int dots_per_second) {
  scroll_speed_ = dots_per_second;
  picture_.scroll_speed = dots_per_second;
  update();
}

void PanelView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  // A text that scrolls is drawn often, and it alone.
  painter.setClipRegion(event->region());
  PanelDots::DrawPanel(&painter, size(), picture_, engine_->Now().toMSecsSinceEpoch());
}

}  // namespace VirtualPanel
