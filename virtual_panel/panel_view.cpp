#include "panel_view.h"

namespace VirtualPanel {
namespace {

// Below this a panel cannot be read any more, and scroll bars appear.
constexpr double kLeastDotPixels = 1.5;
constexpr double kUsualDotPixels = 8;
constexpr double kUsualWidth = 880;

}  // namespace

PanelView::PanelView(const PanelEngine* engine, int id, QWidget* parent)
    : QWidget(parent), engine_(engine), id_(id) {
  setAccessibleName(QStringLiteral("Panel %1").arg(id));
  const QSizeF dots = SizeInDots(engine_->FindPanel(id)->description);
  setMinimumSize((dots * kLeastDotPixels).toSize());
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  Refresh();
}

QSize PanelView::sizeHint() const {
  const QSizeF dots = SizeInDots(picture_.description);
  const double dot = qBound(kLeastDotPixels, kUsualWidth / dots.width(), kUsualDotPixels);
  return (dots * dot).toSize();
}

void PanelView::Refresh() {
  picture_ = {engine_->FindPanel(id_)->description, engine_->ShownRows(id_), engine_->Clock(id_)};
  is_blinking_ = HasBlinkingCells(picture_);
  QStringList lines;
  for (const StoredRow& row : picture_.rows) lines.append(RowText(row, picture_.clock));
  setAccessibleDescription(lines.join(QLatin1Char('\n')));
  update();
}

void PanelView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  DrawPanel(&painter, size(), picture_, engine_->Now().toMSecsSinceEpoch());
}

}  // namespace VirtualPanel
