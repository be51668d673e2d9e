// The unit in which the launcher's buttons and the columns of the schedule's table are measured.
#pragma once

namespace Brivon1 {

inline constexpr int kTwipsPerPixel = 15;

}  // namespace Brivon1
