#include "page/message_file.h"

#include "base/file_checks.h"
#include "base/text.h"
#include "page/row_line.h"
#include "row/coded_text.h"

namespace Brivon1 {
namespace {

constexpr int kFewestRows = 1;
constexpr int kFewestColumns = 10;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// What keeps a page of this size from being read. Either size alone makes a page: one of no rows
/// but 80 columns is an empty page.
FileFault SizeFault(const Dimension& dimension) {
  if (dimension.rows < 0 || dimension.rows > kMaxRows) return FileFault::kRows;
  if (dimension.columns < 0) return FileFault::kColumns;
  const bool is_page = dimension.rows >= kFewestRows || dimension.columns >= kFewestColumns;
  return is_page ? FileFault::kNone : FileFault::kRows;
}

/// A row tag, "<L7>" or "<L07>", at the beginning of `rest`; length 0 where none stands there.
struct RowTag {
  qsizetype length = 0;
  int number = 0;
};

RowTag ReadRowTag(QByteArrayView rest) {
  if (rest.size() < 4 || !rest.startsWith("<L")) return {};
  if (IsDigit(rest[2]) && rest[3] == '>') return {4, rest[2] - '0'};
  if (rest.size() >= 5 && rest[4] == '>') return {5, LeadingNumber(rest.sliced(2, 2), -99, 99)};
  return {};
}

/// Adds the characters of one row line to `row`, up to a tag that names another row than `number`:
/// what it gives back begins with that tag, or is empty.
QByteArrayView ReadRowLine(QByteArrayView line, int number, Attributes& attributes, PageRow& row) {
  while (!line.isEmpty()) {
    const RowTag tag = ReadRowTag(line);
    if (tag.length > 0 && tag.number != number) break;
    line = line.sliced(tag.length > 0 ? tag.length : ReadCodedText(line, attributes, row));
  }
  return line;
}

}  // namespace

SaveResult SaveMessageFile(const QString& path, const PageMessage& page) {
  QByteArray content = QByteArray(kMessageHeader) + "\r\n";
  content += "Row = " + QByteArray::number(page.Rows()) + "\r\n";
  content += "Col = " + QByteArray::number(page.Columns()) + "\r\n";
  for (int number = 1; number <= page.Rows(); ++number) {
    content += RowLine(number, page.Row(number)) + "\r\n";
  }
  return SaveWholeFile(path, content);
}

std::optional<LoadedPage> LoadMessageFile(const QString& path, FileFailure* why) {
  const auto refuse = [why](const FileFailure& failure) {
    if (why != nullptr) *why = failure;
    return std::nullopt;
  };
  MessageFileReader file(path);
  const std::optional<Dimension>& dimension = file.FileDimension();
  if (!dimension) return refuse(file.Failure());
  const FileFault fault = SizeFault(*dimension);
  if (fault == FileFault::kRows) return refuse({fault, 2, QByteArray::number(dimension->rows)});
  if (fault != FileFault::kNone) return refuse({fault, 3, QByteArray::number(dimension->columns)});

  LoadedPage page{*dimension, {}};
  Attributes attributes;  // carried on from row to row
  for (int number = 1; number <= dimension->rows; ++number) {
    const std::optional<QByteArray> line = file.NextRowLine();
    PageRow& row = page.rows[static_cast<std::size_t>(number - 1)];
    if (!line) return refuse(file.Failure());
    const QByteArrayView unread = ReadRowLine(*line, number, attributes, row);
    if (!unread.isEmpty()) {
      return refuse({FileFault::kRowTag, file.LineNumber(),
                     unread.first(ReadRowTag(unread).length).toByteArray()});
    }
  }
  return page;
}

}  // namespace Brivon1
