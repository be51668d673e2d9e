// The folder that holds brivon.ini, as brivonctl is told it on its command line.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include <QString>

namespace BrivonCtl {

struct FolderOption {
  std::string folder;  ///< Empty: the program's own folder.
};

/// Refuses an empty word, as an unset variable of a script gives one; `what` would be right.
CLI::Validator NotEmpty(const std::string& what);

/// The folder of whoever uses the program where the executable's is not to be written to, as his
/// shell has it.
std::string OperatorsFolder();

/// Gives `command` the option "--folder".
void AddFolderOption(CLI::App* command, FolderOption* option);

/// Takes the folder, its configuration, its code page and its language for those of the program, as
/// Brivon does at its start. Returns what is wrong with it, or an empty text; without a brivon.ini
/// that is wrong where `needs_configuration` is set.
QString UseFolder(const FolderOption& option, bool needs_configuration);

}  // namespace BrivonCtl
