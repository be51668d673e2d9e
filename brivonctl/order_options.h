// The options of the subcommands that reach panels.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "orders/order.h"
#include "usage/program_folder.h"

namespace BrivonCtl {

/// What was written on the command line. Each text has been checked by the time that it is used.
struct OrderOptions {
  FolderOption folder;
  std::string path;
  std::string number;  ///< The page, the letter or the line.
  std::string panels;
  std::string jobs;
  std::string delay_period;
  std::string retry;
  std::string log;
  bool skips_unfit = false;
  bool is_dry_run = false;
  bool is_json = false;
  bool is_quiet = false;
  bool is_sure = false;

  int Jobs() const;
  std::optional<int> DelayPeriod() const;  ///< In milliseconds.
  int FurtherTransmissions() const;
};

/// Gives `command` the options of an order of this kind.
void AddOrderOptions(CLI::App* command, Action action, OrderOptions* options);

/// Whether `action` deletes in earnest and nobody has said that it may delete the pages of all
/// panels.
bool MustBeSure(Action action, const OrderOptions& options);

/// What is said where they are all chosen all the same.
QString NotSureText(const OrderOptions& options);

/// What is wrong with the options together and what would be right; empty where nothing is.
QString WhatIsWrongWith(Action action, const OrderOptions& options);

/// The order that the options describe.
Order OrderOf(Action action, const OrderOptions& options);

}  // namespace BrivonCtl
