// What a panel holds: pages, schedules and scrolling texts, no more of them than there is room for.
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>

#include "engine/schedule.h"
#include "panel_dots/message_text.h"

namespace VirtualPanel {

struct StoredRow {
  QByteArray
      text;  // as sent, from behind the page code to before CR LF, the closing blank included
  QList<PanelDots::Cell> cells;  // without the closing blank
};

using StoredPage = QMap<int, StoredRow>;  // by row, from 1

// A text that runs across a row.
struct ScrollingLine {
  StoredRow row;
  qint64 began_ms = 0;  // in the time source's milliseconds
};

using ScrollingLines = QMap<int, ScrollingLine>;  // by row, from 1

class PanelMemory {
 public:
  // A row that does not fit is dropped. Beside its bytes a row takes a cell for each of its
  // characters, which are several times as many.
  static constexpr int kMostPages = 1000;
  static constexpr qint64 kMostStoredBytes = 16'777'216;
  static constexpr qsizetype kMostScheduleEntries = 64;

  const QMap<int, StoredPage>& Pages() const { return pages_; }  // by page number
  const Schedules& StoredSchedules() const { return schedules_; }
  const ScrollingLines& Scrolling() const { return scrolling_lines_; }
  qint64 StoredBytes() const { return stored_bytes_; }  // of the pages

  // False: the memory is full.
  bool StoreRow(int page, int row, const QByteArray& text);
  // False: it was not stored.
  bool DeletePage(int page);
  // False: it has too many entries.
  bool StoreSchedule(char letter, const Schedule& schedule);
  // An empty text ends the one of the row.
  void StoreScrollingLine(int row, const QByteArray& text, qint64 now_ms);
  void EndScrolling() { scrolling_lines_.clear(); }
  void Clear() { *this = PanelMemory(); }

 private:
  QMap<int, StoredPage> pages_;
  Schedules schedules_;
  ScrollingLines scrolling_lines_;
  qint64 stored_bytes_ = 0;
};

}  // namespace VirtualPanel
