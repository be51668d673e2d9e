#include "panel_view.h"

namespace VirtualPanel {
PanelView::PanelView(const PanelEngine* engine, int id, QWidget* parent)
    : QWidget(parent), engine_(engine), id_(id) {
  setAccessibleName(QStringLiteral("Panel %1").arg(id));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  Refresh();
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
