// The manual page and the completion for bash, made of the same description of the command line as
// its help.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace BrivonCtl {

/// The manual page, in the roff of man(7).
std::string ManualPage(const CLI::App& top);

/// A script that teaches bash the subcommands and the options.
std::string BashCompletion(const CLI::App& top);

}  // namespace BrivonCtl
