#include "page/message_file.h"

#include "base/file_checks.h"
#include "base/text.h"
#include "language/file_remedies.h"
#include "language/module_language.h"
#include "page/row_line.h"
#include "row/coded_text.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using ModuleLanguage::TranslateMessage;

constexpr int kFewestRows = 1;
constexpr int kFewestColumns = 10;
constexpr int kFewestSentColumns = 5;

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

QString SizeRemedy(const QString& path, Dimension dimension) {
  return TranslateMessage(
             u"%1 is made for %2x%3. A page has 1 to 12 rows and at least 5 dot columns."_s)
      .arg(path, QString::number(dimension.rows), QString::number(dimension.columns));
}

FileFailure SizeFailure(FileFault fault, Dimension dimension) {
  const bool is_rows = fault == FileFault::kRows;
  FileFailure failure{fault, is_rows ? 2 : 3,
                      QByteArray::number(is_rows ? dimension.rows : dimension.columns)};
  failure.dimension = dimension;
  return failure;
}

/// `failure` as one of row `number`.
FileFailure OfRow(int number, const MessageFileReader& file, FileFailure failure) {
  failure.number = number;
  failure.count = file.FileDimension()->rows;
  return failure;
}

}  // namespace

bool CanBeSent(const Dimension& dimension) {
  return dimension.rows >= kFewestRows && dimension.rows <= kMaxRows &&
         dimension.columns >= kFewestSentColumns;
}

SaveResult SaveMessageFile(const QString& path, const PageMessage& page, QString* reason) {
  QByteArray content = QByteArray(kMessageHeader) + "\r\n";
  content += "Row = " + QByteArray::number(page.Rows()) + "\r\n";
  content += "Col = " + QByteArray::number(page.Columns()) + "\r\n";
  for (int number = 1; number <= page.Rows(); ++number) {
    content += RowLine(number, page.Row(number)) + "\r\n";
  }
  return SaveWholeFile(path, content, reason);
}

std::optional<LoadedPage> LoadMessageFile(const QString& path, FileFailure* failure) {
  const auto refuse = [failure](const FileFailure& found) {
    if (failure != nullptr) *failure = found;
    return std::nullopt;
  };
  MessageFileReader file(path);
  const std::optional<Dimension>& dimension = file.FileDimension();
  if (!dimension) return refuse(file.Failure());
  const FileFault fault = SizeFault(*dimension);
  if (fault != FileFault::kNone) return refuse(SizeFailure(fault, *dimension));

  LoadedPage page{*dimension, {}};
  Attributes attributes;  // carried on from row to row
  for (int number = 1; number <= dimension->rows; ++number) {
    const std::optional<QByteArray> line = file.NextRowLine();
    PageRow& row = page.rows[static_cast<std::size_t>(number - 1)];
    if (!line) return refuse(OfRow(number, file, file.Failure()));
    const QByteArrayView unread = ReadRowLine(*line, number, attributes, row);
    if (!unread.isEmpty()) {
      const QByteArray tag = unread.first(ReadRowTag(unread).length).toByteArray();
      return refuse(OfRow(number, file, {FileFault::kRowTag, file.LineNumber(), tag}));
    }
  }
  return page;
}

FileFailure SendingFailure(const QString& path, const FileSource& files) {
  MessageFileReader file(path, files);
  const std::optional<Dimension>& dimension = file.FileDimension();
  if (!dimension) return file.Failure();
  if (!CanBeSent(*dimension)) {
    const bool is_rows = dimension->rows < kFewestRows || dimension->rows > kMaxRows;
    return SizeFailure(is_rows ? FileFault::kRows : FileFault::kColumns, *dimension);
  }
  for (int number = 1; number <= dimension->rows; ++number) {
    if (!file.NextRowLine()) return OfRow(number, file, file.Failure());
  }
  return {};
}

QString MessageFileRemedy(const QString& path, const FileFailure& failure) {
  switch (failure.fault) {
    case FileFault::kNone:
      return {};
    case FileFault::kRows:
    case FileFault::kColumns:
      return SizeRemedy(path, failure.dimension);
    case FileFault::kEndsEarly:
      return TranslateMessage(u"%1 ends early: row %2 of %3 is missing."_s)
          .arg(path, QString::number(failure.number), QString::number(failure.count));
    case FileFault::kLongLine:
      return LongLineRemedy(path);
    case FileFault::kRowTag:
      return TranslateMessage(u"The line of row %1 in %2 bears the number of another row."_s)
          .arg(QString::number(failure.number), path);
    default:
      return WrongKindRemedy(path, FileSort::kPage);
  }
}

}  // namespace Brivon1
