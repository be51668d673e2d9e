// How a panel and its line behave during one transfer.
#pragma once

#include "engine/faults.h"
#include "soak/random_work.h"

struct Hostility {
  VirtualPanel::Faults faults;
  bool is_refused = false;  ///< The line cannot be opened.
  bool loses_frames = false;
  bool is_slow = false;   ///< Bytes need their time. A matter of the serial line alone.
  int unplugged_at = -1;  ///< Milliseconds behind the beginning; -1: not at all.
  int stopped_at = -1;

  /// Nothing but what the panel answers is wrong.
  bool IsOnlyFaults() const {
    return !is_refused && !loses_frames && !is_slow && unplugged_at < 0 && stopped_at < 0;
  }
};

/// `is_acknowledged`: whether the panel says what it has received.
Hostility RandomHostility(Random& random, bool is_acknowledged);

/// One to three faults of a panel, or none.
VirtualPanel::Faults RandomFaults(Random& random);

enum class Outlook { kFinishes, kFails, kOpen };

/// How a transfer of `work` must end; kOpen where that hangs on moments that are no matter of
/// promises.
Outlook OutlookOf(const Work& work, const Hostility& hostility);
