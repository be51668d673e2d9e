#include "brivonctl/program.h"

#include <list>

#include "brivonctl/list_panels.h"
#include "brivonctl/order_options.h"
#include "brivonctl/run_order.h"
#include "files/check_command.h"
#include "files/show_command.h"
#include "usage/command_line.h"

namespace BrivonCtl {
namespace {

void AddOrder(CommandLine& line, std::list<OrderOptions>& all, Action action,
              const std::string& name, const std::string& summary, CLI::App* parent = nullptr) {
  OrderOptions& options = all.emplace_back();
  CLI::App* command = line.Add(
      name, summary, [action, &options] { return RunOrder(action, options); }, parent);
  AddOrderOptions(command, action, &options);
}

void AddOrders(CommandLine& line, std::list<OrderOptions>& all) {
  CLI::App* send = line.Add("send", "Sends a file to panels");
  AddOrder(line, all, Action::kSendPage, "page", "Sends a page message file (.msg)", send);
  AddOrder(line, all, Action::kSendSchedule, "schedule",
           "Sends a schedule file (.sch) and its message files", send);
  AddOrder(line, all, Action::kSendScrolling, "scrolling",
           "Sends a scrolling message file (.srl) over the serial line", send);
  AddOrder(line, all, Action::kPoll, "poll", "Asks panels whether they are there");
  AddOrder(line, all, Action::kRunPage, "run", "Lets panels show a stored page");
  AddOrder(line, all, Action::kDeletePage, "delete", "Deletes one page of panels");
  AddOrder(line, all, Action::kDeleteAll, "delete-all", "Deletes every page of panels");
  AddOrder(line, all, Action::kSetClock, "clock", "Sets the clocks of panels");
}

}  // namespace

int RunProgram(int argc, const char* const* argv) {
  CommandLine line;
  ListOptions list;
  CLI::App* command = line.Add("list", "Prints the panels and the link of brivon.ini",
                               [&list] { return ListPanels(list); });
  AddFolderOption(command, &list.folder);
  command->add_flag("--json", list.is_json, "Prints one object of JSON for every panel");
  AddCheck(&line);
  AddShow(&line);
  std::list<OrderOptions> orders;  // whose members keep their place
  AddOrders(line, orders);
  return line.Run(argc, argv);
}

}  // namespace BrivonCtl
