// Page messages: whatever bytes a file has, it is a page or it is refused, and what was read, saved
// and read again is the same page.
#include <optional>

#include "base/file_checks.h"
#include "fuzz/files.h"
#include "fuzz/frames.h"
#include "fuzz/must.h"
#include "fuzz/rows.h"
#include "fuzz/targets.h"
#include "page/message_file.h"
#include "page/message_transmission.h"

using namespace Qt::StringLiterals;

namespace Fuzz {
namespace {

using Brivon1::LoadedPage;

bool SpellsACodeOrTag(const LoadedPage& page) {
  for (const Brivon1::PageRow& row : page.rows) {
    if (SpellsACode(row.Text()) || SpellsARowTag(row.Text())) return true;
  }
  return false;
}

void MustBeAPage(const LoadedPage& page) {
  Must(page.dimension.rows >= 0 && page.dimension.rows <= Brivon1::kMaxRows, "0 to 12 rows");
  Must(page.dimension.columns >= 0, "no negative columns");
  for (int number = 1; number <= Brivon1::kMaxRows; ++number) {
    const Brivon1::PageRow& row = page.rows[static_cast<std::size_t>(number - 1)];
    Must(row.Cursor() == 0, "cursors stand at column 0");
    Must(number <= page.dimension.rows || row.Length() == 0, "rows that are not shown are empty");
    for (qsizetype at = 0; at < row.Length(); ++at) {
      const Brivon1::Attributes attributes = row.AttributesAt(at);
      Must(attributes.size >= 'A' && attributes.size <= 'D', "sizes A to D");
      Must(attributes.blink == Brivon1::kSteady || attributes.blink == Brivon1::kBlinking,
           "steady or blinking");
    }
  }
}

void MustComeBack(const LoadedPage& page) {
  Brivon1::PageMessage message;
  message.TakeOver(page.dimension, page.rows);
  Must(!message.IsModified(), "what was read is not modified");
  const QString path = WriteFile(u"saved.msg"_s, "what stood there before");
  Must(Brivon1::SaveMessageFile(path, message) == Brivon1::SaveResult::kSaved, "a page is saved");
  if (SpellsACodeOrTag(page)) return;
  const auto again = Brivon1::LoadMessageFile(path);
  Must(again.has_value(), "a page that was saved is read again");
  Must(again->dimension == page.dimension, "the size comes back");
  for (std::size_t row = 0; row < page.rows.size(); ++row) {
    Must(again->rows[row].ShowsTheSameAs(page.rows[row]), "every row comes back");
  }
}

void MustBeFrames(const QString& path, const QByteArray& source, bool is_page) {
  const auto dimension = Brivon1::IsMessageFile(path);
  Must(dimension || !is_page, "a page has a size");
  if (!dimension) return;
  constexpr int kId = 26;
  for (const qint16 colour_type : {Brivon1::kMono, Brivon1::kTri}) {
    const auto frames = Brivon1::MessageFrames(path, kId, "007", *dimension, colour_type);
    Must(frames || !is_page || !Brivon1::CanBeSent(*dimension), "a page of such a size is sent");
    const Brivon1::FileFailure failure = Brivon1::SendingFailure(path);
    Must(frames.has_value() == Brivon1::MessageFileRemedy(path, failure).isEmpty(),
         "a refusal has a reason");
    if (!frames) continue;
    Must(frames->size() == dimension->rows, "a frame for each row");
    for (const QByteArray& frame : *frames) {
      MustBeFrame(frame, kId, source);
      Must(frame.contains("<P007>"), "a frame names the page");
      Must(frame.endsWith(" \r\n"), "a blank closes a page's row");
    }
  }
}

}  // namespace

void CheckMessageFile(const QByteArray& input) {
  const QString path = WriteFile(u"page.msg"_s, input);
  Brivon1::FileFailure failure;
  const auto page = Brivon1::LoadMessageFile(path, &failure);
  if (page) {
    MustBeAPage(*page);
    MustComeBack(*page);
  } else {
    Must(!Brivon1::MessageFileRemedy(path, failure).isEmpty(),
         "the operator is told why a page is refused");
    Must(failure.fault != Brivon1::FileFault::kNone, "a program is told why a page is refused");
  }
  MustBeFrames(path, input, page.has_value());
  Must(ReadFile(u"page.msg"_s) == input, "a file that is read stays as it is");
  Must(IsAlone(u"saved.msg"_s), "a save leaves one file");
}

}  // namespace Fuzz
