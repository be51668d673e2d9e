#include "reports/json_events.h"

#include <cstdlib>

#include <QDir>
#include <QFileInfo>

#include "orders/order_checks.h"
#include "reports/frame_text.h"
#include "usage/json_line.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

/// A page or a line is a number, a letter a text.
void AddNumber(JsonLine& line, const Order& order) {
  const QByteArray name = NumberName(order.action).toLatin1();
  if (name == "letter") {
    line.Add(name.constData(), order.number.toUpper());
  } else if (!name.isEmpty()) {
    line.Add(name.constData(), order.number.toInt());
  }
}

void AddFile(JsonLine& line, const Order& order, const QByteArray& digest) {
  if (!SendsFile(order.action)) return;
  line.Add("file", QDir::toNativeSeparators(QFileInfo(order.SentPath()).absoluteFilePath()));
  line.Add("sha256", QString::fromLatin1(digest));
}

JsonLine Event(const QString& name) { return JsonLine().Add("event", name); }

JsonLine PanelLine(const PanelResult& result) {
  JsonLine line = Event(u"panel"_s);
  line.Add("panel", result.panel).Add("result", ResultName(result.result));
  line.Add("text", OneLine(result.text));
  if (result.result != Result::kOk) {
    line.Add("reason", OneLine(result.text + u'\n' + result.reason));
  }
  return line;
}

QString IsoTime(const QDateTime& time) {
  constexpr int kMinute = 60;
  const int offset = time.offsetFromUtc() / kMinute;
  return time.toString(u"yyyy-MM-ddTHH:mm:ss.zzz"_s) + (offset < 0 ? u'-' : u'+') +
         u"%1:%2"_s.arg(std::abs(offset) / kMinute, 2, 10, '0'_L1)
             .arg(std::abs(offset) % kMinute, 2, 10, '0'_L1);
}

}  // namespace

QString ResultName(Result result) {
  switch (result) {
    case Result::kOk:
      return u"ok"_s;
    case Result::kFailed:
      return u"failed"_s;
    case Result::kRefused:
      return u"refused"_s;
    case Result::kStopped:
      return u"stopped"_s;
  }
  return {};
}

QString ModeName(Brivon1::SendMode mode) {
  if (mode == Brivon1::SendMode::kNone) return u"none"_s;
  return mode == Brivon1::SendMode::kTcp ? u"tcp"_s : u"serial"_s;
}

QByteArray StartEvent(const Beginning& beginning) {
  JsonLine line = Event(u"start"_s);
  line.Add("version", kJsonVersion).Add("action", ActionName(beginning.order.action));
  AddFile(line, beginning.order, beginning.digest);
  AddNumber(line, beginning.order);
  line.Add("panels", beginning.panels).Add("link", ModeName(beginning.mode));
  return line.AddFlag("dry_run", beginning.is_dry_run).Text();
}

QByteArray StepEvent(const Step& step) {
  const Brivon1::Progress& progress = step.progress;
  JsonLine line = Event(progress.rows > 0 ? u"row"_s : u"attempt"_s);
  line.Add("panel", step.panel);
  if (progress.files > 0) {
    line.Add("file", progress.file).Add("files", progress.files);
    line.Add("name", progress.file_name).AddFlag("is_schedule", progress.is_schedule);
  }
  if (progress.rows > 0) line.Add("row", progress.row).Add("rows", progress.rows);
  return line.Add("attempt", progress.attempt).Add("attempts", progress.attempts).Text();
}

QByteArray RetryEvent(const Transmission& transmission) {
  const PanelResult& result = transmission.result;
  return Event(u"retry"_s)
      .Add("panel", result.panel)
      .Add("transmission", transmission.number)
      .Add("reason", OneLine(result.text + u'\n' + result.reason))
      .Text();
}

QByteArray FrameEvent(int panel, const QByteArray& frame) {
  return Event(u"frame"_s)
      .Add("panel", panel)
      .Add("frame", QString::fromLatin1(FrameText(frame)))
      .Add("hex", QString::fromLatin1(frame.toHex()))
      .Text();
}

QByteArray PanelEvent(const PanelResult& result) { return PanelLine(result).Text(); }

QByteArray PanelEvent(const Transmission& transmission) {
  return PanelLine(transmission.result)
      .Add("rows", transmission.acknowledged_rows)
      .Add("attempts", transmission.attempts)
      .Add("transmissions", transmission.number)
      .Text();
}

QByteArray StopEvent() { return Event(u"stop"_s).Text(); }

QByteArray SummaryEvent(const Summary& summary) {
  JsonLine line = Event(u"summary"_s);
  for (const Result result : {Result::kOk, Result::kFailed, Result::kRefused, Result::kStopped}) {
    line.Add(ResultName(result).toLatin1().constData(), summary.Count(result));
  }
  line.AddSeconds("seconds", summary.milliseconds).Add("status", summary.status);
  if (!summary.reason.isEmpty()) line.Add("reason", OneLine(summary.reason));
  return line.Text();
}

QByteArray LogLine(const Order& order, const Transmission& transmission) {
  const PanelResult& result = transmission.result;
  JsonLine line;
  line.Add("time", IsoTime(transmission.begun)).Add("action", ActionName(order.action));
  line.Add("panel", result.panel);
  AddFile(line, order, transmission.digest);
  AddNumber(line, order);
  line.Add("rows", transmission.acknowledged_rows).Add("attempts", transmission.attempts);
  line.Add("result", ResultName(result.result));
  if (result.result != Result::kOk) {
    line.Add("reason", OneLine(result.text + u'\n' + result.reason));
  }
  return line.Text();
}

}  // namespace BrivonCtl
