#include "page/row_width.h"

#include <algorithm>

namespace Brivon1 {
namespace {

constexpr qsizetype kNormalDots = 6;
constexpr qsizetype kCompressedDots = 5;

constexpr char kFirstLitGround = 'J';  // "Red On Green", and all "Shadow" colours behind it
constexpr char kLastLitGround = 'O';

qsizetype DotsOf(char size) { return size == 'B' || size == 'D' ? kCompressedDots : kNormalDots; }

bool IsDarkBlank(const PageRow& row, qsizetype at) {
  const char colour = row.Colour()[at];
  return row.Text()[at] == ' ' && (colour < kFirstLitGround || colour > kLastLitGround);
}

}  // namespace

qsizetype DotsOf(const PageRow& row) {
  qsizetype dots = 0;
  for (qsizetype at = 0; at < row.Length(); ++at) {
    dots += DotsOf(row.Size()[at]);
    const bool is_symbol = row.Text()[at] == '~' && at + 1 < row.Length() &&
                           row.AttributesAt(at) == row.AttributesAt(at + 1);
    if (is_symbol) ++at;
  }
  return dots;
}

PageRow CentredRow(const PageRow& row, qsizetype columns, qsizetype places) {
  qsizetype begin = 0;
  while (begin < row.Length() && IsDarkBlank(row, begin)) ++begin;
  qsizetype end = row.Length();
  while (end > begin && IsDarkBlank(row, end - 1)) --end;
  if (begin == end) return row;

  const char size = row.Size()[begin];
  const qsizetype free = columns - DotsOf(row.Part(begin, end));
  const qsizetype room = places - (row.Length() - begin);
  // Rounded to the nearest blank.
  const qsizetype wanted = (free / 2 + DotsOf(size) / 2) / DotsOf(size);
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
