#include "usage/command_line.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "usage/exit_status.h"
#include "usage/output.h"
#include "usage/pages.h"
#include "usage/words.h"

namespace BrivonCtl {
namespace {

std::string NameOf(const CLI::App* command) {
  const CLI::App* parent = command->get_parent();
  return parent == nullptr ? command->get_name() : NameOf(parent) + ' ' + command->get_name();
}

/// "list, poll, run"
std::string NamesBelow(const CLI::App* command) {
  std::string names;
  for (const CLI::App* below : command->get_subcommands([](const CLI::App*) { return true; })) {
    names += (names.empty() ? "" : ", ") + below->get_name();
  }
  return names;
}

/// The words behind the program's name. One in square brackets would be taken for a list; it can
/// only be the name of a file, which stays what it is with its folder in front.
std::vector<std::string> WordsOf(int argc, const char* const* argv) {
  std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
  for (std::string& word : words) {
    if (word.size() > 1 && word.front() == '[' && word.back() == ']') word.insert(0, "./");
  }
  return words;
}

}  // namespace

CommandLine::CommandLine()
    : top_("Sends pages, schedules, scrolling messages and commands to many LED panels.",
           "brivonctl") {
  top_.set_version_flag("--version", "brivonctl " BRIVON_VERSION, "Prints the version");
  top_.set_help_flag("-h,--help", "Prints this text");
  top_.require_subcommand(0, 1);  // a second one is a word like any other
  top_.get_formatter()->column_width(28);
  top_.footer(
      "Exit status: 0 all done; 1 some panel has it not; 2 wrong use; 3 the configuration, a file\n"
      "or a panel does not do, and nothing was sent; 130 stopped. \"brivonctl SUBCOMMAND --help\"\n"
      "prints the options of a subcommand.");
  top_.add_flag_callback(
      "--print-manual-page", [] {}, "Prints the manual page, for man(1)");
  top_.add_flag_callback(
      "--print-completion", [] {}, "Prints the completion for bash");
}

CLI::App* CommandLine::Add(const std::string& name, const std::string& summary,
                           const std::function<int()>& run, CLI::App* parent) {
  CLI::App* command = (parent == nullptr ? &top_ : parent)->add_subcommand(name, summary);
  if (run) {
    runs_[command] = run;
  } else {
    command->require_subcommand(0, 1);
  }
  return command;
}

const CLI::App* CommandLine::Deepest() const {
  const CLI::App* command = &top_;
  while (!command->get_subcommands().empty()) command = command->get_subcommands().front();
  return command;
}

std::string CommandLine::WhatIsWrong(const CLI::ParseError& error) const {
  const CLI::App* command = Deepest();
  const std::string names = NamesBelow(command);
  if (names.empty()) return std::string(error.what()) + "; see " + NameOf(command) + " --help";
  const std::vector<std::string> left = command->remaining();
  return (left.empty() ? "what to do is missing behind \"" + NameOf(command) + '"'
                       : '"' + left.front() + "\" is unknown") +
         "; one of these must follow: " + names;
}

int CommandLine::Run(int argc, const char* const* argv) {
  try {
    std::vector<std::string> words = WordsOf(argc, argv);
    std::reverse(words.begin(), words.end());  // as they are taken from the end
    top_.parse(std::move(words));
  } catch (const CLI::Success& success) {
    const bool is_help = dynamic_cast<const CLI::CallForHelp*>(&success) != nullptr;
    const std::string text = is_help ? top_.help() : std::string(success.what()) + '\n';
    return Print(Stream::kOutput, QByteArray::fromStdString(text)) ? kAllDone : kSomeFailed;
  } catch (const CLI::ParseError& error) {
    Complain(TextOf(WhatIsWrong(error)));
    return kWrongUse;
  }
  std::string page;
  if (top_.count("--print-manual-page") > 0) page = ManualPage(top_);
  if (top_.count("--print-completion") > 0) page = BashCompletion(top_);
  if (!page.empty()) {
    return Print(Stream::kOutput, QByteArray::fromStdString(page)) ? kAllDone : kSomeFailed;
  }
  const auto run = runs_.find(Deepest());
  if (run == runs_.end()) {
    Complain(TextOf(WhatIsWrong(CLI::ParseError("", kWrongUse))));
    return kWrongUse;
  }
  return run->second();
}

}  // namespace BrivonCtl
