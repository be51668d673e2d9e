#include "command/commands.h"

#include "base/text.h"
#include "panel_line/framing.h"
#include "panel_line/waits.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

QString Title() { return u"Command"_s; }

/// Sends `frame` up to five times; every failed attempt, also the last, is followed by a pause.
bool SendWithPauses(OpenLine& line, int id, const QByteArray& frame) {
  for (int attempt = 1; attempt <= kAttempts; ++attempt) {
    if (!MaySend(line.link, line.timer)) break;
    line.progress.attempt = attempt;
    line.Report();
    line.link.Write(frame);
    if (WaitForAck(line.link, line.timer, id)) {
      return HasArrived(line, id);
    }
    if (!MaySend(line.link, line.timer)) break;
    WaitTicks(line.timer, line.configuration.delay_period);
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

bool Deletes(PanelCommand command) {
  return command == PanelCommand::kDeleteAll || command == PanelCommand::kDeletePage;
}

QString WhatItDeletes(PanelCommand command, int id) {
  if (!Deletes(command)) return {};
  if (command == PanelCommand::kDeleteAll) {
    return id == 0 ? u"Deletes every page of all panels"_s : u"Deletes every page of %1"_s;
  }
  return id == 0 ? u"Deletes one page of all panels"_s : u"Deletes one page of %1"_s;
}

bool IsPageNumber(const QString& text) {
  const int page = LeadingNumber(text.toUtf8(), 0, kHighestPage + 1);
  return page >= 1 && page <= kHighestPage;
}

CommandReport CarryOutCommand(OpenLine& line, PanelCommand command, int id, const QString& page,
                              const QDateTime& now) {
  const int page_number = LeadingNumber(page.toUtf8(), 0, kHighestPage);
  switch (command) {
    case PanelCommand::kPolling:
      if (!SendWithPauses(line, id, PollFrame(id))) {
        return Failure(u"Polling error!"_s);
      }
      return {{u"Command is sent successfully!"_s}, Title(), true};
    case PanelCommand::kSetClock:
      line.progress.attempt = line.progress.attempts = 1;
      line.Report();
      line.link.Write(SetClockFrame(now));
      if (line.configuration.Mode() != SendMode::kSerial) {
        return {{u"Set Clock Finished!"_s}, Title(), true};
      }
      // Only a stop changes what is said.
      if (!(WaitForAck(line.link, line.timer, id) && (id != 0 || HasArrived(line, id))) &&
          line.timer.stop.made) {
        return TransmissionError();
      }
      return {{u"Set clock is done!"_s}, Title(), true};
    case PanelCommand::kDeleteAll:
      if (!SendWithPauses(line, id, DeleteAllFrame(id))) return TransmissionError();
      return {{u"All pages are deleted!"_s}, Title(), true};
    case PanelCommand::kDeletePage:
      if (!SendWithPauses(line, id, DeletePageFrame(id, page_number))) {
        return TransmissionError();
      }
      return PageReport(page, u"is deleted."_s, Title());
    case PanelCommand::kRunPage:
      if (!SendWithPauses(line, id, RunPageFrame(id, page_number))) {
        return TransmissionError();
      }
      return PageReport(page, u"is running."_s, u"Run page"_s);
  }
  return {};
}

}  // namespace Brivon1
