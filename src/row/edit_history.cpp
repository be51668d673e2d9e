#include "row/edit_history.h"

#include <algorithm>
#include <utility>

namespace Brivon1 {
namespace {

constexpr std::size_t kMostEdits = 1000;

/// Rows of hand-made files may be of any length; the edits of such are fewer.
constexpr qsizetype kMostCharacters = 4'000'000;

}  // namespace

void EditHistory::Clear() {
  undo_.clear();
  redo_.clear();
  joins_next_ = false;
}

void EditHistory::Record(RowState before) {
  redo_.clear();
  if (std::exchange(joins_next_, false) && !undo_.empty()) return;
  undo_.push_back(std::move(before));
  ForgetOldest();
}

void EditHistory::Record(std::vector<RowState> before) {
  redo_.clear();
  joins_next_ = false;
  for (RowState& state : before) {
    state.goes_on = &state != &before.front();
    undo_.push_back(std::move(state));
  }
  ForgetOldest();
}

void EditHistory::ForgetOldest() {
  qsizetype characters = 0;
  for (const RowState& state : undo_) characters += state.row.Length();
  while (undo_.size() > kMostEdits || characters > kMostCharacters) {
    const auto second =
        std::find_if(undo_.begin() + 1, undo_.end(), [](const RowState& s) { return !s.goes_on; });
    if (second == undo_.end()) return;  // the last edit can always be taken back
    for (auto state = undo_.begin(); state != second; ++state) characters -= state->row.Length();
    undo_.erase(undo_.begin(), second);
  }
}

bool EditHistory::Exchange(std::deque<RowState>& from, std::deque<RowState>& to, PageRow& row) {
  const int number = from.back().number;
  const bool goes_on = from.back().goes_on;
  row.EndSelection();
  to.push_back({number, std::exchange(row, std::move(from.back().row)), in_edit_});
  row.EndSelection();
  from.pop_back();
  in_edit_ = goes_on;
  return goes_on;
}

}  // namespace Brivon1
