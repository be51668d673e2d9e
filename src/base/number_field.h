// A whole number as it is typed into a field that has bounds: what is out of them gives way,
// without a word, to the last valid text.
#pragma once

#include <optional>

#include <QString>
#include <QStringView>

namespace Brivon1 {

/// The number that `text` is, when it is nothing but decimal digits and lies within the bounds.
std::optional<int> WholeNumber(QStringView text, int lowest, int highest);

class NumberField {
 public:
  /// `text` is the last valid text at first.
  NumberField(int lowest, int highest, const QString& text = {})
      : lowest_(lowest), highest_(highest), last_valid_(text) {}

  /// Takes in what the field holds now and returns what it is to hold: an empty text and a valid
  /// number as they are, else the last valid text.
  QString Changed(const QString& text);

  QString LastValidText() const { return last_valid_; }

 private:
  int lowest_;
  int highest_;
  QString last_valid_;
};

}  // namespace Brivon1
