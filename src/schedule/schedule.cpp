#include "schedule/schedule.h"

namespace Brivon1 {

QByteArray FixedField(QByteArrayView text, qsizetype size) {
  return text.first(qMin(text.size(), size)).toByteArray().leftJustified(size, ' ');
}

bool DistinctFiles::Offer(const QByteArray& path_field) {
  if (paths_.contains(path_field)) return true;
  if (paths_.size() >= kMostDistinctFiles) return false;
  paths_.append(path_field);
  return true;
}

void Schedule::Append(const Sequence& sequence) { Insert(Count() + 1, sequence); }

void Schedule::Insert(int position, const Sequence& sequence) {
  if (Count() >= kMostSequences) return;
  sequences_.insert(Holds(position) ? position - 1 : Count(), sequence);
}

void Schedule::Remove(int position) {
  if (!Holds(position)) return;
  sequences_.removeAt(position - 1);
  RefillFiles();
}

void Schedule::Replace(int position, const Sequence& sequence) {
  if (!Holds(position)) return;
  const bool is_other_file = sequences_[position - 1].path != sequence.path;
  sequences_[position - 1] = sequence;
  if (is_other_file) RefillFiles();
}

void Schedule::Clear() {
  sequences_.clear();
  files_ = {};
}

void Schedule::RefillFiles() {
  files_ = {};
  for (const Sequence& sequence : sequences_) files_.Offer(sequence.path);
}

}  // namespace Brivon1
