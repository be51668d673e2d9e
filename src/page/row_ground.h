// The marks at the rows of the page editor where a panel's dots end: a stroke above and below the
// row, and a line under the characters behind it, which will not be seen. They stand in the ground
// between the rows.
#pragma once

#include <array>
#include <optional>

#include <QWidget>

#include "store/configuration_store.h"

/// The ground on which the rows lie.
class RowGround : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  /// Puts the mark of row `number`, whose surface lies at `row`, `end` pixels behind its left end;
  /// without `end` it has none.
  void SetEnd(int number, const QRect& row, std::optional<int> end);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Mark {
    QRect row;
    std::optional<int> end;

    bool operator==(const Mark&) const = default;
  };

  std::array<Mark, Brivon1::kMaxRows> marks_;
};
