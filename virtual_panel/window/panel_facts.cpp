#include "window/panel_facts.h"

#include <QLocale>
#include <QStringList>

#include "panel_dots/panel_picture.h"

namespace VirtualPanel {
namespace {

constexpr qsizetype kMostToolTipEntries = 20;
constexpr qsizetype kMostToolTipCharacters = 600;

QString ShownPageText(const Panel& panel, const QDateTime& now) {
  const auto shown = panel.ShownPage(now);
  if (panel.PlayingAt(now)) return QStringLiteral("showing page %1").arg(*shown);
  if (panel.RunningPage(now)) return QStringLiteral("running page %1").arg(*shown);
  if (shown) return QStringLiteral("showing page %1, last received").arg(*shown);
  return QStringLiteral("no page shown");
}

}  // namespace

QString Separator() { return QStringLiteral("   \u00B7   "); }

QString Facts(const Panel& panel, const QDateTime& now) {
  const PanelDescription& description = panel.Description();
  const qsizetype count = panel.Memory().Pages().size();
  const QStringList facts = {
      QStringLiteral("ID %1").arg(description.id, 3, 10, QLatin1Char('0')),
      QStringLiteral("%1x%2").arg(description.rows).arg(description.columns),
      description.tri_colour ? QStringLiteral("Tri") : QStringLiteral("Mono"),
      QLocale::c().toString(panel.Clock(now), QStringLiteral("ddd dd MMM yyyy HH:mm")),
      ShownPageText(panel, now),
      count == 1 ? QStringLiteral("1 page stored") : QStringLiteral("%1 pages stored").arg(count),
  };
  return facts.join(Separator());
}

QString PlayingText(const std::optional<Playing>& playing) {
  if (!playing) return QStringLiteral("no schedule is playing");
  const QStringList parts = {
      QStringLiteral("playing schedule %1").arg(QLatin1Char(playing->letter)),
      QStringLiteral("entry %1 of %2").arg(playing->entry).arg(playing->entries),
      QStringLiteral("page %1").arg(playing->page),
      EffectName(playing->feature),
  };
  return parts.join(Separator());
}

QString ScheduleCaption(char letter, const Schedule& schedule) {
  const qsizetype count = schedule.entries.size();
  const QStringList parts = {
      QString(QLatin1Char(letter)), ScheduleTime(schedule),
      count == 1 ? QStringLiteral("1 entry") : QStringLiteral("%1 entries").arg(count)};
  return parts.join(QStringLiteral("  \u00B7  "));
}

QString ScheduleToolTip(const Schedule& schedule) {
  QStringList lines;
  for (const ScheduleEntry& entry : schedule.entries) {
    if (lines.size() == kMostToolTipEntries) {
      lines.append(QString(QChar(0x2026)));
      break;
    }
    lines.append(QStringLiteral("%1. page %2, %3 s, %4")
                     .arg(lines.size() + 1)
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
    lines.append(QStringLiteral("%1.  ").arg(row.key()) + text);
  }
  return lines.join(QLatin1Char('\n'));
}

}  // namespace VirtualPanel
