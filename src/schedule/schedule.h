// A weekly schedule: when a panel shows which message files, in which order, for how long and with
// which entry effect. The model behind the schedule editor; it knows no file and no window.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include "base/dimension.h"
#include "language/display_feature.h"

namespace Brivon1 {

inline constexpr qsizetype kPathField = 100;  ///< Characters of a sequence's path.
inline constexpr int kMostSequences = 32;     ///< What a schedule file may hold.
inline constexpr int kEditedSequences = 12;   ///< What the editor lengthens a schedule to.
inline constexpr qsizetype kMostDistinctFiles = 26;
inline constexpr int kPagesOfALetter = 12;  ///< Of a panel: the first one for A is 1, for B 13.

inline constexpr int kLastWeekday = 7;  ///< Weekdays are 0 (every day), 1 (Sunday) to 7 (Saturday).
inline constexpr const char* kEveryTime = "**";  ///< Every hour, or every minute.

/// `text` as a field of `size` characters: filled up with blanks on the right, or cut.
QByteArray FixedField(QByteArrayView text, qsizetype size);

/// One step of a schedule. Both texts are fixed fields, blank in a step that was never filled.
struct Sequence {
  QByteArray path = FixedField({}, kPathField);
  qint16 delay = 0;  ///< Seconds.
  QByteArray feature = FixedField({}, kFeatureField);

  friend bool operator==(const Sequence&, const Sequence&) = default;
};

/// The different message files of a schedule, in the order in which they were offered.
class DistinctFiles {
 public:
  /// Takes in a path field; one that is listed already changes nothing. False where the list is
  /// full, which it is with 26.
  bool Offer(const QByteArray& path_field);

  qsizetype Count() const { return paths_.size(); }

 private:
  QList<QByteArray> paths_;
};

class Schedule {
 public:
  int weekday = 0;           ///< 0 to kLastWeekday.
  QByteArray hour = "**";    ///< As typed: kEveryTime or a number.
  QByteArray minute = "**";  ///< The same.
  Dimension dimension;       ///< Of the panel that the schedule is made for.

  const QList<Sequence>& Sequences() const { return sequences_; }
  int Count() const { return static_cast<int>(sequences_.size()); }

  /// Whether the editor adds nothing more: with 12 sequences or more.
  bool IsFull() const { return Count() >= kEditedSequences; }

  /// Whether `position` (from 1) is that of a sequence.
  bool Holds(int position) const { return position >= 1 && position <= Count(); }

  /// Enters a path field in the list of different files. False where that is full. The entry stays
  /// also where no sequence follows.
  bool OfferFile(const QByteArray& path_field) { return files_.Offer(path_field); }
  const DistinctFiles& Files() const { return files_; }

  /// Adds a sequence at the end, up to kMostSequences.
  void Append(const Sequence& sequence);

  /// Puts a sequence in at `position`; the later ones move down. A position outside 1..Count()
  /// appends.
  void Insert(int position, const Sequence& sequence);

  /// Takes the sequence at `position` out; the list of different files is made anew from the rest.
  /// A position outside 1..Count() changes nothing.
  void Remove(int position);

  /// Puts another sequence at `position`; where it names another file, the list of different files
  /// is made anew. A position outside 1..Count() changes nothing.
  void Replace(int position, const Sequence& sequence);

  /// Takes out all sequences and different files.
  void Clear();

 private:
  void RefillFiles();

  QList<Sequence> sequences_;
  DistinctFiles files_;
};

}  // namespace Brivon1
