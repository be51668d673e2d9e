// The size of a panel, or of the panel that a file was made for.
#pragma once

#include <QtGlobal>

namespace Brivon1 {

struct Dimension {
  qint16 rows = 0;
  qint16 columns = 0;  ///< Dot columns.

  bool operator==(const Dimension&) const = default;
};

}  // namespace Brivon1
