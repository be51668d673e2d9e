#include "page/message_transmission.h"

#include <algorithm>

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

/// Which rows have left this machine, with every attempt. On a slow line the answer to an earlier
/// attempt is taken for that to a row whose own bytes still wait here; and what is given up of a
/// row's further attempt may cut the row that had arrived.
class RowsOnTheirWay {
 public:
  explicit RowsOnTheirWay(const PanelLink& link) : link_(link) {}

  /// To be called ahead of each attempt.
  void TakeInAttempt(int row, qsizetype size) {
    Look();
    const bool is_first = row > ends_.size();
    others_wait_ = (is_first || others_wait_) && left_ < written_;
    written_ += size;
    if (is_first) {
      ends_.append(written_);
    } else {
      ends_.last() = written_;
    }
  }

  /// To be called as often as it may have changed: a line that is lost later does not say.
  void Look() {
    if (!link_.IsLost()) {
      left_ = written_ - link_.Unsent();
    } else if (!others_wait_) {
      left_ = written_;
    }
  }

  /// How many of the first `rows` have not left.
  int Waiting(int rows) {
    Look();
    while (gone_ < rows && ends_.at(gone_) <= left_) ++gone_;
    return rows - gone_;
  }

 private:
  const PanelLink& link_;
  QList<qint64> ends_;  // of each row's last attempt, counted in bytes written
  qint64 written_ = 0;
  qint64 left_ = 0;
  bool others_wait_ = false;  // whether other rows may wait ahead of the last row's attempts
  int gone_ = 0;
};

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
  line.progress.unproven = 0;
  RowsOnTheirWay on_their_way(line.link);
  for (int row = 1; row <= panel.rows; ++row) {
    line.progress.row = row;
    const QByteArray& frame = frames->at(row - 1);
    const auto show_status = [&](const QString& text) {
      line.status(TranslateText(text).arg(row));
    };
    const auto begin_attempt = [&] {
      on_their_way.TakeInAttempt(row, frame.size());
      show_status(u" Sending Line %1"_s);
    };
    DiscardInput(line.link);
    if (!SendUntilAcknowledged(line, id, frame, begin_attempt)) {
      line.progress.unproven = on_their_way.Waiting(row - 1);
      return false;
    }
    on_their_way.Look();
    show_status(u" Sending Line %1 <--- Ack"_s);
  }
  int waiting = 0;
  const auto look = [&] {
    waiting = on_their_way.Waiting(panel.rows);
    line.progress.unproven = std::max(waiting - 1, 0);  // of the rows before the last one
  };
  look();
  if ((waiting > 0 && line.link.IsLost()) || !HasArrived(line, id, look)) return false;
  line.progress.unproven = 0;
  WaitTicks(line.timer, line.configuration.delay_period);
  return true;
}

}  // namespace Brivon1
