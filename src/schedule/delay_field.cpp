#include "schedule/delay_field.h"

#include <algorithm>

#include "base/text.h"

namespace Brivon1 {

DelayField::DelayField(qint16 delay)
    : field_(kShortestDelay, kLongestDelay,
             QString::number(std::clamp(delay, kShortestDelay, kLongestDelay))) {}

QString DelayField::Changed(const QString& text) {
  const QString trimmed = text.trimmed();
  if (trimmed.isEmpty()) return text;
  return field_.Changed(QString::number(LeadingNumber16(trimmed.toUtf8())));
}

}  // namespace Brivon1
