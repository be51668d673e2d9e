#include "page/preview_splitter.h"

#include <algorithm>

#include <QEvent>
#include <QLayout>
#include <QScopedValueRollback>

PreviewSplitter::PreviewSplitter(QWidget* parent) : QSplitter(Qt::Vertical, parent) {
  setChildrenCollapsible(false);
  connect(this, &QSplitter::splitterMoved, this, [this] { given_ = sizes().value(1); });
}

void PreviewSplitter::SetPreviewWanted(bool wanted) {
  is_wanted_ = wanted;
  is_asked_for_ = wanted;
  Arrange();
}

QSize PreviewSplitter::sizeHint() const {
  if (count() < 2) return QSplitter::sizeHint();
  const QSize rows = widget(0)->sizeHint();
  return {rows.width(), rows.height() + handleWidth() + widget(1)->sizeHint().height()};
}

QSize PreviewSplitter::minimumSizeHint() const {
  if (count() == 0) return QSplitter::minimumSizeHint();
  return {widget(0)->minimumSizeHint().width(), LeastHeight()};
}

int PreviewSplitter::AskedHeight() const {
  const QLayout* layout = widget(0)->layout();
  const int height = widget(0)->sizeHint().height();
  return layout == nullptr ? height : std::max(height, layout->totalHeightForWidth(width()));
}

int PreviewSplitter::LeastHeight() const {
  const QLayout* layout = widget(0)->layout();
  const int height = widget(0)->minimumSizeHint().height();
  return layout == nullptr ? height : std::max(height, layout->totalMinimumHeightForWidth(width()));
}

bool PreviewSplitter::event(QEvent* event) {
  const bool done = QSplitter::event(event);
  if (event->type() == QEvent::LayoutRequest) Arrange();
  return done;
}

void PreviewSplitter::resizeEvent(QResizeEvent* event) {
  QSplitter::resizeEvent(event);
  Arrange();
}

void PreviewSplitter::Arrange() {
  if (count() < 2 || is_arranging_) return;
  const QScopedValueRollback<bool> arranging(is_arranging_, true);
  QWidget& rows = *widget(0);
  QWidget& preview = *widget(1);
  const int asked = AskedHeight();
  const int least = LeastHeight();
  if (rows.minimumHeight() != least) {
    rows.setMinimumHeight(least);
    updateGeometry();
  }
  const int room = height() - handleWidth();
  const int needed = preview.minimumSizeHint().height();
  // What the operator has given it already is his will too.
  const bool is_asked_for = is_asked_for_ || given_ > 0;
  const bool is_shown = is_wanted_ && needed > 0 && room >= (is_asked_for ? least : asked) + needed;
  preview.setVisible(is_shown);
  if (!is_shown) return;
  const int share = given_ > 0 ? std::min(given_, room - least) : room - asked;
  const int height = std::max(share, needed);
  setSizes({room - height, height});
}
