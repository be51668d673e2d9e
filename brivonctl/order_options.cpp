#include "brivonctl/order_options.h"

#include "base/shell.h"
#include "command/commands.h"
#include "orders/panel_words.h"
#include "schedule/schedule_transmission.h"
#include "store/configuration_store.h"
#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

constexpr int kUsualJobs = 64;
constexpr int kMostJobs = Brivon1::kPanelIds;
constexpr int kMostRetries = 1000;

/// Takes nothing but a whole number within the bounds; `what` says what it is.
CLI::Validator Number(const std::string& what, int lowest, int highest) {
  const auto check = [=](const std::string& word) -> std::string {
    if (WholeNumber(word, lowest, highest)) return {};
    return '"' + word + "\" is no " + what + "; it must be a number from " +
           std::to_string(lowest) + " to " + std::to_string(highest);
  };
  return {check, ""};
}

CLI::Validator Letter() {
  const auto check = [](const std::string& word) -> std::string {
    if (Brivon1::ScheduleLetter(QString::fromStdString(word))) return {};
    return '"' + word + "\" is no letter of a schedule; it must be one from A to J";
  };
  return {check, ""};
}

CLI::Validator Panels() {
  const auto check = [](const std::string& word) {
    return Brivon1::StreamText(ReadPanelWords(word).wrong).toStdString();
  };
  return {check, ""};
}

void AddNumber(CLI::App* command, Action action, OrderOptions* options) {
  switch (action) {
    case Action::kSendPage:
      command->add_option("--page", options->number, "The page of the panel, 1 to 120")
          ->type_name("N")
          ->required()
          ->check(Number("page", 1, Brivon1::kHighestPage));
      break;
    case Action::kSendSchedule:
      command->add_option("--letter", options->number, "The letter of the schedule, A to J")
          ->type_name("A")
          ->required()
          ->check(Letter());
      break;
    case Action::kSendScrolling:
      command->add_option("--line", options->number, "The line of the panel, 1 to 12")
          ->type_name("N")
          ->required()
          ->check(Number("line", 1, Brivon1::kMaxRows));
      break;
    case Action::kRunPage:
    case Action::kDeletePage:
      command->add_option("N", options->number, "The page, 1 to 120")
          ->required()
          ->check(Number("page", 1, Brivon1::kHighestPage));
      break;
    default:
      break;
  }
}

void AddPacing(CLI::App* command, OrderOptions* options) {
  command
      ->add_option("--jobs", options->jobs,
                   "How many TCP lines are in progress at once, 1 to 256; 64 unless told otherwise")
      ->type_name("N")
      ->check(Number("number of jobs", 1, kMostJobs));
  command
      ->add_option("--delay-period", options->delay_period,
                   "Milliseconds, 0 to 30000, in place of brivon.ini's Delay Period")
      ->type_name("MS")
      ->check(Number("pause in milliseconds", 0, Brivon1::kLongestDelayPeriod));
  command
      ->add_option("--retry", options->retry,
                   "How many whole transmissions may follow one that has failed, 0 to 1000; 0 "
                   "unless told otherwise")
      ->type_name("N")
      ->check(Number("number of retries", 0, kMostRetries));
}

}  // namespace

int OrderOptions::Jobs() const { return WholeNumber(jobs, 1, kMostJobs).value_or(kUsualJobs); }

std::optional<int> OrderOptions::DelayPeriod() const {
  return WholeNumber(delay_period, 0, Brivon1::kLongestDelayPeriod);
}

int OrderOptions::FurtherTransmissions() const {
  return WholeNumber(retry, 0, kMostRetries).value_or(0);
}

void AddOrderOptions(CLI::App* command, Action action, OrderOptions* options) {
  if (SendsFile(action)) {
    command->add_option("FILE", options->path, "The file to send")->required();
  }
  AddNumber(command, action, options);
  command
      ->add_option("--to", options->panels,
                   "The panels: 1,4-9,26 or all, 4x96 (all of that size), mono, tri; a comma adds, "
                   "a + narrows down (4x96+tri)")
      ->type_name("PANELS")
      ->required()
      ->check(Panels());
  AddFolderOption(command, &options->folder);
  AddPacing(command, options);
  command->add_flag("--skip-unfit", options->skips_unfit,
                    "Leaves out panels that it does not fit, in place of sending nothing");
  command->add_flag("--dry-run", options->is_dry_run, "Prints every frame and sends nothing");
  command->add_option("--log", options->log, "Appends one line of JSON for every transmission")
      ->type_name("FILE")
      ->check(NotEmpty("a file"));
  command->add_flag("--json", options->is_json, "Prints one object of JSON for every event");
  command->add_flag("--quiet", options->is_quiet, "Prints only which panels have not got it");
  if (action == Action::kDeleteAll) {
    command->add_flag("--yes", options->is_sure,
                      "Deletes every page of all panels unasked; a dry run needs it not");
  }
}

bool MustBeSure(Action action, const OrderOptions& options) {
  return action == Action::kDeleteAll && !options.is_dry_run && !options.is_sure;
}

QString NotSureText(const OrderOptions& options) {
  return u"delete-all --to %1 deletes every page of all panels; add --yes if it is to"_s.arg(
      TextOf(options.panels));
}

QString WhatIsWrongWith(Action action, const OrderOptions& options) {
  const bool is_wrong = MustBeSure(action, options) && ReadPanelWords(options.panels).NamesAll();
  return is_wrong ? NotSureText(options) : QString();
}

Order OrderOf(Action action, const OrderOptions& options) {
  return {action, TextOf(options.path), QString::fromLatin1(options.number.c_str())};
}

}  // namespace BrivonCtl
