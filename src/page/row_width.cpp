#include "page/row_width.h"

#include <algorithm>

#include <QDateTime>

#include "page/row_dots.h"
#include "store/configuration_store.h"

namespace Brivon1 {
namespace {

constexpr char kFirstLitGround = 'J';  // "Red On Green", and all "Shadow" colours behind it
constexpr char kLastLitGround = 'O';

PageRow BlankOf(char size) {
  PageRow blank;
  blank.Append(' ', {size, 'A', kSteady});
  return blank;
}

bool IsDarkBlank(const PageRow& row, qsizetype at) {
  const char colour = row.Colour()[at];
  return row.Text()[at] == ' ' && (colour < kFirstLitGround || colour > kLastLitGround);
}

}  // namespace

qsizetype DotsOf(const PageRow& row) {
  // Every date is of one width, and so is every time of day.
  const QDateTime any_time(QDate(2000, 1, 1), QTime(0, 0));
  return DotsOfCharacters(row, row.Length(), {.colour_type = kTri, .clock = any_time});
}

PageRow CentredRow(const PageRow& row, qsizetype columns, qsizetype places) {
  qsizetype begin = 0;
  while (begin < row.Length() && IsDarkBlank(row, begin)) ++begin;
  qsizetype end = row.Length();
  while (end > begin && IsDarkBlank(row, end - 1)) --end;
  if (begin == end) return row;

  const char size = row.Size()[begin];
  const qsizetype blank_dots = DotsOf(BlankOf(size));
  const qsizetype free = columns - DotsOf(row.Part(begin, end));
  const qsizetype room = places - (row.Length() - begin);
  // Rounded to the nearest blank.
  const qsizetype wanted = (free / 2 + blank_dots / 2) / blank_dots;
  const qsizetype blanks = std::max<qsizetype>(std::min(wanted, room), 0);
  if (blanks == begin && row.Size().first(begin) == QByteArray(begin, size)) return row;

  PageRow centred = row;
  centred.Home();
  centred.Delete(begin);
  for (qsizetype n = 0; n < blanks; ++n) centred.Insert(' ', {size, 'A', kSteady});
  centred.SetCursor(std::max<qsizetype>(row.Cursor() - begin, 0) + blanks);
  return centred;
}

}  // namespace Brivon1
