// The lines of JSON that other programs read: the events of --json, and the log. Keys and values
// are a contract; what is new is added, and kJsonVersion is raised where something changes.
#pragma once

#include <QByteArray>

#include "orders/happenings.h"
#include "reports/report.h"

namespace BrivonCtl {

inline constexpr int kJsonVersion = 1;

/// "ok", "failed", "refused" or "stopped".
QString ResultName(Result result);

/// "tcp", "serial" or "none".
QString ModeName(Brivon1::SendMode mode);

QByteArray StartEvent(const Beginning& beginning);

/// A "row" where the step is a row of a page, else an "attempt".
QByteArray StepEvent(const Step& step);

QByteArray RetryEvent(const Transmission& transmission);
QByteArray FrameEvent(int panel, const QByteArray& frame);
QByteArray PanelEvent(const PanelResult& result);
QByteArray PanelEvent(const Transmission& transmission);
QByteArray StopEvent();
QByteArray SummaryEvent(const Summary& summary);

/// What is kept of a transmission. The time has its offset from UTC.
QByteArray LogLine(const Order& order, const Transmission& transmission);

}  // namespace BrivonCtl
