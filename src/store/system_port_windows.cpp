#include "store/system_port.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

QString SystemPort(int number) { return u"COM%1"_s.arg(number); }

}  // namespace Brivon1
