#include "soak/told.h"

#include <optional>

#include <QRegularExpression>

using namespace Qt::StringLiterals;

using VirtualPanel::Panel;
using VirtualPanel::PanelEngine;

namespace {

constexpr qint64 kClockTolerance = 60'000;

/// The number in front of "of `all` `things`" in `why`; nothing where no such words stand there.
std::optional<int> Arrived(const QString& why, const QString& things, int* all) {
  const QRegularExpression words(u"(\\d+) of (\\d+) "_s + things + u" have arrived"_s);
  const auto match = words.match(why);
  if (!match.hasMatch()) return std::nullopt;
  *all = match.captured(2).toInt();
  return match.captured(1).toInt();
}

/// The panels that a work is for.
QList<int> Addressees(const Work& work, const PanelEngine& engine) {
  return work.panel.id == 0 ? engine.PanelIds() : QList<int>{work.panel.id};
}

/// Whether a panel holds the first `rows` rows of a page, as far as it has such rows.
QString MissingRow(const Work& work, const PanelEngine& engine, const SentPage& page,
                   qsizetype rows) {
  for (const int id : Addressees(work, engine)) {
    const auto held = engine.Page(id, page.number);
    const int most = engine.FindPanel(id)->Description().rows;
    for (int row = 1; row <= rows && row <= most; ++row) {
      if (held.value(row) == page.rows.at(row - 1)) continue;
      return u"row %1 of page %2 is not on panel %3, which has \"%4\""_s.arg(row)
          .arg(page.number)
          .arg(id)
          .arg(QString::fromLatin1(held.value(row)));
    }
  }
  return {};
}

QString UndoneCommand(const Work& work, const PanelEngine& engine, int id) {
  const Panel& panel = *engine.FindPanel(id);
  const int page = work.number.toInt();
  switch (work.kind) {
    case WorkKind::kDeleteAll:
      return panel.Memory().Pages().isEmpty() ? QString() : u"pages are left"_s;
    case WorkKind::kDeletePage:
      return panel.Memory().Pages().contains(page) ? u"the page is there"_s : QString();
    case WorkKind::kRunPage:
      // A schedule may have begun since.
      if (engine.PlayingAt(id, engine.Now())) return {};
      return engine.RunningPage(id) == page ? QString() : u"the page does not run"_s;
    default:
      return {};
  }
}

/// What is missing of a whole work.
QString Undone(const Work& work, const PanelEngine& engine) {
  for (const SentPage& page : work.pages) {
    const QString missing = MissingRow(work, engine, page, page.rows.size());
    if (!missing.isEmpty()) return missing;
  }
  for (const int id : Addressees(work, engine)) {
    const auto& memory = engine.FindPanel(id)->Memory();
    if (work.kind == WorkKind::kSchedule &&
        memory.StoredSchedules().value(work.letter) != work.schedule) {
      return u"the schedule is not on panel %1"_s.arg(id);
    }
    if (work.kind == WorkKind::kScrolling && work.row <= engine.FindPanel(id)->Description().rows &&
        memory.Scrolling().value(work.row).row.text != work.scrolling) {
      return u"the scrolling message is not on panel %1"_s.arg(id);
    }
    const QString undone = UndoneCommand(work, engine, id);
    if (!undone.isEmpty()) return undone;
  }
  return {};
}

/// What is not there of that which is said to have arrived of a work that was not finished.
QString NotArrived(const Told& told, const Work& work, const PanelEngine& engine) {
  int all = 0;
  int whole_pages = 0;
  if (work.kind == WorkKind::kSchedule) {
    if (const auto files = Arrived(told.why, u"files"_s, &all)) {
      if (all != work.pages.size()) return u"that is not how many files there are"_s;
      whole_pages = *files;
      for (int page = 0; page < whole_pages; ++page) {
        const SentPage& sent = work.pages.at(page);
        const QString missing = MissingRow(work, engine, sent, sent.rows.size());
        if (!missing.isEmpty()) return missing;
      }
    }
  }
  const auto rows = Arrived(told.why, u"rows"_s, &all);
  if (!rows) return {};
  if (whole_pages >= work.pages.size()) return u"there is no such page"_s;
  const SentPage& page = work.pages.at(whole_pages);
  if (all != page.rows.size()) return u"that is not how many rows there are"_s;
  return MissingRow(work, engine, page, *rows);
}

}  // namespace

QString Untruth(const Told& told, const Work& work, const PanelEngine& engine,
                const QList<QByteArray>& received) {
  if (told.end == Told::End::kFinished) {
    if (work.kind != WorkKind::kSetClock) return Undone(work, engine);
    const bool is_told = !received.isEmpty();
    for (const int id : engine.PanelIds()) {
      if (is_told && qAbs(engine.ClockOffset(id)) > kClockTolerance) return u"the clock is wrong"_s;
    }
    return {};
  }
  if (told.why.isEmpty()) return u"nothing is said of why"_s;
  if (told.why.contains("Nothing has been sent"_L1) && !received.isEmpty()) {
    return u"something has been sent: "_s + QString::fromLatin1(received.first());
  }
  return NotArrived(told, work, engine);
}

QString WrongFrame(const Work& work, const QList<QByteArray>& received) {
  if (work.kind == WorkKind::kSetClock) {
    return received.size() <= 1 ? QString() : u"a clock is set more than once"_s;
  }
  qsizetype at = 0;
  for (const QByteArray& frame : received) {
    if (frame == work.frames.at(at)) continue;
    if (at + 1 < work.frames.size() && frame == work.frames.at(at + 1)) {
      ++at;
      continue;
    }
    return u"a frame that is none of it: "_s + QString::fromLatin1(frame);
  }
  return {};
}
