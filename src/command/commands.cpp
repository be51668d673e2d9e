#include "command/commands.h"

#include "base/text.h"
#include "panel_line/framing.h"
#include "panel_line/waits.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

constexpr int kHighestPage = 120;

QString Title() { return u"Command"_s; }

/// Sends `frame` up to five times; every failed attempt, also the last, is followed by a pause.
bool SendWithPauses(Transmission& transmission, int id, const QByteArray& frame) {
  for (int attempt = 1; attempt <= kAttempts; ++attempt) {
    if (!MaySend(transmission.link, transmission.timer)) break;
    transmission.link.Write(frame);
    if (WaitForAck(transmission.link, transmission.timer, id)) {
      return HasArrived(transmission, id);
    }
    if (!MaySend(transmission.link, transmission.timer)) break;
    WaitTicks(transmission.timer, transmission.configuration.delay_period);
  }
  return false;
}

CommandReport Failure(const QString& text) { return {{text}, Title(), false}; }

CommandReport TransmissionError() { return Failure(u"Transmission error!"_s); }

CommandReport PageReport(const QString& page, const QString& outcome, const QString& title) {
  return {{u"Page"_s, page, outcome}, title, true};
}

}  // namespace

bool NeedsPage(PanelCommand command) {
  return command == PanelCommand::kDeletePage || command == PanelCommand::kRunPage;
}

bool IsPageNumber(const QString& text) {
  const int page = LeadingNumber(text.toUtf8(), 0, kHighestPage + 1);
  return page >= 1 && page <= kHighestPage;
}

CommandReport CarryOutCommand(Transmission& transmission, SendMode mode, PanelCommand command,
                              int id, const QString& page, const QDateTime& now) {
  const int page_number = LeadingNumber(page.toUtf8(), 0, kHighestPage);
  switch (command) {
    case PanelCommand::kPolling:
      if (!SendWithPauses(transmission, id, PollFrame(id))) {
        return Failure(u"Polling error!"_s);
      }
      return {{u"Command is sent successfully!"_s}, Title(), true};
    case PanelCommand::kSetClock:
      transmission.link.Write(SetClockFrame(now));
      if (mode != SendMode::kSerial) return {{u"Set Clock Finished!"_s}, Title(), true};
      WaitForAck(transmission.link, transmission.timer, id);
      if (id == 0) HasArrived(transmission, id);  // what is said does not depend on it
      return {{u"Set clock is done!"_s}, Title(), true};
    case PanelCommand::kDeleteAll:
      if (!SendWithPauses(transmission, id, DeleteAllFrame(id))) return TransmissionError();
      return {{u"All pages are deleted!"_s}, Title(), true};
    case PanelCommand::kDeletePage:
      if (!SendWithPauses(transmission, id, DeletePageFrame(id, page_number))) {
        return TransmissionError();
      }
      return PageReport(page, u"is deleted."_s, Title());
    case PanelCommand::kRunPage:
      if (!SendWithPauses(transmission, id, RunPageFrame(id, page_number))) {
        return TransmissionError();
      }
      return PageReport(page, u"is running."_s, u"Run page"_s);
  }
  return {};
}

}  // namespace Brivon1
