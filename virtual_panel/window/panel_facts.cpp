#include "window/panel_facts.h"

#include <QLocale>
#include <QStringList>

#include "panel_dots/panel_picture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr qsizetype kMostToolTipEntries = 20;
constexpr qsizetype kMostToolTipCharacters = 600;

QString ShownPageText(const Panel& panel, const QDateTime& now) {
  const auto shown = panel.ShownPage(now);
  if (panel.PlayingAt(now)) return u"showing page %1"_s.arg(*shown);
  if (panel.RunningPage(now)) return u"running page %1"_s.arg(*shown);
  if (shown) return u"showing page %1, last received"_s.arg(*shown);
  return u"no page shown"_s;
}

}  // namespace

QString Separator() { return u"   \u00B7   "_s; }

QString Facts(const Panel& panel, const QDateTime& now) {
  const PanelDescription& description = panel.Description();
  const qsizetype count = panel.Memory().Pages().size();
  const QStringList facts = {
      u"ID %1"_s.arg(description.id, 3, 10, QLatin1Char('0')),
      u"%1x%2"_s.arg(description.rows).arg(description.columns),
      description.tri_colour ? u"Tri"_s : u"Mono"_s,
      QLocale::c().toString(panel.Clock(now), u"ddd dd MMM yyyy HH:mm"_s),
      ShownPageText(panel, now),
      count == 1 ? u"1 page stored"_s : u"%1 pages stored"_s.arg(count),
  };
  return facts.join(Separator());
}

QString PlayingText(const std::optional<Playing>& playing) {
  if (!playing) return u"no schedule is playing"_s;
  const QStringList parts = {
      u"playing schedule %1"_s.arg(QLatin1Char(playing->letter)),
      u"entry %1 of %2"_s.arg(playing->entry).arg(playing->entries),
      u"page %1"_s.arg(playing->page),
      EffectName(playing->feature),
  };
  return parts.join(Separator());
}

QString ScheduleCaption(char letter, const Schedule& schedule) {
  const qsizetype count = schedule.entries.size();
  const QStringList parts = {QString(QLatin1Char(letter)), ScheduleTime(schedule),
                             count == 1 ? u"1 entry"_s : u"%1 entries"_s.arg(count)};
  return parts.join(u"  \u00B7  "_s);
}

QString ScheduleToolTip(const Schedule& schedule) {
  QStringList lines;
  for (const ScheduleEntry& entry : schedule.entries) {
    if (lines.size() == kMostToolTipEntries) {
      lines.append(QString(QChar(0x2026)));
      break;
    }
    lines.append(u"%1. page %2, %3 s, %4"_s.arg(lines.size() + 1)
                     .arg(entry.page)
                     .arg(entry.delay)
                     .arg(EffectName(entry.feature)));
  }
  return lines.join(QLatin1Char('\n'));
}

QString PageText(const StoredPage& page, const QDateTime& clock) {
  QStringList lines;
  for (auto row = page.cbegin(); row != page.cend(); ++row) {
    QString text = PanelDots::RowText(row->cells, clock);
    if (text.size() > kMostToolTipCharacters) {
      text.truncate(kMostToolTipCharacters);
      text += QChar(0x2026);
    }
    lines.append(u"%1.  "_s.arg(row.key()) + text);
  }
  return lines.join(QLatin1Char('\n'));
}

}  // namespace VirtualPanel
