#include "soak/hostility.h"

using VirtualPanel::Faults;

namespace {

constexpr int kAttempts = 5;
constexpr int kTimeout = 1100;

/// Lower case is another answer only where the ID has a letter in hexadecimal.
bool HasHexadecimalLetter(int id) { return id / 16 > 9 || id % 16 > 9; }

/// Whether what a panel answers to a frame has come, whole, well before the time-out.
bool AnswersInTime(const Faults& faults) {
  constexpr int kMargin = 100;
  return faults.late_ms + (faults.pieces - 1) * faults.piece_pause_ms < kTimeout - kMargin;
}

}  // namespace

Faults RandomFaults(Random& random) {
  Faults faults;
  if (random.OneIn(4)) return faults;
  for (int count = random.Between(1, 3); count > 0; --count) {
    switch (random.Below(12)) {
      case 0:
        faults.silent = true;
        break;
      case 1:
        faults.garbage = true;
        break;
      case 2:
        faults.lower_case = true;
        break;
      case 3:
        faults.stray_byte = true;
        break;
      case 4:
      case 5:
        faults.silent_answers = random.Between(1, 6);
        break;
      case 6:
        faults.pieces = random.Between(2, 8);
        faults.piece_pause_ms = random.Between(1, 100);
        break;
      case 7:
        faults.late_ms = random.Between(1, 900);
        break;
      case 8:
        faults.late_ms = random.Between(901, 5000);
        break;
      case 9:
        faults.close_after_frame = random.Between(1, 20);
        break;
      default:
        faults.flood = true;
        break;
    }
  }
  return faults;
}

Hostility RandomHostility(Random& random, bool is_acknowledged) {
  Hostility hostility;
  hostility.faults = RandomFaults(random);
  hostility.is_refused = random.OneIn(30);
  // A late answer to a frame that arrived is taken for that to one that did not: they are not
  // numbered.
  const bool in_time = AnswersInTime(hostility.faults);
  hostility.loses_frames = is_acknowledged && in_time && random.OneIn(10);
  const bool at_once = hostility.faults.late_ms == 0 && hostility.faults.pieces == 1;
  hostility.is_slow = at_once && !hostility.loses_frames && random.OneIn(4);
  if (random.OneIn(15)) hostility.unplugged_at = random.Below(6000);
  if (random.OneIn(hostility.is_slow ? 3 : 8)) hostility.stopped_at = random.Below(8000);
  return hostility;
}

Outlook OutlookOf(const Work& work, const Hostility& hostility) {
  const Faults& faults = hostility.faults;
  if (hostility.is_refused) return hostility.stopped_at < 0 ? Outlook::kFails : Outlook::kOpen;
  if (!hostility.IsOnlyFaults()) return Outlook::kOpen;
  if (work.kind == WorkKind::kSetClock) return Outlook::kFinishes;
  // Nobody answers a frame to all panels, so that the moment of a cut decides.
  if (work.panel.id == 0) return faults.close_after_frame > 0 ? Outlook::kOpen : Outlook::kFinishes;
  if (faults.silent || faults.flood || faults.silent_answers >= kAttempts) return Outlook::kFails;
  if (!AnswersInTime(faults)) return Outlook::kOpen;
  const bool is_misunderstood = faults.lower_case && HasHexadecimalLetter(work.panel.id);
  if (faults.garbage || faults.stray_byte || is_misunderstood) return Outlook::kFails;
  const auto frames = static_cast<int>(work.frames.size()) + faults.silent_answers;
  const bool is_cut = faults.close_after_frame > 0 && faults.close_after_frame < frames;
  return is_cut ? Outlook::kFails : Outlook::kFinishes;
}
