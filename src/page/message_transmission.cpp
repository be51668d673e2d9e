#include "page/message_transmission.h"

#include <algorithm>

#include "base/file_checks.h"
#include "base/text.h"
#include "language/further_texts.h"
#include "page/message_file.h"
#include "panel_line/framing.h"
#include "panel_line/waits.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using ModuleLanguage::TranslateText;

constexpr qsizetype kLeadingCodeLength = 5;

/// `line` with the panel's own codes for date, time and graphics. The replacement goes by the
/// literal text of the line, codes included.
QByteArray WithPanelCodes(QByteArray line) {
  line.replace("DD MMM YYYY", "<DD>");
  line.replace("HH:MM", "<DT>");
  QByteArray result;
  for (qsizetype i = 0; i < line.size(); ++i) {
    if (line[i] == '~' && i + 1 < line.size()) {
      result += QByteArray("<G") + line[++i] + '>';
    } else {
      result += line[i];
    }
  }
  return result;
}

QByteArray MessageFrame(const QByteArray& file_line, int id, const QByteArray& page,
                        qint16 colour_type) {
  const QByteArray line = WithPanelCodes(file_line);
  QByteArray text = line.mid(line.indexOf('>') + 1);
  if (colour_type == kMono) text = TrimBlanks(StripColourCodes(text));
  return AckPrefix(id) + line.first(std::min(kLeadingCodeLength, line.size())) + "<P" + page + '>' +
         text + " \r\n";
}

}  // namespace

std::optional<QList<QByteArray>> MessageFrames(const QString& path, int id, const QByteArray& page,
                                               Dimension panel, qint16 colour_type) {
  MessageFileReader file(path);
  if (file.FileDimension() != panel || !CanBeSent(panel)) return std::nullopt;
  QList<QByteArray> frames;
  for (int row = 1; row <= panel.rows; ++row) {
    const std::optional<QByteArray> line = file.NextRowLine();
    if (!line) return std::nullopt;
    frames.append(MessageFrame(*line, id, page, colour_type));
  }
  return frames;
}

bool SendMessageFile(OpenLine& line, const QString& path, int id, const QByteArray& page,
                     Dimension panel) {
  line.status(TranslateText(u"Reading %1"_s).arg(path));
  const qint16 colour_type = line.configuration.panels[static_cast<std::size_t>(id)].colour_type;
  const auto frames = MessageFrames(path, id, page, panel, colour_type);
  if (!frames) {
    line.refusal = MessageFileRemedy(path);
    return false;
  }
  line.progress.rows = panel.rows;
  for (qsizetype row = 0; row < frames->size(); ++row) {
    line.progress.row = static_cast<int>(row) + 1;
    const auto show_status = [&](const QString& text) {
      line.status(TranslateText(text).arg(row + 1));
    };
    DiscardInput(line.link);
    if (!SendUntilAcknowledged(line, id, frames->at(row),
                               [&] { show_status(u" Sending Line %1"_s); })) {
      return false;
    }
    show_status(u" Sending Line %1 <--- Ack"_s);
  }
  if (!HasArrived(line, id)) return false;
  WaitTicks(line.timer, line.configuration.delay_period);
  return true;
}

}  // namespace Brivon1
