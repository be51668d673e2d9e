#include "records/engine_json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace VirtualPanel {
namespace {

QJsonValue NumberOrNull(std::optional<int> number) {
  return number ? QJsonValue(*number) : QJsonValue(QJsonValue::Null);
}

QJsonValue Addressee(int addressee) {
  if (addressee == kNobody) return QJsonValue(QJsonValue::Null);
  if (addressee == kEveryPanel) return QJsonValue(QStringLiteral("all"));
  return QJsonValue(addressee);
}

QJsonObject SchedulesObject(const Schedules& schedules) {
  QJsonObject object;
  for (auto schedule = schedules.cbegin(); schedule != schedules.cend(); ++schedule) {
    QJsonArray entries;
    for (const ScheduleEntry& entry : schedule->entries) {
      entries.append(QJsonObject{{QStringLiteral("page"), entry.page},
                                 {QStringLiteral("delay"), entry.delay},
                                 {QStringLiteral("feature"), QString(QLatin1Char(entry.feature))}});
    }
    object.insert(QString(QLatin1Char(schedule.key())),
                  QJsonObject{{QStringLiteral("weekday"), WeekdayCode(*schedule)},
                              {QStringLiteral("hour"), HourCode(*schedule)},
                              {QStringLiteral("minute"), MinuteCode(*schedule)},
                              {QStringLiteral("entries"), entries}});
  }
  return object;
}

QJsonValue PlayingObject(const std::optional<Playing>& playing) {
  if (!playing) return QJsonValue(QJsonValue::Null);
  return QJsonObject{{QStringLiteral("letter"), QString(QLatin1Char(playing->letter))},
                     {QStringLiteral("entry"), playing->entry},
                     {QStringLiteral("page"), playing->page},
                     {QStringLiteral("effect"), EffectName(playing->feature)}};
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
      {QStringLiteral("time"), time.toString(Qt::ISODateWithMs)},
      {QStringLiteral("line"), record.line},
      {QStringLiteral("panel"), Addressee(record.addressee)},
      {QStringLiteral("frame"), QString::fromLatin1(record.bytes)},
      {QStringLiteral("meaning"), record.description},
      {QStringLiteral("answered"), !record.answer.isEmpty()},
      {QStringLiteral("answer"), QString::fromLatin1(record.answer)},
  };
  return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

QByteArray StateDocument(const PanelEngine& engine) {
  const QDateTime now = engine.Now();
  QJsonArray panels;
  for (const int id : engine.PanelIds()) {
    const Panel* panel = engine.FindPanel(id);
    QJsonObject pages;
    for (auto page = panel->pages.cbegin(); page != panel->pages.cend(); ++page) {
      QJsonObject rows;
      for (auto row = page->cbegin(); row != page->cend(); ++row) {
        rows.insert(QString::number(row.key()), QString::fromLatin1(row->text));
      }
      pages.insert(QString::number(page.key()), rows);
    }
    const PanelDescription& description = panel->description;
    panels.append(QJsonObject{
        {QStringLiteral("id"), id},
        {QStringLiteral("rows"), description.rows},
        {QStringLiteral("columns"), description.columns},
        {QStringLiteral("colour"),
         description.tri_colour ? QStringLiteral("tri") : QStringLiteral("mono")},
        {QStringLiteral("running_page"), NumberOrNull(engine.RunningPage(id, now))},
        {QStringLiteral("shown_page"), NumberOrNull(engine.ShownPage(id, now))},
        {QStringLiteral("clock_offset_seconds"),
         qRound64(static_cast<double>(engine.ClockOffset(id)) / 1000.0)},
        {QStringLiteral("pages"), pages},
        {QStringLiteral("schedules"), SchedulesObject(panel->schedules)},
        {QStringLiteral("playing"), PlayingObject(engine.PlayingAt(id, now))},
        {QStringLiteral("scrolling"), ScrollingObject(panel->scrolling_lines)},
    });
  }
  return QJsonDocument(QJsonObject{{QStringLiteral("panels"), panels}}).toJson();
}

}  // namespace VirtualPanel
