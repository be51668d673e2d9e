#include "schedule/schedule_play.h"

#include "base/code_page.h"
#include "panel_dots/page_loop.h"

namespace Brivon1 {

SchedulePlay::SchedulePlay(const QList<Sequence>& sequences, int position,
                           const FeatureNames& features, qint64 now_ms)
    : began_ms_(now_ms) {
  const CodePage& code_page = CodePage::System();
  for (const Sequence& sequence : sequences) {
    if (seconds_.size() < position - 1) began_ms_ -= PanelDots::ShownMs(sequence.delay);
    seconds_.append(sequence.delay);
    effects_.append(features.Code(code_page.ToText(sequence.feature)).toLatin1());
  }
}

SchedulePlay::Shown SchedulePlay::At(qint64 now_ms) const {
  const PanelDots::PageAtTime at = PanelDots::PageAt(seconds_, now_ms - began_ms_);
  Shown shown{static_cast<int>(at.index) + 1, effects_[at.index], began_ms_ + at.entered_ms, {}};
  if (seconds_.size() > 1) shown.ms_to_next = at.left_ms;
  return shown;
}

}  // namespace Brivon1
