// The line under the rows of an editor that says in words what the row with the cursor shows by
// colours and place. Screen readers are told of it with the row.
#pragma once

#include "row/attributes.h"
#include "row/row_status.h"
#include "row/row_surface.h"
#include "widgets/elided_label.h"

class RowStatusLabel : public ElidedLabel {
  Q_OBJECT

 public:
  explicit RowStatusLabel(QWidget* parent = nullptr);

  /// Says how the row of `surface` stands. The attributes are those of the character behind its
  /// cursor, or of what is typed `next`.
  void ShowStatus(Brivon1::RowStatus status, RowSurface& surface, const Brivon1::Attributes& next);

  /// Says something else of that row, until ShowStatus() is called again.
  void ShowNote(QString note, RowSurface& surface);

  /// Says why something was left out of that row, until ShowStatus() is called again.
  void ShowLeftOut(Brivon1::LeftOut why, qsizetype count, const QString& what, RowSurface& surface);

 private:
  Brivon1::RowStatusWords words_;
};
