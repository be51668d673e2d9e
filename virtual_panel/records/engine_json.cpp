#include "records/engine_json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

QJsonValue NumberOrNull(std::optional<int> number) {
  return number ? QJsonValue(*number) : QJsonValue(QJsonValue::Null);
}

QJsonValue Addressee(int addressee) {
  if (addressee == kNobody) return QJsonValue(QJsonValue::Null);
  if (addressee == kEveryPanel) return QJsonValue(u"all"_s);
  return QJsonValue(addressee);
}

QJsonObject PagesObject(const QMap<int, StoredPage>& pages) {
  QJsonObject object;
  for (auto page = pages.cbegin(); page != pages.cend(); ++page) {
    QJsonObject rows;
    for (auto row = page->cbegin(); row != page->cend(); ++row) {
      rows.insert(QString::number(row.key()), QString::fromLatin1(row->text));
    }
    object.insert(QString::number(page.key()), rows);
  }
  return object;
}

QJsonObject SchedulesObject(const Schedules& schedules) {
  QJsonObject object;
  for (auto schedule = schedules.cbegin(); schedule != schedules.cend(); ++schedule) {
    QJsonArray entries;
    for (const ScheduleEntry& entry : schedule->entries) {
      entries.append(QJsonObject{{u"page"_s, entry.page},
                                 {u"delay"_s, entry.delay},
                                 {u"feature"_s, QString(QLatin1Char(entry.feature))}});
    }
    object.insert(QString(QLatin1Char(schedule.key())),
                  QJsonObject{{u"weekday"_s, WeekdayCode(*schedule)},
                              {u"hour"_s, HourCode(*schedule)},
                              {u"minute"_s, MinuteCode(*schedule)},
                              {u"entries"_s, entries}});
  }
  return object;
}

QJsonValue PlayingObject(const std::optional<Playing>& playing) {
  if (!playing) return QJsonValue(QJsonValue::Null);
  return QJsonObject{{u"letter"_s, QString(QLatin1Char(playing->letter))},
                     {u"entry"_s, playing->entry},
                     {u"page"_s, playing->page},
                     {u"effect"_s, EffectName(playing->feature)}};
}

QJsonObject ScrollingObject(const ScrollingLines& lines) {
  QJsonObject object;
  for (auto line = lines.cbegin(); line != lines.cend(); ++line) {
    object.insert(QString::number(line.key()), QString::fromLatin1(line->row.text));
  }
  return object;
}

}  // namespace

QByteArray LogLine(const FrameRecord& record) {
  const QDateTime time = record.time.toOffsetFromUtc(record.time.offsetFromUtc());
  const QJsonObject object{
      {u"time"_s, time.toString(Qt::ISODateWithMs)},
      {u"line"_s, record.line},
      {u"panel"_s, Addressee(record.addressee)},
      {u"frame"_s, QString::fromLatin1(record.bytes)},
      {u"meaning"_s, record.description},
      {u"answered"_s, !record.answer.isEmpty()},
      {u"answer"_s, QString::fromLatin1(record.answer)},
  };
  return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

QByteArray StateDocument(const PanelEngine& engine) {
  const QDateTime now = engine.Now();
  QJsonArray panels;
  for (const int id : engine.PanelIds()) {
    const Panel& panel = *engine.FindPanel(id);
    const PanelDescription& description = panel.Description();
    panels.append(QJsonObject{
        {u"id"_s, id},
        {u"rows"_s, description.rows},
        {u"columns"_s, description.columns},
        {u"colour"_s, description.tri_colour ? u"tri"_s : u"mono"_s},
        {u"running_page"_s, NumberOrNull(panel.RunningPage(now))},
        {u"shown_page"_s, NumberOrNull(panel.ShownPage(now))},
        {u"clock_offset_seconds"_s, qRound64(static_cast<double>(panel.ClockOffset(now)) / 1000.0)},
        {u"pages"_s, PagesObject(panel.Memory().Pages())},
        {u"schedules"_s, SchedulesObject(panel.Memory().StoredSchedules())},
        {u"playing"_s, PlayingObject(panel.PlayingAt(now))},
        {u"scrolling"_s, ScrollingObject(panel.Memory().Scrolling())},
    });
  }
  return QJsonDocument(QJsonObject{{u"panels"_s, panels}}).toJson();
}

}  // namespace VirtualPanel
