#include "page/dimension_list.h"

using namespace Qt::StringLiterals;

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
  return u" %1x %2"_s.arg(dimension.rows).arg(dimension.columns);
}

}  // namespace Brivon1
