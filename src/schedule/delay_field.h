// The delay of a page as it is typed: whole seconds from 1 to 99. A text that is no such number
// gives way, without a word, to the last one that was.
#pragma once

#include <QString>

#include "base/number_field.h"

namespace Brivon1 {

inline constexpr qint16 kShortestDelay = 1;
inline constexpr qint16 kLongestDelay = 99;

class DelayField {
 public:
  /// Starts with `delay`, or the nearest valid delay.
  explicit DelayField(qint16 delay);

  /// Takes in what the field holds now and returns what it is to hold: a valid number without
  /// leading zeros and blanks, else the last valid delay. An empty or blank text stays.
  QString Changed(const QString& text);

  /// The last valid delay, in seconds.
  qint16 LastValid() const { return LastValidText().toShort(); }

  /// The same as the field shows it.
  QString LastValidText() const { return field_.LastValidText(); }

 private:
  NumberField field_;
};

}  // namespace Brivon1
