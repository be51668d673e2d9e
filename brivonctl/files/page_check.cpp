#include "files/page_check.h"

#include "base/file_checks.h"
#include "base/text.h"
#include "files/file_check.h"
#include "files/row_check.h"
#include "page/message_file.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

constexpr int kFewestSentColumns = 5;

QString FailureText(const Brivon1::FileFailure& failure, Brivon1::Dimension dimension) {
  const QString found = QString::fromLatin1(failure.found);
  switch (failure.fault) {
    case Brivon1::FileFault::kRows:
      return u"%1 rows; a page has 1 to %2"_s.arg(found).arg(Brivon1::kMaxRows);
    case Brivon1::FileFault::kColumns:
      return u"%1 dot columns; a page has 1 at the least"_s.arg(found);
    case Brivon1::FileFault::kEndsEarly:
      return u"row %1 is missing: the file ends, and by its line 2 it has %2 rows"_s
          .arg(failure.number)
          .arg(dimension.rows);
    case Brivon1::FileFault::kRowTag:
      return u"the tag %1 stands in row %2; expected was <L%3>"_s.arg(
          Quoted(failure.found), QString::number(failure.number),
          QString::fromLatin1(Brivon1::ZeroPadded(failure.number, 2)));
    default:
      return CommonFailureText(failure);
  }
}

/// What is sent of a page is its size and its row lines, the latter as they stand.
void CheckRows(const QString& path, const Brivon1::LoadedPage& page, FileReport* report) {
  Brivon1::MessageFileReader file(path);
  for (int number = 1; number <= page.dimension.rows; ++number) {
    const auto line = file.NextRowLine();
    if (!line) return;
    const RowLineCheck row{*line, number, page.dimension.columns,
                           page.rows[static_cast<std::size_t>(number - 1)]};
    for (const QString& warning : RowWarnings(row)) report->Warn(file.LineNumber(), warning);
  }
  const auto behind = file.NextRowLine();
  if (behind && !Brivon1::TrimBlanks(*behind).isEmpty()) {
    report->Warn(file.LineNumber(),
                 u"this and what follows is not read: by line 2 the page has %1 rows"_s.arg(
                     page.dimension.rows));
  }
}

}  // namespace

void CheckPage(const QString& path, FileReport* report) {
  report->dimension = Brivon1::IsMessageFile(path);
  Brivon1::FileFailure failure;
  const auto page = Brivon1::LoadMessageFile(path, &failure);
  if (!page) {
    const auto dimension = report->dimension.value_or(Brivon1::Dimension{});
    report->Refuse(failure.line, FailureText(failure, dimension));
    return;
  }
  if (page->dimension.rows < 1) {
    report->Warn(2, u"0 rows: the editor opens an empty page, and it cannot be sent"_s);
  }
  if (page->dimension.columns < kFewestSentColumns) {
    report->Warn(
        3, u"%1 dot columns: a page of fewer than %2 cannot be sent"_s.arg(page->dimension.columns)
               .arg(kFewestSentColumns));
  }
  CheckRows(path, *page, report);
}

}  // namespace BrivonCtl
