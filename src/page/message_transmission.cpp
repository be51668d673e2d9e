#include "page/message_transmission.h"

#include "base/file_checks.h"
#include "language/further_texts.h"
#include "page/message_file.h"
#include "page/row_line.h"
#include "panel_line/framing.h"
#include "panel_line/waits.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using ModuleLanguage::TranslateText;

QByteArray MessageFrame(const QByteArray& file_line, int id, const QByteArray& page,
                        qint16 colour_type) {
  const PanelLine line = AsPanelLine(file_line, colour_type);
  return AckPrefix(id) + line.code + "<P" + page + '>' + line.text + " \r\n";
}

}  // namespace

std::optional<QList<QByteArray>> MessageFrames(const QString& path, int id, const QByteArray& page,
                                               Dimension panel, qint16 colour_type,
                                               const FileSource& files) {
  MessageFileReader file(path, files);
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
  const auto frames = MessageFrames(path, id, page, panel, colour_type, *line.files);
  if (!frames) {
    line.refusal = MessageFileRemedy(path, SendingFailure(path, *line.files));
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
