// The subcommand "list": the program folder, the panels and the link of brivon.ini.
#pragma once

#include "usage/program_folder.h"

namespace BrivonCtl {

struct ListOptions {
  FolderOption folder;
  bool is_json = false;
};

/// Prints them and returns the program's exit status.
int ListPanels(const ListOptions& options);

}  // namespace BrivonCtl
