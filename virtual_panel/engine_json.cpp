#include "engine_json.h"

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
        {QStringLiteral("running_page"), NumberOrNull(panel->running_page)},
        {QStringLiteral("shown_page"), NumberOrNull(panel->ShownPage())},
        {QStringLiteral("clock_offset_seconds"),
         qRound64(static_cast<double>(engine.ClockOffset(id)) / 1000.0)},
        {QStringLiteral("pages"), pages},
    });
  }
  return QJsonDocument(QJsonObject{{QStringLiteral("panels"), panels}}).toJson();
}

}  // namespace VirtualPanel
