#include "row/row_status.h"

#include "language/further_texts.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

/// More of them nobody reads.
constexpr qsizetype kMostNamed = 8;

/// A character as it is read; one that is not seen by itself has its number.
QString NameOf(char32_t character) {
  const bool is_seen =
      QChar::isPrint(character) && !QChar::isSpace(character) && !QChar::isMark(character);
  return is_seen ? QString::fromUcs4(&character, 1)
                 : u"U+%1"_s.arg(static_cast<uint>(character), 4, 16, QLatin1Char('0')).toUpper();
}

/// Each of the characters once.
QString NamesOf(const QList<uint>& characters) {
  QStringList names;
  for (const uint character : characters) {
    const QString name = NameOf(static_cast<char32_t>(character));
    if (names.contains(name)) continue;
    if (names.size() == kMostNamed) return names.join(u' ') + u" ..."_s;
    names.append(name);
  }
  return names.join(u' ');
}

QString Counted(const QString& one, const QString& several, qsizetype count) {
  return count == 1 ? one : several.arg(count);
}

}  // namespace

using ModuleLanguage::TranslateText;

RowStatusWords::RowStatusWords()
    : row_place_(TranslateText(u"Row %1, place %2 of %3"_s)),
      place_(TranslateText(u"Place %1 of %2"_s)),
      dots_(TranslateText(u"%1 of %2 dots"_s)),
      last_unseen_(TranslateText(u"the last character will not be seen"_s)),
      some_unseen_(TranslateText(u"the last %1 characters will not be seen"_s)),
      full_(TranslateText(u"The row is full."_s)),
      one_no_room_(TranslateText(u"The row is full: one character was left out."_s)),
      no_room_(TranslateText(u"The row is full: %1 characters were left out."_s)),
      one_no_row_(TranslateText(u"There is no further row: one character was left out."_s)),
      no_row_(TranslateText(u"There is no further row: %1 characters were left out."_s)),
      no_character_(TranslateText(u"The panels have no character %1."_s)),
      no_characters_(TranslateText(u"The panels do not have %1: %2 characters were left out."_s)) {}

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

QString RowStatusWords::Refusal(const LeftOut& left_out) const {
  QStringList reasons;
  if (left_out.no_room > 0) {
    reasons.append(left_out.is_key ? full_ : Counted(one_no_room_, no_room_, left_out.no_room));
  }
  if (left_out.no_row > 0) reasons.append(Counted(one_no_row_, no_row_, left_out.no_row));
  const QList<uint> missing = left_out.missing.toUcs4();
  if (missing.size() == 1) {
    reasons.append(no_character_.arg(NamesOf(missing)));
  } else if (!missing.isEmpty()) {
    reasons.append(no_characters_.arg(NamesOf(missing), QString::number(missing.size())));
  }
  return reasons.join(u' ');
}

}  // namespace Brivon1
