#include "store/system_port.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

QString SystemPort(int number) { return u"/dev/ttyS%1"_s.arg(number - 1); }

}  // namespace Brivon1
