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
    const Panel& panel = *engine.FindPanel(id);
    const PanelDescription& description = panel.Description();
    panels.append(QJsonObject{
        {QStringLiteral("id"), id},
        {QStringLiteral("rows"), description.rows},
        {QStringLiteral("columns"), description.columns},
        {QStringLiteral("colour"),
         description.tri_colour ? QStringLiteral("tri") : QStringLiteral("mono")},
        {QStringLiteral("running_page"), NumberOrNull(panel.RunningPage(now))},
        {QStringLiteral("shown_page"), NumberOrNull(panel.ShownPage(now))},
        {QStringLiteral("clock_offset_seconds"),
         qRound64(static_cast<double>(panel.ClockOffset(now)) / 1000.0)},
        {QStringLiteral("pages"), PagesObject(panel.Memory().Pages())},
        {QStringLiteral("schedules"), SchedulesObject(panel.Memory().StoredSchedules())},
        {QStringLiteral("playing"), PlayingObject(panel.PlayingAt(now))},
        {QStringLiteral("scrolling"), ScrollingObject(panel.Memory().Scrolling())},
    });
  }
  return QJsonDocument(QJsonObject{{QStringLiteral("panels"), panels}}).toJson();
}

}  // namespace VirtualPanel
