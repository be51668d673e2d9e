#include "sending/line_faults/faulty_windows.h"

#include <iterator>
#include <optional>
#include <utility>

#include <QComboBox>
#include <QListWidget>

#include "engine/panel.h"

using namespace Qt::StringLiterals;

using VirtualPanel::PanelEngine;

namespace {

enum CommandRow { kPolling = 0, kSetClock = 1, kDeleteAll = 2 };

constexpr int kPagePanel = 26;
constexpr int kCommandPanel = 200;
constexpr int kOldYear = 2001;

const SendingWindow& Sending(const char* name) {
  for (const SendingWindow& window : SendingWindows()) {
    if (QByteArrayView(window.name) == name) return window;
  }
  qFatal("no such window");
}

QString Row(const PanelEngine& engine, int id, int page, int row) {
  return QString::fromLatin1(engine.Page(id, page).value(row));
}

FaultyWindow Page() {
  return {.window = Sending("Page"),
          .name = "Page",
          .frames_at = {1, 3, 4},
          .older =
              "<ID1A><L01><P001>old \r\n<ID1A><L02><P001>old \r\n"
              "<ID1A><L03><P001>old \r\n<ID1A><L04><P001>old \r\n",
          .held =
              [](const PanelEngine& engine) {
                QStringList rows;
                for (int row = 1; row <= 4; ++row) rows.append(Row(engine, kPagePanel, 1, row));
                return rows;
              },
          .held_before = {u"old "_s, u"old "_s, u"old "_s, u"old "_s},
          .held_after = {u"<SA><CA>Row 01 "_s, u"<SA><CB>Row 02 "_s, u"<SA><CC>Row 03 "_s,
                         u"<SA><CD>Row 04 "_s},
          .arrived = {u"0 of 4 rows have arrived, missing: 4."_s,
                      u"1 of 4 rows have arrived, missing: 3."_s,
                      u"2 of 4 rows have arrived, missing: 2."_s,
                      u"3 of 4 rows have arrived, missing: 1."_s}};
}

// Two files of two rows each, so that the middle is the second file's beginning.
FaultyWindow Schedule() {
  SendingWindow window = Sending("Schedule");
  window.write_file = [](TemporaryProgramFolder& folder) {
    const auto entry = [](const QString& path) {
      return path.toLocal8Bit().leftJustified(100, ' ') + "\r\n";
    };
    return folder.Write(
        u"week.sch"_s,
        "*** Brivon Schedule File ***\r\nWeek =7\r\nHour =8\r\nMin =**\r\n"
        "Row =2\r\nCol =96\r\nNo of Sequence =2\r\n" +
            entry(folder.Write(u"first.msg"_s, SampleMessageFile(2, 96))) + "5\r\nwipe left\r\n" +
            entry(folder.Write(u"second.msg"_s, SampleMessageFile(2, 96))) + "10\r\nflip\r\n");
  };
  window.frames = {"<ID1A><L01><P001><SA><CA>Row 01 \r\n", "<ID1A><L02><P001><SA><CB>Row 02 \r\n",
                   "<ID1A><L01><P002><SA><CA>Row 01 \r\n", "<ID1A><L02><P002><SA><CB>Row 02 \r\n",
                   "<ID1A><TA>608**00105E,00210B\r\n"};
  return {
      .window = std::move(window),
      .name = "Schedule",
      .frames_at = {1, 3, 4, 5},
      .older =
          "<ID1A><L01><P001>old \r\n<ID1A><L02><P001>old \r\n<ID1A><L01><P002>old \r\n"
          "<ID1A><L02><P002>old \r\n<ID1A><TA>*****00101A\r\n",
      .held =
          [](const PanelEngine& engine) {
            const auto schedule =
                engine.FindPanel(kPagePanel)->Memory().StoredSchedules().value('A');
            QString entries = ScheduleTime(schedule);
            for (const VirtualPanel::ScheduleEntry& entry : schedule.entries) {
              entries +=
                  u" %1/%2/%3"_s.arg(entry.page).arg(entry.delay).arg(QLatin1Char(entry.feature));
            }
            return QStringList{Row(engine, kPagePanel, 1, 1), Row(engine, kPagePanel, 1, 2),
                               Row(engine, kPagePanel, 2, 1), Row(engine, kPagePanel, 2, 2),
                               entries};
          },
      .held_before = {u"old "_s, u"old "_s, u"old "_s, u"old "_s, u"daily **:** 1/1/A"_s},
      .held_after = {u"<SA><CA>Row 01 "_s, u"<SA><CB>Row 02 "_s, u"<SA><CA>Row 01 "_s,
                     u"<SA><CB>Row 02 "_s, u"Sat 08:** 1/5/E 2/10/B"_s},
      .arrived = {u"0 of 2 files have arrived. The schedule has not.\n"
                  "%1: 0 of 2 rows have arrived, missing: 2."_s,
                  u"0 of 2 files have arrived. The schedule has not.\n"
                  "%1: 1 of 2 rows have arrived, missing: 1."_s,
                  u"1 of 2 files have arrived. The schedule has not.\n"
                  "%2: 0 of 2 rows have arrived, missing: 2."_s,
                  u"1 of 2 files have arrived. The schedule has not.\n"
                  "%2: 1 of 2 rows have arrived, missing: 1."_s,
                  u"2 of 2 files have arrived. The schedule has not."_s}};
}

FaultyWindow Scrolling() {
  return {.window = Sending("Scrolling"),
          .name = "Scrolling",
          .frames_at = {1},
          .older = "<ID1A><L1>old\r\n",
          .held =
              [](const PanelEngine& engine) {
                const auto lines = engine.FindPanel(kPagePanel)->Memory().Scrolling();
                return QStringList{QString::fromLatin1(lines.value(1).row.text)};
              },
          .held_before = {u"old"_s},
          .held_after = {u"<SA><CA>Road <CB>works"_s},
          .arrived = {u"The panel has not acknowledged it."_s}};
}

template <CommandRow kRow>
void Choose(SendDialog& dialog) {
  dialog.Find<QListWidget>("ListCommand")->setCurrentRow(kRow);
}

FaultyWindow Polling() {
  return {
      .window = Sending("Command"),
      .name = "Polling",
      .frames_at = {1},
      .older = "<IDC8><L01><P001>old \r\n",
      .held =
          [](const PanelEngine& engine) { return QStringList{Row(engine, kCommandPanel, 1, 1)}; },
      .held_before = {u"old "_s},
      .held_after = {u"old "_s},
      .arrived = {u"The panel has not acknowledged it."_s}};
}

FaultyWindow DeleteAll() {
  FaultyWindow window = Polling();
  window.name = "DeleteAll";
  window.window.fill_in = Choose<kDeleteAll>;
  window.window.frames = {"<IDC8><D*>\r\n"};
  window.window.finished = [](LineKind) { return u"All pages are deleted!"_s; };
  window.window.failed = [](const TemporaryProgramFolder&) {
    return QStringList{u"Transmission error!"_s};
  };
  window.held_after = {QString()};
  return window;
}

// Sent once, with an end that does not depend on the answer. The time is cut out of its frame.
FaultyWindow SetClock() {
  FaultyWindow window = Polling();
  window.name = "SetClock";
  window.window.fill_in = Choose<kSetClock>;
  window.window.frames = {"<T>\r\n"};
  window.window.finished = [](LineKind line) {
    return line == LineKind::kTcp ? u"Set Clock Finished!"_s : u"Set clock is done!"_s;
  };
  window.older = "<T0101011120000>\r\n";
  window.held = [](const PanelEngine& engine) {
    const bool is_old = engine.Clock(kCommandPanel).date().year() == kOldYear;
    return QStringList{is_old ? u"its old time"_s : u"the time of now"_s};
  };
  window.held_before = {u"its old time"_s};
  window.held_after = {u"the time of now"_s};
  return window;
}

QString Remedy(Ending ending, int id, const QString& arrived) {
  switch (ending) {
    case Ending::kNoAnswer:
      return u"No response from display panel. Please check connection.\n"
             "Panel ID %1 was tried 5 times.\n"_s.arg(id) +
             arrived;
    case Ending::kWrongAnswer:
      return u"Panel ID %1 was tried 5 times.\n"_s.arg(id) + arrived;
    case Ending::kNothingSent:
      return u"Nothing has been sent."_s;
    default:
      return arrived;
  }
}

}  // namespace

const char* NameOf(Moment moment) {
  static constexpr const char* kNames[] = {"before", "first row", "middle row", "last row",
                                           "schedule frame"};
  return kNames[static_cast<int>(moment)];
}

const QList<FaultyWindow>& FaultyWindows() {
  static const QList<FaultyWindow> windows = {Page(),    Schedule(),  Scrolling(),
                                              Polling(), DeleteAll(), SetClock()};
  return windows;
}

std::optional<int> FrameAt(const FaultyWindow& window, Moment moment) {
  if (moment == Moment::kBefore) return 0;
  const qsizetype place = static_cast<qsizetype>(moment) - 1;
  if (place >= window.frames_at.size()) return std::nullopt;
  return window.frames_at.at(place);
}

QList<ExpectedBox> BoxesOf(const FaultyWindow& window, LineKind line, Ending ending, int arrived,
                           const TemporaryProgramFolder& folder, const QString& reason) {
  if (ending == Ending::kFinished) return {{window.window.finished(line), QString()}};
  if (ending == Ending::kNotOpened) {
    return {{line == LineKind::kTcp ? u"Cannot create TCP link!"_s
                                    : u"Fail to initialize communication port!"_s,
             reason}};
  }
  const QString first = folder.Path(u"first.msg"_s);
  const QString second = folder.Path(u"second.msg"_s);
  QString text = window.arrived.at(arrived);
  const QString remedy =
      Remedy(ending, window.window.panel.id, text.replace(u"%1"_s, first).replace(u"%2"_s, second));
  if (QByteArrayView(window.name) != "Schedule") {
    return {{window.window.failed(folder).constFirst(), remedy}};
  }
  QList<ExpectedBox> boxes = {{u"Transmission failure!"_s, remedy}};
  // The schedule's own frame is no part of a file.
  if (arrived < 4) {
    boxes.prepend({u"Error in sending %1!"_s.arg(arrived < 2 ? first : second), remedy});
  }
  return boxes;
}
