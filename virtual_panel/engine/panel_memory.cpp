#include "engine/panel_memory.h"

#include <utility>

namespace VirtualPanel {

bool PanelMemory::StoreRow(int page, int row, const QByteArray& text) {
  const auto stored = pages_.constFind(page);
  const bool is_new_page = stored == pages_.constEnd();
  const qint64 replaced = is_new_page ? 0 : stored->value(row).text.size();
  const qint64 stored_bytes = stored_bytes_ - replaced + text.size();
  if ((is_new_page && pages_.size() >= kMostPages) || stored_bytes > kMostStoredBytes) return false;
  // The sender closes every row with one blank of its own, which is not shown.
  QByteArrayView shown(text);
  if (shown.endsWith(' ')) shown.chop(1);
  pages_[page].insert(row, {text, PanelDots::ParseCells(shown)});
  stored_bytes_ = stored_bytes;
  return true;
}

bool PanelMemory::DeletePage(int page) {
  const auto stored = pages_.find(page);
  if (stored == pages_.end()) return false;
  for (const StoredRow& row : std::as_const(*stored)) stored_bytes_ -= row.text.size();
  pages_.erase(stored);
  return true;
}

bool PanelMemory::StoreSchedule(char letter, const Schedule& schedule) {
  if (schedule.entries.size() > kMostScheduleEntries) return false;
  schedules_.insert(letter, schedule);
  return true;
}

void PanelMemory::StoreScrollingLine(int row, const QByteArray& text, qint64 now_ms) {
  if (text.isEmpty()) {
    scrolling_lines_.remove(row);
  } else {
    scrolling_lines_.insert(row, {{text, PanelDots::ParseCells(text)}, now_ms});
  }
}

}  // namespace VirtualPanel
