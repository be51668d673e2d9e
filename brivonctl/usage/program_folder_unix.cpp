#include "usage/program_folder.h"

namespace BrivonCtl {

std::string OperatorsFolder() { return "~/.local/share/brivon"; }

}  // namespace BrivonCtl
