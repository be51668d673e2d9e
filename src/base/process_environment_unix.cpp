#include <QtGlobal>

#include "base/system_code_page.h"

namespace Brivon1 {

Environment ProcessEnvironment() {
  return {[](const char* name) { return qgetenv(name); }, std::nullopt};
}

}  // namespace Brivon1
