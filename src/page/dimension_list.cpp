#include "page/dimension_list.h"

namespace Brivon1 {

QList<Dimension> DistinctDimensions(const Configuration& configuration) {
  QList<Dimension> dimensions;
  for (const PanelEntry& panel : configuration.panels) {
    if (!panel.IsConfigured()) continue;
    const Dimension dimension{panel.rows, panel.columns};
    if (!dimensions.contains(dimension)) dimensions.append(dimension);
  }
  return dimensions;
}

QString DimensionText(const Dimension& dimension) {
  return QStringLiteral(" %1x %2").arg(dimension.rows).arg(dimension.columns);
}

}  // namespace Brivon1
