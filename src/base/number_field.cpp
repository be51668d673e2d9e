#include "base/number_field.h"

#include <algorithm>

#include "base/text.h"

namespace Brivon1 {

std::optional<int> WholeNumber(QStringView text, int lowest, int highest) {
  const bool digits = std::all_of(text.begin(), text.end(),
                                  [](QChar digit) { return digit >= u'0' && digit <= u'9'; });
  if (text.isEmpty() || !digits) return std::nullopt;
  const int number = LeadingNumber(text.toLatin1(), lowest - 1, highest + 1);
  return number < lowest || number > highest ? std::nullopt : std::optional(number);
}

QString NumberField::Changed(const QString& text) {
  if (text.isEmpty()) return text;
  if (WholeNumber(text, lowest_, highest_)) last_valid_ = text;
  return last_valid_;
}

}  // namespace Brivon1
