#include "usage/pages.h"

#include <vector>

#include "usage/exit_status.h"

namespace BrivonCtl {
namespace {

using Commands = std::vector<const CLI::App*>;

Commands Below(const CLI::App& command) {
  return command.get_subcommands([](const CLI::App*) { return true; });
}

std::vector<const CLI::Option*> Options(const CLI::App& command, bool positional) {
  return command.get_options([positional](const CLI::Option* option) {
    return option->get_positional() == positional && !option->get_group().empty();
  });
}

/// All subcommands that do something themselves, in their order.
void Collect(const CLI::App& command, Commands& all) {
  const Commands below = Below(command);
  if (below.empty()) all.push_back(&command);
  for (const CLI::App* next : below) Collect(*next, all);
}

std::string WordsOf(const CLI::App& command) {
  const CLI::App* parent = command.get_parent();
  return parent == nullptr ? std::string() : WordsOf(*parent) + command.get_name() + ' ';
}

/// A text in which roff takes nothing for its own.
std::string Roff(const std::string& text) {
  std::string result;
  for (const char character : text) {
    if (character == '\\') {
      result += "\\e";
    } else if (character == '-') {
      result += "\\-";
    } else {
      result += character;
    }
  }
  const bool is_request = !result.empty() && (result[0] == '.' || result[0] == '\'');
  return is_request ? "\\&" + result : result;
}

/// "FILE", "FILE..." where there may be several.
std::string PositionalName(const CLI::Option& option) {
  return option.get_name(true) + (option.get_expected_max() > 1 ? "..." : "");
}

/// The words of `command` and what must stand behind them, each with a blank.
std::string WordsAndPositionals(const CLI::App& command) {
  std::string words = WordsOf(command);
  for (const CLI::Option* option : Options(command, true)) words += PositionalName(*option) + ' ';
  return words;
}

std::string RoffOption(const CLI::Option& option) {
  const std::string name = option.get_positional() ? PositionalName(option) : option.get_name();
  const std::string type = option.get_type_size() == 0 || option.get_positional()
                               ? std::string()
                               : ' ' + option.get_type_name();
  return ".TP\n.B " + Roff(name + type) + '\n' + Roff(option.get_description()) + '\n';
}

std::string RoffCommand(const CLI::App& command) {
  std::string text =
      ".SS " + Roff(WordsAndPositionals(command)) + '\n' + Roff(command.get_description()) + '\n';
  for (const CLI::Option* option : Options(command, true)) text += RoffOption(*option);
  for (const CLI::Option* option : Options(command, false)) text += RoffOption(*option);
  return text;
}

/// The words of `command` and below, each with what may follow it.
void CompletionCases(const CLI::App& command, const std::string& words, std::string& cases) {
  std::string names;
  for (const CLI::App* below : Below(command)) names += below->get_name() + ' ';
  for (const CLI::Option* option : Options(command, false)) {
    for (const std::string& name : option->get_lnames()) names += "--" + name + ' ';
  }
  if (!names.empty()) names.pop_back();
  cases += "    '" + words + "') words='" + names + "' ;;\n";
  for (const CLI::App* below : Below(command)) {
    CompletionCases(*below, words.empty() ? below->get_name() : words + ' ' + below->get_name(),
                    cases);
  }
}

}  // namespace

std::string ManualPage(const CLI::App& top) {
  std::string page = ".TH BRIVONCTL 1 \"\" \"" + Roff("brivonctl " BRIVON_VERSION) + "\"\n" +
                     ".SH NAME\nbrivonctl \\- " + Roff(top.get_description()) + '\n' +
                     ".SH SYNOPSIS\n";
  Commands all;
  Collect(top, all);
  for (const CLI::App* command : all) {
    page += ".B " + Roff("brivonctl " + WordsAndPositionals(*command)) + "[options]\n.br\n";
  }
  page += ".SH SUBCOMMANDS\n";
  for (const CLI::App* command : all) page += RoffCommand(*command);
  page += ".SH OPTIONS\n";
  for (const CLI::Option* option : Options(top, false)) page += RoffOption(*option);
  std::string notes = top.get_footer();
  page += ".SH NOTES\n.nf\n";
  for (std::size_t begin = 0; begin < notes.size();) {
    const std::size_t end = std::min(notes.find('\n', begin), notes.size());
    page += Roff(notes.substr(begin, end - begin)) + '\n';
    begin = end + 1;
  }
  return page + ".fi\n";
}

std::string BashCompletion(const CLI::App& top) {
  std::string commands;  // every subcommand's name, to tell it from an option's value
  std::string cases;
  CompletionCases(top, "", cases);
  std::string known;
  Commands all;
  Collect(top, all);
  for (const CLI::App* command : all) {
    std::string words = WordsOf(*command);
    words.pop_back();
    known += (known.empty() ? "" : "|") + std::string("'") + words + "'";
    const std::size_t space = words.find(' ');
    if (space != std::string::npos) known += "|'" + words.substr(0, space) + "'";
  }
  return "# Completion of brivonctl for bash; source it, or lay it into a folder that bash\n"
         "# completions are read from.\n"
         "_brivonctl() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} path= next words= word\n"
         "  for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
         "    next=\"${path:+$path }$word\"\n"
         "    case $next in " +
         known +
         ") path=$next ;; esac\n"
         "  done\n"
         "  case $path in\n" +
         cases +
         "  esac\n"
         "  local IFS=$'\\n'\n"
         "  COMPREPLY=($(compgen -W \"${words// /$IFS}\" -- \"$current\"))\n"
         "  if [ ${#COMPREPLY[@]} -eq 0 ]; then COMPREPLY=($(compgen -f -- \"$current\")); fi\n"
         "}\n"
         "complete -o filenames -F _brivonctl brivonctl\n";
}

}  // namespace BrivonCtl
