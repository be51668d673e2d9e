#include "files/report_text.h"

#include <map>

#include "reports/json_events.h"
#include "usage/json_line.h"
#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

QString Count(qsizetype count, const QString& one, const QString& many) {
  return QString::number(count) + u' ' + (count == 1 ? one : many);
}

QString Result(const FileReport& report) {
  if (report.IsRefused()) return u"refused"_s;
  const int warnings = report.Warnings();
  if (warnings == 0) return u"ok"_s;
  return u"ok, "_s + Count(warnings, u"warning"_s, u"warnings"_s);
}

/// "page message, 4 rows x 96 columns: ok"
QString Description(const FileReport& report) {
  QStringList parts;
  if (report.kind == FileKind::kPage) parts.append(u"page message"_s);
  if (report.kind == FileKind::kSchedule) parts.append(u"schedule"_s);
  if (report.kind == FileKind::kScrolling) parts.append(u"scrolling message"_s);
  if (report.dimension) {
    parts.append(u"%1 x %2"_s.arg(Count(report.dimension->rows, u"row"_s, u"rows"_s),
                                  Count(report.dimension->columns, u"column"_s, u"columns"_s)));
  }
  if (report.steps) parts.append(Count(*report.steps, u"step"_s, u"steps"_s));
  if (!report.times.isEmpty()) parts.append(report.times);
  if (report.length) parts.append(Count(*report.length, u"character"_s, u"characters"_s));
  const QString what = parts.join(u", "_s);
  return what.isEmpty() ? Result(report) : what + u": "_s + Result(report);
}

/// The lines of a report below its first, each with `indent` in front.
QString ProblemText(const FileReport& report, const QString& indent) {
  std::multimap<int, QString> lines;  // what stands in one line of the file keeps its order
  for (const Problem& problem : report.problems) {
    const bool is_error = problem.weight == Problem::Weight::kError;
    const QString where = problem.line == 0 ? QString() : u"line %1: "_s.arg(problem.line);
    lines.emplace(problem.line, indent + where + (is_error ? u"error: "_s : u"warning: "_s) +
                                    problem.text + u'\n');
  }
  for (const FileReport::Named& file : report.files) {
    lines.emplace(file.line, indent + u"line %1: "_s.arg(file.line) + Printable(file.report.path) +
                                 u": "_s + Description(file.report) + u'\n' +
                                 ProblemText(file.report, indent + u"  "_s));
  }
  QString text;
  for (const auto& [line, problem] : lines) text += problem;
  return text;
}

JsonLine ProblemJson(const Problem& problem) {
  JsonLine json;
  json.AddJson("line", problem.line == 0 ? "null" : QByteArray::number(problem.line));
  const bool is_error = problem.weight == Problem::Weight::kError;
  json.Add("severity", is_error ? u"error"_s : u"warning"_s).Add("text", problem.text);
  return json;
}

/// Adds what is known of a file to an object that says where it is named.
void AddReport(const FileReport& report, JsonLine* json) {
  json->Add("file", report.path).Add("kind", KindName(report.kind));
  if (report.dimension) {
    json->Add("rows", report.dimension->rows).Add("columns", report.dimension->columns);
  }
  if (report.steps) json->Add("steps", *report.steps);
  if (report.length) json->Add("length", static_cast<int>(*report.length));
  json->Add("result", report.IsRefused() ? u"refused"_s : u"ok"_s);
  QByteArrayList problems;
  for (const Problem& problem : report.problems) problems.append(ProblemJson(problem).Text());
  json->AddJson("problems", JsonArray(problems));
  if (report.kind != FileKind::kSchedule) return;
  QByteArrayList files;
  for (const FileReport::Named& file : report.files) {
    JsonLine named;
    named.Add("line", file.line);
    AddReport(file.report, &named);
    files.append(named.Text());
  }
  json->AddJson("files", JsonArray(files));
}

JsonLine Event(const QString& name) { return JsonLine().Add("event", name); }

}  // namespace

QString ReportText(const FileReport& report) {
  return Printable(report.path) + u": "_s + Description(report) + u'\n' +
         ProblemText(report, u"  "_s);
}

QByteArray StartJson(int files) {
  JsonLine json = Event(u"start"_s);
  json.Add("version", kJsonVersion).Add("action", u"check"_s).Add("files", files);
  return json.Text() + '\n';
}

QByteArray ReportJson(const FileReport& report) {
  JsonLine json = Event(u"file"_s);
  AddReport(report, &json);
  return json.Text() + '\n';
}

QByteArray SummaryJson(const CheckSummary& summary, int status) {
  JsonLine json = Event(u"summary"_s);
  json.Add("files", summary.files).Add("refused", summary.refused);
  return json.Add("warnings", summary.warnings).Add("status", status).Text() + '\n';
}

}  // namespace BrivonCtl
