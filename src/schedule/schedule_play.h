// A schedule that is played from one of its steps on, as a panel plays it: which step is shown at
// which moment, and how its page comes.
#pragma once

#include <optional>

#include <QList>
#include <QtGlobal>

#include "language/display_feature.h"
#include "schedule/schedule.h"

namespace Brivon1 {

class SchedulePlay {
 public:
  /// Begins now with the step at `position`, 1 to the count of the sequences. All moments are in
  /// milliseconds of one clock.
  SchedulePlay(const QList<Sequence>& sequences, int position, const FeatureNames& features,
               qint64 now_ms);

  struct Shown {
    int position = 1;
    char effect = 'A';  ///< The code of the display feature.
    qint64 entered_ms = 0;
    std::optional<qint64> ms_to_next;  ///< Nothing: a single step stays.
  };

  Shown At(qint64 now_ms) const;

 private:
  QList<int> seconds_;
  QList<char> effects_;
  qint64 began_ms_;  // when the first step would have begun
};

}  // namespace Brivon1
