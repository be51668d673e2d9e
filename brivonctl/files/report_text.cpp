#include "files/report_text.h"

#include <map>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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

QJsonObject Json(const FileReport& report) {
  QJsonArray problems;
  for (const Problem& problem : report.problems) {
    QJsonObject object{
        {u"severity"_s, problem.weight == Problem::Weight::kError ? u"error"_s : u"warning"_s},
        {u"text"_s, problem.text}};
    object.insert(u"line"_s, problem.line == 0 ? QJsonValue() : QJsonValue(problem.line));
    problems.append(object);
  }
  QJsonObject object{{u"file"_s, report.path},
                     {u"kind"_s, KindName(report.kind)},
                     {u"result"_s, report.IsRefused() ? u"refused"_s : u"ok"_s},
                     {u"problems"_s, problems}};
  if (report.dimension) {
    object.insert(u"rows"_s, report.dimension->rows);
    object.insert(u"columns"_s, report.dimension->columns);
  }
  if (report.steps) object.insert(u"steps"_s, *report.steps);
  if (report.length) object.insert(u"length"_s, *report.length);
  if (report.kind == FileKind::kSchedule) {
    QJsonArray files;
    for (const FileReport::Named& file : report.files) {
      QJsonObject named = Json(file.report);
      named.insert(u"line"_s, file.line);
      files.append(named);
    }
    object.insert(u"files"_s, files);
  }
  return object;
}

QByteArray LineOf(QJsonObject object, const QString& event) {
  object.insert(u"event"_s, event);
  return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

}  // namespace

QString ReportText(const FileReport& report) {
  return Printable(report.path) + u": "_s + Description(report) + u'\n' +
         ProblemText(report, u"  "_s);
}

QByteArray ReportJson(const FileReport& report) { return LineOf(Json(report), u"file"_s); }

QByteArray SummaryJson(int files, int refused, int warnings) {
  return LineOf({{u"files"_s, files}, {u"refused"_s, refused}, {u"warnings"_s, warnings}},
                u"summary"_s);
}

}  // namespace BrivonCtl
