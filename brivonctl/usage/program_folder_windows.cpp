#include "usage/program_folder.h"

namespace BrivonCtl {

std::string OperatorsFolder() { return "%LOCALAPPDATA%\\brivon"; }

}  // namespace BrivonCtl
