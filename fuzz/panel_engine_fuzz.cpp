// The virtual panel's engine: bytes of a line in any pieces are the same frames with the same
// answers, and what panels hold of them stays within its bounds. The first byte of an input says
// how the rest is cut, the second one what is wrong with the panels.
#include <cstdint>

#include <QTimeZone>

#include "engine/frame.h"
#include "engine/panel_engine.h"
#include "fuzz/must.h"
#include "fuzz/targets.h"
#include "panel_dots/panel_picture.h"

namespace Fuzz {
namespace {

using VirtualPanel::Answer;
using VirtualPanel::FrameRecord;
using VirtualPanel::PanelEngine;

QDateTime TheMoment() { return QDateTime(QDate(2026, 3, 2), QTime(8, 30), QTimeZone::utc()); }

const QList<VirtualPanel::PanelDescription>& ThePanels() {
  static const QList<VirtualPanel::PanelDescription> panels = {
      {1, 4, 96, true}, {26, 12, 192, false}, {255, 1, 30, true}};
  return panels;
}

VirtualPanel::Faults FaultsOf(int choice) {
  VirtualPanel::Faults faults;
  faults.silent = choice == 1;
  faults.garbage = choice == 2;
  faults.lower_case = choice == 3;
  faults.stray_byte = choice == 4;
  if (choice == 5) faults.pieces = 3;
  if (choice == 6) faults.silent_answers = 2;
  if (choice == 7) faults.close_after_frame = 2;
  faults.flood = choice == 8;
  return faults;
}

/// Feeds `bytes` in pieces of 1 to `longest` bytes, the same ones each time.
QList<Answer> ReceiveInPieces(PanelEngine* engine, QByteArrayView bytes, unsigned longest) {
  QList<Answer> answers;
  std::uint32_t state = longest;
  while (!bytes.isEmpty()) {
    state = state * 1664525U + 1013904223U;
    const qsizetype size = qMin<qsizetype>(bytes.size(), 1 + (state >> 16U) % longest);
    answers += engine->Receive(bytes.first(size));
    bytes = bytes.sliced(size);
  }
  return answers;
}

/// The frames of a line, by plain splitting.
QList<QByteArray> FramesIn(const QByteArray& bytes) {
  QList<QByteArray> frames = bytes.split('\n');
  frames.removeLast();  // not at its end yet
  frames.removeIf([](const QByteArray& line) { return line.isEmpty() || line == "\r"; });
  return frames;
}

void MustBeTheFrames(const QList<FrameRecord>& records, const QList<QByteArray>& frames) {
  const qsizetype first = frames.size() - records.size();
  for (qsizetype at = 0; at < records.size(); ++at) {
    const FrameRecord& record = records[at];
    const QByteArray frame = frames[first + at] + '\n';
    const bool is_too_long = frame.size() > VirtualPanel::kMaximumFrameSize;
    Must((record.meaning == VirtualPanel::Meaning::kTooLong) == is_too_long,
         "a frame that is too long is dropped");
    Must(record.bytes == (is_too_long ? frame.left(VirtualPanel::kKeptOfTooLongFrame) : frame),
         "a frame is recorded as it was received");
    Must(!record.description.isEmpty(), "every frame is told in words");
  }
}

/// Who is addressed answers with its own address, and nobody else does.
void MustBeAnswered(const FrameRecord& record) {
  QByteArray expected;
  if (record.meaning == VirtualPanel::Meaning::kSetClock) {
    expected = "<ID01>\r\n";
  } else if (record.meaning != VirtualPanel::Meaning::kTooLong) {
    for (const char* prefix : {"<ID01>", "<ID1A>", "<IDFF>"}) {
      if (record.bytes.startsWith(prefix)) expected = QByteArray(prefix) + "\r\n";
    }
  }
  Must(record.answer == expected, "who is addressed answers");
}

void MustBeWithinBounds(const VirtualPanel::Panel& panel) {
  const VirtualPanel::PanelMemory& memory = panel.Memory();
  Must(memory.Pages().size() <= VirtualPanel::PanelMemory::kMostPages, "no more pages");
  qint64 stored_bytes = 0;
  for (const VirtualPanel::StoredPage& page : memory.Pages()) {
    for (auto row = page.cbegin(); row != page.cend(); ++row) {
      Must(row.key() >= 1 && row.key() <= panel.Description().rows, "rows that the panel has");
      Must(row->cells.size() <= row->text.size(), "no more cells than bytes");
      stored_bytes += row->text.size();
    }
  }
  Must(memory.StoredBytes() == stored_bytes, "the memory is counted right");
  Must(stored_bytes <= VirtualPanel::PanelMemory::kMostStoredBytes, "no more bytes");
  const VirtualPanel::Schedules& schedules = memory.StoredSchedules();
  for (auto schedule = schedules.cbegin(); schedule != schedules.cend(); ++schedule) {
    Must(schedule.key() >= 'A' && schedule.key() <= 'J', "schedules A to J");
    Must(!schedule->entries.isEmpty() &&
             schedule->entries.size() <= VirtualPanel::PanelMemory::kMostScheduleEntries,
         "1 to 64 entries");
  }
  for (auto line = memory.Scrolling().cbegin(); line != memory.Scrolling().cend(); ++line) {
    Must(line.key() >= 1 && line.key() <= panel.Description().rows, "a scrolling row is there");
  }
}

/// From one change to the next, nothing changes by itself.
void MustChangeWhenItSays(const PanelEngine& engine, int id) {
  constexpr int kChanges = 20;
  QDateTime now = TheMoment().addMSecs(1);
  for (int change = 0; change < kChanges; ++change) {
    const auto next = engine.NextChange(id, now);
    if (!next) return;
    Must(*next > now, "the next change is ahead");
    const auto playing = engine.PlayingAt(id, now);
    const QDateTime last = next->addMSecs(-1);
    const QDateTime middle = now.addMSecs(now.msecsTo(last) / 2);
    Must(engine.PlayingAt(id, middle) == playing && engine.PlayingAt(id, last) == playing,
         "what plays stays until then");
    now = *next;
  }
}

void MustShowSomething(PanelEngine* engine, int id) {
  const QDateTime later = TheMoment().addSecs(12345);
  const auto page = engine->ShownPage(id, later);
  const VirtualPanel::StoredPage rows = engine->ShownRows(id, later);
  Must(rows.isEmpty() || page, "rows are those of a page");
  const VirtualPanel::PanelDescription& is = engine->FindPanel(id)->Description();
  PanelDots::PanelPicture picture{{is.rows, is.columns, is.tri_colour}};
  for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
    picture.rows.insert(row.key(), row->cells);
  }
  Must(PanelDots::DotsOf(picture, 0).Columns() == is.columns, "it can be drawn");
  const VirtualPanel::PanelMemory& memory = engine->FindPanel(id)->Memory();
  const bool has_schedule = memory.StoredSchedules().contains('C');
  const bool has_page = memory.Pages().contains(7);
  Must(engine->Play(id, 'C') == has_schedule, "a schedule that is there is played");
  Must(engine->Run(id, 7) == has_page, "a page that is there is run");
}

void MustBeAlike(const PanelEngine& one, const PanelEngine& other) {
  Must(one.FrameCount() == other.FrameCount(), "as many frames in pieces");
  for (qsizetype at = 0; at < one.Frames().size(); ++at) {
    const FrameRecord& whole = one.Frames()[at];
    const FrameRecord& pieces = other.Frames()[at];
    Must(whole.bytes == pieces.bytes && whole.meaning == pieces.meaning &&
             whole.obeyed == pieces.obeyed && whole.description == pieces.description &&
             whole.answer == pieces.answer,
         "the same frames in pieces");
  }
  for (const int id : one.PanelIds()) {
    const VirtualPanel::PanelMemory& memory = one.FindPanel(id)->Memory();
    const VirtualPanel::PanelMemory& same = other.FindPanel(id)->Memory();
    Must(memory.Pages().keys() == same.Pages().keys() &&
             memory.StoredBytes() == same.StoredBytes() &&
             memory.StoredSchedules() == same.StoredSchedules() &&
             memory.Scrolling().keys() == same.Scrolling().keys(),
         "the same is held of pieces");
    Must(one.ShownPage(id) == other.ShownPage(id) && one.Clock(id) == other.Clock(id),
         "the same is shown of pieces");
  }
}

}  // namespace

void CheckPanelEngine(const QByteArray& input) {
  const unsigned longest = input.isEmpty() ? 1 : static_cast<unsigned char>(input.front()) + 1;
  const int choice = input.size() < 2 ? 0 : static_cast<unsigned char>(input.at(1));
  const QByteArray bytes = input.mid(2);
  PanelEngine whole(ThePanels(), TheMoment);
  PanelEngine pieces(ThePanels(), TheMoment);
  whole.SetFaults(FaultsOf(choice));
  pieces.SetFaults(FaultsOf(choice));
  const QList<Answer> answers = whole.Receive(bytes);
  Must(ReceiveInPieces(&pieces, bytes, longest) == answers, "the same answers to pieces");
  MustBeAlike(whole, pieces);

  const QList<QByteArray> frames = FramesIn(bytes);
  Must(whole.FrameCount() == frames.size(), "each line is a frame");
  MustBeTheFrames(whole.Frames(), frames);
  for (const FrameRecord& record : whole.Frames()) {
    Must(record.answer.size() <= 9, "no answer is longer than an acknowledgement and a stray byte");
    if (choice == 0 || choice > 8) MustBeAnswered(record);
  }
  for (const int id : whole.PanelIds()) {
    MustBeWithinBounds(*whole.FindPanel(id));
    MustChangeWhenItSays(whole, id);
    MustShowSomething(&whole, id);
  }
}

}  // namespace Fuzz
