// The line under the rows of an editor that says in words what the row with the cursor shows by
// colours and place. Screen readers are told of it with the row.
#pragma once

#include "row/attributes.h"
#include "row/row_status.h"
#include "row/row_surface.h"
#include "widgets/elided_label.h"

/// The place of the line in a window's layout. A label asks for another layout whenever its text
/// changes; with every key that would be the window's.
class RowStatusPlace : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool event(QEvent* event) override;

 private:
  QWidget* Line() const { return findChild<QWidget*>(); }

  QSize asked_for_;
};

class RowStatusLabel : public ElidedLabel {
  Q_OBJECT

 public:
  explicit RowStatusLabel(QWidget* parent = nullptr);

  /// Says how the row of `surface` stands. The attributes are those of the character behind its
  /// cursor, or of what is typed `next`.
  void ShowStatus(Brivon1::RowStatus status, RowSurface& surface, const Brivon1::Attributes& next);

  /// Says something else of that row, until ShowStatus() is called again.
  void ShowNote(const QString& note, RowSurface& surface);

  /// Says what was left out of that row and why, if anything was, until ShowStatus() is called
  /// again.
  void ShowLeftOut(const Brivon1::LeftOut& left_out, RowSurface& surface);

 private:
  Brivon1::RowStatusWords words_;
};
