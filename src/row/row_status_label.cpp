#include "row/row_status_label.h"

#include <utility>

#include <QEvent>

QSize RowStatusPlace::sizeHint() const {
  return Line() == nullptr ? QSize(0, 0) : QSize(0, Line()->sizeHint().height());
}

bool RowStatusPlace::event(QEvent* event) {
  const bool done = QWidget::event(event);
  if (Line() == nullptr) return done;
  if (event->type() == QEvent::Resize) Line()->setGeometry(rect());
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::FontChange) {
    const QSize before = std::exchange(asked_for_, sizeHint());
    if (asked_for_ != before) updateGeometry();
  }
  return done;
}

RowStatusLabel::RowStatusLabel(QWidget* parent) : ElidedLabel(parent) {
  SetElision(Qt::ElideRight);
}

void RowStatusLabel::ShowStatus(Brivon1::RowStatus status, RowSurface& surface,
                                const Brivon1::Attributes& next) {
  const Brivon1::PageRow& row = surface.Row();
  const bool is_at_end = row.Cursor() >= row.Length();
  status.attributes =
      AttributeNames(surface.Words(), is_at_end ? next : row.AttributesAt(row.Cursor()));
  const QString line = words_.Line(status);
  setText(line);
  surface.SetStatus(line, words_.Unseen(status));
}

void RowStatusLabel::ShowLeftOut(const Brivon1::LeftOut& left_out, RowSurface& surface) {
  if (left_out.IsAnything()) ShowNote(words_.Refusal(left_out), surface);
}

void RowStatusLabel::ShowNote(const QString& note, RowSurface& surface) {
  setText(note);
  surface.SetStatus(note, note);
}
