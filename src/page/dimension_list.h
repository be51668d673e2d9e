// The panel sizes that a new page or schedule can be made for.
#pragma once

#include <QList>
#include <QString>

#include "base/dimension.h"
#include "store/configuration_store.h"

namespace Brivon1 {

/// The sizes of the configured panels, each once, in the order of the lowest ID that has it.
QList<Dimension> DistinctDimensions(const Configuration& configuration);

/// What a list shows for a size: both numbers with a blank in front, " 4x 96".
QString DimensionText(const Dimension& dimension);

}  // namespace Brivon1
