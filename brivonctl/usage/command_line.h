// brivonctl's command line: its subcommands, what each does, and what a wrong word is answered
// with. Help, manual page and completion are made of the same description.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <map>
#include <string>

namespace BrivonCtl {

class CommandLine {
 public:
  CommandLine();

  /// Adds a subcommand and returns it for its options to be added; below `parent` where one is
  /// given, which has been added without `run`. `run` is called once the whole line has been read,
  /// and returns the program's exit status.
  CLI::App* Add(const std::string& name, const std::string& summary,
                const std::function<int()>& run = {}, CLI::App* parent = nullptr);

  /// Reads the line and runs the subcommand that it names. Returns the program's exit status:
  /// kWrongUse, after one line on standard error, for a line that makes no sense.
  int Run(int argc, const char* const* argv);

  CLI::App& Top() { return top_; }

 private:
  /// What is wrong with the line and what would be right.
  std::string WhatIsWrong(const CLI::ParseError& error) const;
  const CLI::App* Deepest() const;

  CLI::App top_;
  std::map<const CLI::App*, std::function<int()>> runs_;
};

}  // namespace BrivonCtl
