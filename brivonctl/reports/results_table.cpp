#include "reports/results_table.h"

#include <algorithm>

#include "orders/order_checks.h"
#include "reports/json_events.h"
#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

constexpr int kResultColumns = 9;
constexpr int kNameColumns = 7;
constexpr int kFewestColumns = 20;  // for a reason

/// `text` broken between words into lines of at most so many columns.
QStringList Broken(const QString& text, int columns) {
  QStringList lines;
  QString line;
  for (const QString& word : text.split(u' ')) {
    if (!line.isEmpty() && line.size() + 1 + word.size() > columns) {
      lines.append(line);
      line.clear();
    }
    if (!line.isEmpty()) line += u' ';
    line += word;
  }
  if (!line.isEmpty()) lines.append(line);
  return lines;
}

QString Row(const PanelResult& panel, const Terminal& terminal) {
  const int indent = kNameColumns + kResultColumns;
  const QString why = Harmless(OneLine(panel.text + u'\n' + panel.reason));
  const QStringList lines = terminal.is_terminal
                                ? Broken(why, std::max(terminal.columns - indent, kFewestColumns))
                                : QStringList{why};
  const QString result = ResultName(panel.result).leftJustified(kResultColumns);
  return PanelName(panel.panel).leftJustified(kNameColumns) +
         Coloured(result, ColourOf(panel.result), terminal) +
         lines.join(u'\n' + QString(indent, u' ')) + u'\n';
}

}  // namespace

Colour ColourOf(Result result) {
  switch (result) {
    case Result::kOk:
      return Colour::kGreen;
    case Result::kFailed:
      return Colour::kRed;
    case Result::kRefused:
    case Result::kStopped:
      return Colour::kYellow;
  }
  return Colour::kGrey;
}

QString TotalText(const Summary& summary) {
  const auto all = static_cast<int>(summary.results.size());
  QString text = u"%1 of %2 %3 done"_s.arg(summary.Count(Result::kOk))
                     .arg(all)
                     .arg(all == 1 ? u"panel"_s : u"panels"_s);
  for (const Result result : {Result::kFailed, Result::kRefused, Result::kStopped}) {
    const int count = summary.Count(result);
    if (count > 0) text += u", %1 %2"_s.arg(count).arg(ResultName(result));
  }
  return text + u", %1 s"_s.arg(static_cast<double>(summary.milliseconds) / 1000.0, 0, 'f', 1);
}

QString ResultsTable(const Summary& summary, bool is_quiet, const Terminal& terminal) {
  QString table;
  for (const PanelResult& panel : summary.results) {
    if (!is_quiet || panel.result != Result::kOk) table += Row(panel, terminal);
  }
  return is_quiet ? table : table + TotalText(summary) + u'\n';
}

}  // namespace BrivonCtl
