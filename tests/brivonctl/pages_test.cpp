#include "usage/pages.h"

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "usage/command_line.h"

namespace BrivonCtl {
namespace {

class Pages : public testing::Test {
 protected:
  Pages() {
    line_.Add("list", "Lists .all");
    CLI::App* send = line_.Add("send", "Sends");
    CLI::App* page = line_.Add(
        "page", "Sends a page", [] { return 0; }, send);
    page->add_option("FILE", text_, "The file")->required();
    page->add_option("--to", text_, "The panels: 4-9")->type_name("PANELS");
    line_.Add("check", "Checks")->add_option("FILE", files_, "The files")->required();
    page->add_flag("--json", flag_, "For programs");
  }

  static bool HasLine(const std::string& text, const std::string& wanted) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      if (line == wanted) return true;
    }
    return false;
  }

  CommandLine line_;
  std::string text_;
  std::vector<std::string> files_;
  bool flag_ = false;
};

TEST_F(Pages, TheManualPageNamesEverySubcommandAndOptionWithItsHelp) {
  const std::string page = ManualPage(line_.Top());
  for (const char* line :
       {".SH NAME", ".B brivonctl list [options]", ".B brivonctl send page FILE [options]",
        ".B brivonctl check FILE... [options]", ".SS check FILE... ", ".B FILE...",
        ".SS send page FILE ", "Sends a page", ".B \\-\\-to PANELS", "The panels: 4\\-9",
        ".B \\-\\-json ", "For programs", ".B FILE", "The file"}) {
    EXPECT_TRUE(HasLine(page, line)) << line << "\n" << page;
  }
}

TEST_F(Pages, NoWordOfTheManualPageIsARequestOfRoff) {
  line_.Add("dot", ".begins with a dot");
  line_.Add("quote", "'begins with a quotation mark");
  line_.Add("path", "C:\\new");
  const std::string page = ManualPage(line_.Top());
  for (const char* line :
       {"\\&.begins with a dot", "\\&'begins with a quotation mark", "C:\\enew"}) {
    EXPECT_TRUE(HasLine(page, line)) << line << "\n" << page;
  }
}

TEST_F(Pages, TheCompletionKnowsWhatMayFollowEachSubcommand) {
  const std::string script = BashCompletion(line_.Top());
  EXPECT_TRUE(HasLine(script, "    'send') words='page --help' ;;")) << script;
  EXPECT_TRUE(HasLine(script, "    'send page') words='--help --to --json' ;;")) << script;
  EXPECT_TRUE(HasLine(script, "complete -o filenames -F _brivonctl brivonctl"));
}

}  // namespace
}  // namespace BrivonCtl
