#include "row/row_status_label.h"

#include <utility>

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

void RowStatusLabel::ShowLeftOut(Brivon1::LeftOut why, qsizetype count, const QString& what,
                                 RowSurface& surface) {
  ShowNote(words_.Refusal(why, count, what), surface);
}

void RowStatusLabel::ShowNote(QString note, RowSurface& surface) {
  note.replace(u'\n', u' ');
  setText(note);
  surface.SetStatus(note, note);
}
