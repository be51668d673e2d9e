#include "panel_view.h"

#include <QPaintEvent>

namespace VirtualPanel {

PanelView::PanelView(const PanelEngine* engine, int id, QWidget* parent)
    : QWidget(parent), engine_(engine), id_(id) {
  setAccessibleName(QStringLiteral("Panel %1").arg(id));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  Refresh(engine_->Now());
}

void PanelView::Refresh(const QDateTime& now) {
  const Panel* panel = engine_->FindPanel(id_);
  picture_ = {panel->description, engine_->ShownRows(id_, now), engine_->Clock(id_, now),
              panel->scrolling_lines, scroll_speed_};
  is_blinking_ = HasBlinkingCells(picture_);
  QStringList lines;
  for (int row = 1; row <= picture_.description.rows; ++row) {
    if (picture_.scrolling_lines.contains(row)) {
      lines.append(RowText(picture_.scrolling_lines[row].row, picture_.clock));
    } else if (picture_.rows.contains(row)) {
      lines.append(RowText(picture_.rows[row], picture_.clock));
    }
  }
  setAccessibleDescription(lines.join(QLatin1Char('\n')));
  update();
}

void PanelView::Scroll() {
  for (auto line = picture_.scrolling_lines.cbegin(); line != picture_.scrolling_lines.cend();
       ++line) {
    update(RowRect(size(), picture_.description, line.key()).toAlignedRect());
  }
}

std::optional<qint64> PanelView::MsToNextDot(const QDateTime& now) const {
  std::optional<qint64> first;
  for (const ScrollingLine& line : picture_.scrolling_lines) {
    const qint64 wait = VirtualPanel::MsToNextDot(line, picture_, now.toMSecsSinceEpoch());
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
  DrawPanel(&painter, size(), picture_, engine_->Now().toMSecsSinceEpoch());
}

}  // namespace VirtualPanel
