// A box for a whole number that has bounds.
#pragma once

#include <QLineEdit>

/// Takes digits alone. A text that is out of the bounds gives way, without a word, to the last one
/// that was not; the box may be empty.
class NumberEdit : public QLineEdit {
  Q_OBJECT

 public:
  explicit NumberEdit(QWidget* parent = nullptr);

  /// To be called once, while the box is empty.
  void SetBounds(int lowest, int highest);
};
