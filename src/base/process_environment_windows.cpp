#include <QtGlobal>
#include <qt_windows.h>

#include "base/system_code_page.h"

namespace Brivon1 {

Environment ProcessEnvironment() {
  return {[](const char* name) { return qgetenv(name); }, static_cast<int>(GetACP())};
}

}  // namespace Brivon1
