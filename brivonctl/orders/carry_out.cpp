#include "orders/carry_out.h"

#include <QStringList>

#include "command/command_order.h"
#include "language/module_language.h"
#include "page/message_transmission.h"
#include "page/page_order.h"
#include "panel_line/waits.h"
#include "schedule/schedule_order.h"
#include "schedule/schedule_transmission.h"
#include "scrolling/scrolling_order.h"
#include "scrolling/scrolling_transmission.h"
#include "sending/sending_words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

using Brivon1::OpenLine;
using Brivon1::PanelListEntry;
using Brivon1::SendMode;
using ModuleLanguage::TranslateMessage;

PanelResult Ending(const OpenLine& line, int panel, bool succeeded, const QString& text,
                   QStringList why) {
  if (succeeded) return {panel, Result::kOk, text, {}};
  if (line.timer.stop.made) {
    return {panel, Result::kStopped, TranslateMessage(u"Aborted!"_s),
            Brivon1::ArrivedText(line.progress, panel)};
  }
  why.removeAll(QString());
  const QString last = Brivon1::WhyNotSent(line, panel);
  // A schedule has told it already with the page at which it failed.
  if (!why.join(u'\n').endsWith(last)) why.append(last);
  const bool is_lost = line.refusal.isEmpty() && line.link.IsLost();
  const QString lost = is_lost ? line.link.FailureReason() : QString();
  if (!lost.isEmpty()) why.prepend(lost);
  return {panel, Result::kFailed, text, why.join(u'\n')};
}

PanelResult FileEnding(const OpenLine& line, int panel, bool succeeded, const QString& sent_text,
                       const QStringList& why = {}) {
  return Ending(line, panel, succeeded,
                succeeded ? sent_text : TranslateMessage(u"Transmission failure!"_s), why);
}

PanelResult SendSchedule(OpenLine& line, const Order& order, int panel) {
  QStringList why;
  const auto tell = [&why](const Brivon1::Refusal& refusal) {
    why << refusal.text << refusal.remedy;
  };
  const bool sent = Brivon1::SendScheduleFile(line, order.path, panel, order.number, tell);
  return FileEnding(line, panel, sent, Brivon1::ScheduleSentText(line.configuration.Mode()), why);
}

PanelResult Command(OpenLine& line, Brivon1::PanelCommand command, const Order& order, int panel,
                    const QDateTime& now) {
  const auto report = Brivon1::CarryOutCommand(line, command, panel, order.number, now);
  const PanelResult result =
      Ending(line, panel, report.succeeded, Brivon1::CommandReportText(report), {});
  Brivon1::WaitTicks(line.timer, Brivon1::kLastBytesTime);
  return result;
}

}  // namespace

PanelResult CarryOut(OpenLine& line, const Order& order, const PanelListEntry& panel,
                     const TimeSource& now) {
  line.timer.last_ack_status = 0;
  line.files = &order.Files();
  if (const auto command = CommandOf(order.action)) {
    return Command(line, *command, order, panel.id, now());
  }
  const QString sent_text = TranslateMessage(u"Transmission finished!"_s);
  switch (order.action) {
    case Action::kSendSchedule:
      return SendSchedule(line, order, panel.id);
    case Action::kSendScrolling:
      return FileEnding(
          line, panel.id,
          Brivon1::SendScrollingFile(line, order.path, panel.id, Brivon1::LineNumber(order.number)),
          sent_text);
    default:
      return FileEnding(
          line, panel.id,
          Brivon1::SendMessageFile(line, order.path, panel.id, Brivon1::PageDigits(order.number),
                                   {panel.rows, panel.columns}),
          sent_text);
  }
}

PanelResult NotOpened(Brivon1::PanelConnection& connection, SendMode mode, int panel) {
  if (connection.Timer().stop.made) return NotBegun(panel);
  return {panel, Result::kFailed, Brivon1::LinkFailureText(mode), connection.FailureReason()};
}

PanelResult NotBegun(int panel) {
  return {panel, Result::kStopped, TranslateMessage(u"Aborted!"_s),
          Brivon1::ArrivedText({}, panel)};
}

SendMode ModeFor(const Order& order, const Brivon1::Configuration& configuration) {
  return order.action == Action::kSendScrolling ? SendMode::kSerial : configuration.Mode();
}

}  // namespace BrivonCtl
