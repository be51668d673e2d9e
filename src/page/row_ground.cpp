#include "page/row_ground.h"

#include <QPainter>

namespace {

/// Of the gap to the next row.
constexpr int kStroke = 2;

/// Amber as the panel's own mark, darker on a light ground.
QColor MarkColour(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < 128 ? QColor(255, 176, 0)
                                                           : QColor(184, 96, 0);
}

QRect WithGaps(const QRect& row) { return row.adjusted(-kStroke, -kStroke, kStroke, kStroke); }

}  // namespace

void RowGround::SetEnd(int number, const QRect& row, std::optional<int> end) {
  Mark& mark = marks_[static_cast<std::size_t>(number - 1)];
  const Mark now{row, end};
  if (now == mark) return;
  update(WithGaps(mark.row));
  update(WithGaps(row));
  mark = now;
}

void RowGround::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor colour = MarkColour(palette());
  for (const Mark& mark : marks_) {
    if (!mark.end) continue;
    const int x = mark.row.left() + *mark.end;
    painter.fillRect(x, mark.row.top() - kStroke, kStroke, kStroke, colour);
    painter.fillRect(x, mark.row.bottom() + 1, kStroke, kStroke, colour);
    painter.fillRect(
        QRect(QPoint(x, mark.row.bottom() + 1), QPoint(mark.row.right(), mark.row.bottom() + 1)),
        colour);
  }
}
