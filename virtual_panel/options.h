// The command line: what the program is to do, read and checked as a whole before anything is done.
#pragma once

#include <optional>
#include <variant>

#include <QList>
#include <QString>
#include <QStringList>

#include "engine/faults.h"
#include "engine/panel_description.h"
#include "panel_dots/panel_picture.h"

namespace VirtualPanel {

struct Options {
  QList<PanelDescription> panels;  // at least one, each ID once
  Faults faults;
  bool sets_clock_answer = false;
  std::optional<int> clock_answer;      // the ID of a panel; none: nobody
  std::optional<char> play_on_arrival;  // the letter of a schedule
  int scroll_speed = PanelDots::kUsualScrollSpeed;
  std::optional<int> code_page;  // none: that of the system
  bool headless = false;
  std::optional<QString> log;
  std::optional<QString> state;
  QString picture;  // empty: none
  // Where the panels are reached: at least one in the three together.
  QStringList tcp_addresses;
  bool exposed = false;  // other machines may reach the addresses
  QStringList pty_links;
  QStringList serial_devices;
  qint32 baud_rate = 9600;
};

struct HelpText {
  QString text;
};

struct BadUse {
  QString reason;  // a sentence
};

// `can_show_windows`: there is a display, so "--headless" need not be among the options.
std::variant<Options, HelpText, BadUse> ParseOptions(const QStringList& arguments,
                                                     bool can_show_windows);

}  // namespace VirtualPanel
