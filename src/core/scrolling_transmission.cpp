#include "core/scrolling_transmission.h"

#include "core/framing.h"
#include "core/text.h"
#include "core/waits.h"

namespace Brivon1 {
namespace {

/// The time that a frame is given to leave the line before its acknowledgement is waited for.
constexpr int kSendingTime = 300;

QByteArray ScrollingFrame(QByteArray text, int id, int line, qint16 colour_type) {
  if (colour_type == kMono) text = TrimBlanks(StripColourCodes(text));
  return AckPrefix(id) + "<L" + QByteArray::number(line) + '>' + text + "\r\n";
}

}  // namespace

bool SendScrollingFile(Transmission& transmission, const QString& path, int id, int line) {
  const std::optional<QByteArray> text = ScrollingFileText(path);
  if (!text) return false;
  const qint16 colour_type =
      transmission.configuration.panels[static_cast<std::size_t>(id)].colour_type;
  transmission.status(QStringLiteral("Sending --->"));
  if (!SendUntilAcknowledged(
          transmission, id, ScrollingFrame(*text, id, line, colour_type), [] {}, kSendingTime)) {
    return false;
  }
  transmission.status(QStringLiteral("<--- Ack"));
  WaitTicks(transmission.timer, transmission.configuration.delay_period);
  return true;
}

}  // namespace Brivon1
