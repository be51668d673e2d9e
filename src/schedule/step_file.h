// Which message file a step of a schedule names, and whether it can be one: what the preview, the
// transmission and brivonctl ask alike.
#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

#include "base/dimension.h"

namespace Brivon1 {

/// The name that a step's path line holds. A line may be a megabyte; what is cut off belongs to a
/// name that is not found anyway.
QString StepFileName(const QByteArray& line);

enum class StepFault {
  kMissing,   ///< There is no file.
  kNoPage,    ///< It is no message file, or it cannot be read.
  kOtherSize  ///< Its page has another size than the schedule.
};

/// What keeps a file from being a step of a schedule of the size `wanted`; nothing where nothing
/// does. `found` is the size of its page.
std::optional<StepFault> StepFaultOf(bool exists, const std::optional<Dimension>& found,
                                     Dimension wanted);

/// What is said of it, as English message.
QString StepFaultText(StepFault fault);

}  // namespace Brivon1
