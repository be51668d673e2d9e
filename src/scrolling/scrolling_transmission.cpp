#include "scrolling/scrolling_transmission.h"

#include "base/file_checks.h"
#include "base/text.h"
#include "language/further_texts.h"
#include "panel_line/framing.h"
#include "panel_line/waits.h"
#include "scrolling/scrolling_file.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using ModuleLanguage::TranslateText;

/// The time that a frame is given to leave the line before its acknowledgement is waited for.
constexpr int kSendingTime = 300;

/// `text` without a single colour code, also none that is put together by taking out another one.
QByteArray WithoutColourCodes(const QByteArray& text) {
  QByteArray result;
  for (const char character : StripColourCodes(text)) {
    result.append(character);
    if (character != '>' || result.size() < kAttributeCodeLength) continue;
    if (QByteArrayView(result).last(kAttributeCodeLength).startsWith("<C")) {
      result.chop(kAttributeCodeLength);
    }
  }
  return result;
}

QByteArray ScrollingFrame(const QByteArray& text, int id, int line, qint16 colour_type) {
  return AckPrefix(id) + "<L" + QByteArray::number(line) + '>' +
         ScrollingPanelText(text, colour_type) + "\r\n";
}

}  // namespace

QByteArray ScrollingPanelText(const QByteArray& text, qint16 colour_type) {
  return colour_type == kMono ? TrimBlanks(WithoutColourCodes(text)) : text;
}

bool SendScrollingFile(OpenLine& line, const QString& path, int id, int line_number) {
  FileFailure failure;
  const std::optional<QByteArray> text = ScrollingFileText(path, &failure, *line.files);
  if (!text) {
    line.refusal = ScrollingFileRemedy(path, failure);
    return false;
  }
  const qint16 colour_type = line.configuration.panels[static_cast<std::size_t>(id)].colour_type;
  line.status(TranslateText(u"Sending --->"_s));
  if (!SendUntilAcknowledged(
          line, id, ScrollingFrame(*text, id, line_number, colour_type), [] {}, kSendingTime) ||
      !HasArrived(line, id)) {
    return false;
  }
  line.status(TranslateText(u"<--- Ack"_s));
  WaitTicks(line.timer, line.configuration.delay_period);
  return true;
}

}  // namespace Brivon1
