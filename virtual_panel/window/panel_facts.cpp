#include "window/panel_facts.h"

#include <QLocale>
#include <QStringList>

#include "panel_dots/panel_picture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr qsizetype kMostToolTipEntries = 20;
constexpr qsizetype kMostToolTipCharacters = 600;
constexpr int kHighestPage = 999;

QString LastReceivedText(int page) { return u"showing page %1, last received"_s.arg(page); }

QString ShownPageText(const Panel& panel, const QDateTime& now) {
  const auto shown = panel.ShownPage(now);
  if (panel.PlayingAt(now)) return u"showing page %1"_s.arg(*shown);
  if (panel.RunningPage(now)) return u"running page %1"_s.arg(*shown);
  if (shown) return LastReceivedText(*shown);
  return u"no page shown"_s;
}

QString FactsText(const PanelDescription& description, const QDateTime& clock,
                  const QString& shown_page, qsizetype page_count) {
  const QStringList facts = {
      u"ID %1"_s.arg(description.id, 3, 10, QLatin1Char('0')),
      u"%1x%2"_s.arg(description.rows).arg(description.columns),
      description.tri_colour ? u"Tri"_s : u"Mono"_s,
      QLocale::c().toString(clock, u"ddd dd MMM yyyy HH:mm"_s),
      shown_page,
      page_count == 1 ? u"1 page stored"_s : u"%1 pages stored"_s.arg(page_count),
  };
  return facts.join(Separator());
}

}  // namespace

QString Separator() { return u"   \u00B7   "_s; }

QString Facts(const Panel& panel, const QDateTime& now) {
  return FactsText(panel.Description(), panel.Clock(now), ShownPageText(panel, now),
                   panel.Memory().Pages().size());
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

QString LongestFacts(const PanelDescription& description) {
  const QDateTime clock(QDate(2088, 9, 22), QTime(20, 0));  // a Wednesday
  return FactsText(description, clock, LastReceivedText(kHighestPage), PanelMemory::kMostPages);
}

QString LongestPlayingText() {
  constexpr int kEntries = PanelMemory::kMostScheduleEntries;
  QString longest;
  for (char feature = 'A'; feature <= 'H'; ++feature) {
    const QString text =
        PlayingText(Playing{kLastScheduleLetter, kEntries, kEntries, kHighestPage, feature});
    if (text.size() > longest.size()) longest = text;
  }
  return longest;
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
