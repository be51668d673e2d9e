#include "reports/text_report.h"

#include <algorithm>

#include "orders/order_checks.h"
#include "reports/frame_text.h"
#include "reports/json_events.h"
#include "reports/results_table.h"
#include "sending/sending_words.h"
#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {

void TextReport::Begin(const Beginning& beginning) {
  all_ = static_cast<int>(beginning.panels.size());
  is_dry_run_ = beginning.is_dry_run;
  clock_.start();
}

void TextReport::TakeIn(const Step& step) {
  moving_[step.panel] = Brivon1::ProgressText(step.progress);
}

void TextReport::TakeIn(const Transmission& transmission) {
  const PanelResult& result = transmission.result;
  moving_.erase(result.panel);
  if (transmission.is_last) so_far_.results.append(result);
  if (is_quiet_) return;
  const Terminal terminal = LookAt(Stream::kError);
  // What has succeeded is seen in the total; the table says it again.
  if (terminal.is_terminal && result.result == Result::kOk) return;
  const QString name = transmission.is_last ? ResultName(result.result) : u"once more"_s;
  const QString why = u' ' + Harmless(OneLine(result.text + u'\n' + result.reason));
  const QString place = PanelName(result.panel) + u' ';
  PrintAbove(terminal.is_terminal
                 ? place + Coloured(name, ColourOf(result.result), terminal) +
                       Cut(why, terminal.columns - static_cast<int>(place.size() + name.size()))
                 : place + name + why);
}

void TextReport::TakeInFrame(int panel, const QByteArray& frame) {
  Print(Stream::kOutput, PanelName(panel).toLatin1() + ' ' + FrameText(frame) + '\n');
}

void TextReport::TakeInStop() {
  is_stopping_ = true;
  if (!is_quiet_ && !LookAt(Stream::kError).is_terminal) {
    PrintAbove(u"stopping after the attempts in progress"_s);
  }
}

QStringList TextReport::MovingLines(const Terminal& terminal) const {
  // One line for the total, one for those that have no room, one for the cursor.
  const auto room = static_cast<std::size_t>(std::max(terminal.lines - 3, 0));
  QStringList lines;
  std::size_t shown = 0;
  for (const auto& [panel, text] : moving_) {
    if (shown == room) break;
    lines.append(Cut(PanelName(panel) + u' ' + Harmless(text), terminal.columns - 1));
    ++shown;
  }
  if (shown < moving_.size()) {
    lines.append(Cut(u"and %1 more"_s.arg(moving_.size() - shown), terminal.columns - 1));
  }
  QString total = u"%1 of %2 done"_s.arg(so_far_.Count(Result::kOk)).arg(all_);
  const int failed = so_far_.Count(Result::kFailed);
  if (failed > 0) total += u", %1 failed"_s.arg(failed);
  total += u", %1 s"_s.arg(clock_.isValid() ? clock_.elapsed() / 1000 : 0);
  if (is_stopping_) total += u", stopping after the attempts in progress"_s;
  lines.append(Cut(total, terminal.columns - 1));
  return lines;
}

void TextReport::Erase() {
  if (shown_lines_ == 0) return;
  PrintText(Stream::kError, u"\x1b[%1A\x1b[J"_s.arg(shown_lines_));
  shown_lines_ = 0;
}

void TextReport::PrintAbove(const QString& line) {
  Erase();
  PrintText(Stream::kError, line + u'\n');
}

void TextReport::Refresh() {
  const Terminal terminal = LookAt(Stream::kError);
  if (is_quiet_ || is_dry_run_ || !terminal.is_terminal) return;
  // Happenings come by the thousand, and nobody sees more than a few pictures a second.
  constexpr qint64 kBetweenPictures = 100;
  if (since_picture_.isValid() && since_picture_.elapsed() < kBetweenPictures) return;
  since_picture_.start();
  const QStringList lines = MovingLines(terminal);
  // In one piece, so that nothing flickers.
  const QString up = shown_lines_ > 0 ? u"\x1b[%1A\r\x1b[J"_s.arg(shown_lines_) : QString();
  PrintText(Stream::kError, up + lines.join(u'\n') + u'\n');
  shown_lines_ = static_cast<int>(lines.size());
}

void TextReport::End(const Summary& summary) {
  Erase();
  if (is_dry_run_ || !summary.reason.isEmpty()) return;
  PrintText(Stream::kOutput, ResultsTable(summary, is_quiet_, LookAt(Stream::kOutput)));
}

}  // namespace BrivonCtl
