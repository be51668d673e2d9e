// Scrolling messages: what was read, saved and read again is the same message, and what a panel of
// one colour is sent has no colours.
#include "base/file_checks.h"
#include "fuzz/files.h"
#include "fuzz/frames.h"
#include "fuzz/must.h"
#include "fuzz/rows.h"
#include "fuzz/targets.h"
#include "scrolling/scrolling_file.h"
#include "scrolling/scrolling_message.h"
#include "scrolling/scrolling_transmission.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace Fuzz {
namespace {

bool HasColourCode(const QByteArray& text) {
  for (qsizetype at = text.indexOf("<C"); at >= 0; at = text.indexOf("<C", at + 1)) {
    if (at + 3 < text.size() && text.at(at + 3) == '>') return true;
  }
  return false;
}

void MustComeBack(const Brivon1::PageRow& message) {
  Brivon1::ScrollingMessage edited;
  edited.TakeOver(message);
  Must(!edited.IsModified(), "what was read is not modified");
  Must(edited.FirstVisible() >= 0 && edited.FirstVisible() <= edited.Row().Cursor(),
       "the cursor is in sight");
  const QString path = WriteFile(u"saved.srl"_s, "what stood there before");
  Must(Brivon1::WriteScrollingMessage(path, edited.Row()) == Brivon1::SaveResult::kSaved,
       "a message is saved");
  const auto again = Brivon1::ReadScrollingMessage(path);
  Must(again.has_value(), "a message that was saved is read again");
  if (SpellsACode(message.Text())) return;
  Must(again->ShowsTheSameAs(message), "the message comes back");
}

void MustBeFrames(const QString& path, const QByteArray& source, bool is_message) {
  constexpr int kId = 255;
  constexpr int kLine = 12;
  for (const qint16 colour_type : {Brivon1::kMono, Brivon1::kTri}) {
    bool is_sent = false;
    const QList<QByteArray> frames = FramesOf(kId, colour_type, [&](Brivon1::OpenLine& line) {
      is_sent = Brivon1::SendScrollingFile(line, path, kId, kLine);
      Must(is_sent == line.refusal.isEmpty(), "the operator is told why nothing is sent");
    });
    Must(is_sent == is_message, "what can be read is sent, and nothing else");
    Must(frames.size() == (is_message ? 1 : 0), "one frame for a message");
    for (const QByteArray& frame : frames) {
      MustBeFrame(frame, kId, source);
      Must(frame.startsWith("<IDFF><L12>"), "a frame names the line");
      Must(colour_type == Brivon1::kTri || !HasColourCode(frame), "no colours for one colour");
    }
  }
}

}  // namespace

void CheckScrollingFile(const QByteArray& input) {
  const QString path = WriteFile(u"message.srl"_s, input);
  Brivon1::FileFailure failure;
  const auto message = Brivon1::ReadScrollingMessage(path, &failure);
  if (message) {
    Must(message->Cursor() == 0, "the cursor stands at column 0");
    Must(Brivon1::IsScrollingFile(path), "a message begins as one");
    MustComeBack(*message);
  } else {
    Must(failure.fault != Brivon1::FileFault::kNone, "a program is told why a file is refused");
    Must(!Brivon1::ScrollingFileRemedy(path, failure).isEmpty(), "and so is the operator");
  }
  MustBeFrames(path, input, message.has_value());
  Must(ReadFile(u"message.srl"_s) == input, "a file that is read stays as it is");
  Must(IsAlone(u"saved.srl"_s), "a save leaves one file");
}

}  // namespace Fuzz
