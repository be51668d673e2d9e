// The weekdays as the schedule editor lists them. A schedule stores only their place in the list.
#pragma once

#include <array>

#include "schedule/schedule.h"

namespace Brivon1 {

using WeekdayNames = std::array<const char*, kLastWeekday + 1>;

/// As the editor opens.
inline constexpr WeekdayNames kWeekdays = {"*",         "Sunday",   "Monday", "Tuesday",
                                           "Wednesday", "Thursday", "Friday", "Saturday"};

/// From the first new schedule on. The spelling is the system's own and stays.
inline constexpr WeekdayNames kWeekdaysOfNewSchedule = {
    "*", "Sunday", "Monday", "Tuesday", "Wenesday", "Thurday", "Friday", "Sataruday"};

}  // namespace Brivon1
