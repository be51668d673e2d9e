// The panel sizes that a new page or schedule can be made for.
#pragma once

#include <QList>
#include <QString>

#include "core/configuration_store.h"

namespace Brivon1 {

/// The size of a panel.
struct Dimension {
  qint16 rows = 0;
  qint16 columns = 0;  ///< Dot columns.

  bool operator==(const Dimension&) const = default;
};

/// The sizes of the configured panels, each once, in the order of the lowest ID that has it.
QList<Dimension> DistinctDimensions(const Configuration& configuration);

/// What a list shows for a size: both numbers with a blank in front, " 4x 96".
QString DimensionText(const Dimension& dimension);

}  // namespace Brivon1
