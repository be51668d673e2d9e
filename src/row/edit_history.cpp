#include "row/edit_history.h"

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
}

void EditHistory::Record(RowState before) {
  redo_.clear();
  undo_.push_back(std::move(before));
  qsizetype characters = 0;
  for (const RowState& state : undo_) characters += state.row.Length();
  while (undo_.size() > kMostEdits || (characters > kMostCharacters && undo_.size() > 1)) {
    characters -= undo_.front().row.Length();
    undo_.pop_front();
  }
}

void EditHistory::Exchange(std::deque<RowState>& from, std::deque<RowState>& to, PageRow& row) {
  const int number = from.back().number;
  to.push_back({number, std::exchange(row, std::move(from.back().row))});
  from.pop_back();
}

}  // namespace Brivon1
