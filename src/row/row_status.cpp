#include "row/row_status.h"

#include "language/further_texts.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

using ModuleLanguage::TranslateText;

RowStatusWords::RowStatusWords()
    : row_place_(TranslateText(u"Row %1, place %2 of %3"_s)),
      place_(TranslateText(u"Place %1 of %2"_s)),
      dots_(TranslateText(u"%1 of %2 dots"_s)),
      last_unseen_(TranslateText(u"the last character will not be seen"_s)),
      some_unseen_(TranslateText(u"the last %1 characters will not be seen"_s)),
      full_(TranslateText(u"The row is full."_s)),
      no_room_(TranslateText(u"The row is full: %1 characters were left out."_s)),
      no_character_(TranslateText(u"The panels have no character %1."_s)) {}

QString RowStatusWords::Line(const RowStatus& status) const {
  QStringList parts;
  if (status.row > 0) {
    parts.append(row_place_.arg(status.row).arg(status.place).arg(status.places));
  } else {
    parts.append(place_.arg(status.place).arg(status.places));
  }
  if (status.dots) parts.append(dots_.arg(status.dots->used).arg(status.dots->all));
  const QString unseen = Unseen(status);
  if (!unseen.isEmpty()) parts.append(unseen);
  return (parts + status.attributes).join(", "_L1);
}

QString RowStatusWords::Unseen(const RowStatus& status) const {
  if (!status.dots || status.dots->unseen == 0) return {};
  return status.dots->unseen == 1 ? last_unseen_ : some_unseen_.arg(status.dots->unseen);
}

QString RowStatusWords::Refusal(LeftOut why, qsizetype count, const QString& what) const {
  switch (why) {
    case LeftOut::kNoRoom:
      return count > 1 ? no_room_.arg(count) : full_;
    case LeftOut::kNoCharacter:
      return no_character_.arg(what);
  }
  return {};
}

}  // namespace Brivon1
