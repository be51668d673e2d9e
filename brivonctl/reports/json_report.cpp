#include "reports/json_report.h"

#include "reports/json_events.h"
#include "reports/terminal.h"

namespace BrivonCtl {
namespace {

void PrintLine(const QByteArray& line) { Print(Stream::kOutput, line + '\n'); }

}  // namespace

void JsonReport::Begin(const Beginning& beginning) { PrintLine(StartEvent(beginning)); }

void JsonReport::TakeIn(const Step& step) {
  // That the last bytes leave is no step of its own.
  if (!is_quiet_ && step.progress.milliseconds_left < 0) PrintLine(StepEvent(step));
}

void JsonReport::TakeIn(const Transmission& transmission) {
  if (transmission.is_last) {
    PrintLine(PanelEvent(transmission));
  } else if (!is_quiet_) {
    PrintLine(RetryEvent(transmission));
  }
}

void JsonReport::TakeInFrame(int panel, const QByteArray& frame) {
  PrintLine(FrameEvent(panel, frame));
}

void JsonReport::TakeInRefused(const PanelResult& result) { PrintLine(PanelEvent(result)); }

void JsonReport::TakeInStop() { PrintLine(StopEvent()); }

void JsonReport::End(const Summary& summary) { PrintLine(SummaryEvent(summary)); }

}  // namespace BrivonCtl
