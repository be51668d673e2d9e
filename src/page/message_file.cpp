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

/// Why `file` has no line for row `number`.
QString MissingRowRemedy(const QString& path, const MessageFileReader& file, int number) {
  if (file.IsLineTooLong()) {
    return TranslateMessage(u"A line of %1 is longer than %2 bytes."_s)
        .arg(path, QString::number(kLongestLine));
  }
  return TranslateMessage(u"%1 ends early: row %2 of %3 is missing."_s)
      .arg(path, QString::number(number), QString::number(file.FileDimension()->rows));
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

std::optional<LoadedPage> LoadMessageFile(const QString& path, QString* remedy,
                                          FileFailure* failure) {
  // What is wrong is looked for only where somebody asks.
  const auto refuse = [&](const FileFailure& found, const auto& why) {
    if (failure != nullptr) *failure = found;
    if (remedy != nullptr) *remedy = why();
    return std::nullopt;
  };
  MessageFileReader file(path);
  const std::optional<Dimension>& dimension = file.FileDimension();
  if (!dimension) {
    return refuse(file.Failure(), [&] { return WrongKindRemedy(path, FileSort::kPage); });
  }
  const FileFault fault = SizeFault(*dimension);
  if (fault != FileFault::kNone) {
    const bool is_rows = fault == FileFault::kRows;
    const int found = is_rows ? dimension->rows : dimension->columns;
    return refuse({fault, is_rows ? 2 : 3, QByteArray::number(found)},
                  [&] { return SizeRemedy(path, *dimension); });
  }

  LoadedPage page{*dimension, {}};
  Attributes attributes;  // carried on from row to row
  for (int number = 1; number <= dimension->rows; ++number) {
    const std::optional<QByteArray> line = file.NextRowLine();
    PageRow& row = page.rows[static_cast<std::size_t>(number - 1)];
    if (!line) {
      return refuse(file.Failure(), [&] { return MissingRowRemedy(path, file, number); });
    }
    const QByteArrayView unread = ReadRowLine(*line, number, attributes, row);
    if (!unread.isEmpty()) {
      const QByteArray tag = unread.first(ReadRowTag(unread).length).toByteArray();
      return refuse({FileFault::kRowTag, file.LineNumber(), tag}, [&] {
        return TranslateMessage(u"The line of row %1 in %2 bears the number of another row."_s)
            .arg(QString::number(number), path);
      });
    }
  }
  return page;
}

QString MessageFileRemedy(const QString& path) {
  MessageFileReader file(path);
  const std::optional<Dimension>& dimension = file.FileDimension();
  if (!dimension) return WrongKindRemedy(path, FileSort::kPage);
  if (!CanBeSent(*dimension)) return SizeRemedy(path, *dimension);
  for (int number = 1; number <= dimension->rows; ++number) {
    if (!file.NextRowLine()) return MissingRowRemedy(path, file, number);
  }
  return {};
}

}  // namespace Brivon1
