#include "options.h"

#include <algorithm>

#include <QCommandLineParser>

#include "base/code_page.h"
#include "engine/schedule.h"

namespace VirtualPanel {
namespace {

constexpr quint16 kUsualPort = 2101;

struct Names {
  QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                          QStringLiteral("Show this text.")};
  QCommandLineOption panel{QStringLiteral("panel"),
                           QStringLiteral("A panel, such as 1:4x96:tri (may be repeated)."),
                           QStringLiteral("ID:ROWSxCOLUMNS:mono|tri")};
  QCommandLineOption tcp{
      QStringLiteral("tcp"),
      QStringLiteral("Listen on a TCP port; port 0 takes any free one. Without any "
                     "line: 127.0.0.1:%1.")
          .arg(kUsualPort),
      QStringLiteral("[ADDRESS:]PORT")};
  QCommandLineOption serial{QStringLiteral("serial"), QStringLiteral("Answer on a serial port."),
                            QStringLiteral("DEVICE")};
  QCommandLineOption baud{QStringLiteral("baud"), QStringLiteral("Its baud rate (9600)."),
                          QStringLiteral("N"), QStringLiteral("9600")};
  QCommandLineOption pty{QStringLiteral("pty"),
                         QStringLiteral("Make a pseudo-terminal and a symbolic link to it."),
                         QStringLiteral("LINK")};
  QCommandLineOption headless{QStringLiteral("headless"), QStringLiteral("Without a window.")};
  QCommandLineOption log{QStringLiteral("log"),
                         QStringLiteral("Append one line of JSON for every frame."),
                         QStringLiteral("FILE")};
  QCommandLineOption state{
      QStringLiteral("state"),
      QStringLiteral("Keep the panels' pages, schedules, scrolling texts and clocks there as "
                     "JSON."),
      QStringLiteral("FILE")};
  QCommandLineOption picture{QStringLiteral("picture"),
                             QStringLiteral("Keep a picture (PNG) of the window there."),
                             QStringLiteral("FILE")};
  QCommandLineOption fault{
      QStringLiteral("fault"),
      QStringLiteral("Be faulty (may be repeated): %1. \"lower-case\" shows with IDs that "
                     "have a letter in hexadecimal, such as 10.")
          .arg(FaultNames().join(QStringLiteral(", "))),
      QStringLiteral("NAME[:N]")};
  QCommandLineOption clock_answer{
      QStringLiteral("clock-answer"),
      QStringLiteral("The panel that acknowledges the set-clock frame (the lowest ID), or none."),
      QStringLiteral("ID|none")};
  QCommandLineOption play{
      QStringLiteral("play"),
      QStringLiteral("Play the schedule of this letter, A to J, on every panel as soon as the "
                     "panel has it, whatever its weekday and time."),
      QStringLiteral("LETTER")};
  QCommandLineOption scroll_speed{
      QStringLiteral("scroll-speed"),
      QStringLiteral("The speed of scrolling texts in dots per second, 1 to %1 (%2).")
          .arg(PanelDots::kMostScrollSpeed)
          .arg(PanelDots::kUsualScrollSpeed),
      QStringLiteral("N"), QString::number(PanelDots::kUsualScrollSpeed)};
  QCommandLineOption code_page{
      QStringLiteral("code-page"),
      QStringLiteral("The code page of what is received, 874 or 1250 to 1258 (the system's)."),
      QStringLiteral("N")};
};

// Reads the values of the options one after the other; the first bad one ends it.
class Reader {
 public:
  Reader(const QCommandLineParser& parser, const Names& names) : parser_(parser), names_(names) {}

  std::variant<Options, HelpText, BadUse> Read() {
    options_.headless = parser_.isSet(names_.headless);
    if (!ReadPanels() || !ReadFaults() || !ReadClockAnswer() || !ReadPlay() || !ReadScrollSpeed() ||
        !ReadCodePage() || !ReadFiles() || !ReadLines()) {
      return BadUse{error_};
    }
    return options_;
  }

 private:
  bool Refuse(const QString& reason) {
    error_ = reason;
    return false;
  }

  bool HasPanel(int id) const {
    return std::any_of(options_.panels.cbegin(), options_.panels.cend(),
                       [id](const PanelDescription& panel) { return panel.id == id; });
  }

  bool ReadPanels() {
    for (const QString& text : parser_.values(names_.panel)) {
      const auto panel = ParsePanelDescription(text, &error_);
      if (!panel) return false;
      if (HasPanel(panel->id)) {
        return Refuse(
            QStringLiteral("panel \"%1\": there is a panel %2 already").arg(text).arg(panel->id));
      }
      options_.panels.append(*panel);
    }
    if (options_.panels.isEmpty()) options_.panels.append(PanelDescription{});
    return true;
  }

  bool ReadFaults() {
    const QStringList texts = parser_.values(names_.fault);
    return std::all_of(texts.cbegin(), texts.cend(), [this](const QString& text) {
      return ParseFault(text, &options_.faults, &error_);
    });
  }

  bool ReadClockAnswer() {
    options_.sets_clock_answer = parser_.isSet(names_.clock_answer);
    const QString text = parser_.value(names_.clock_answer);
    if (!options_.sets_clock_answer || text == QLatin1String("none")) return true;
    bool is_number = false;
    const int id = text.toInt(&is_number);
    if (!is_number || !HasPanel(id)) {
      return Refuse(QStringLiteral("clock answer \"%1\": no such panel").arg(text));
    }
    options_.clock_answer = id;
    return true;
  }

  bool ReadPlay() {
    if (!parser_.isSet(names_.play)) return true;
    const QString text = parser_.value(names_.play);
    const QString letter = text.toUpper();
    if (letter.size() != 1 || letter[0] < QLatin1Char(kFirstScheduleLetter) ||
        letter[0] > QLatin1Char(kLastScheduleLetter)) {
      return Refuse(QStringLiteral("schedule \"%1\": expected a letter from A to J").arg(text));
    }
    options_.play_on_arrival = letter[0].toLatin1();
    return true;
  }

  bool ReadScrollSpeed() {
    const QString text = parser_.value(names_.scroll_speed);
    bool is_number = false;
    options_.scroll_speed = text.toInt(&is_number);
    if (is_number && options_.scroll_speed >= 1 &&
        options_.scroll_speed <= PanelDots::kMostScrollSpeed) {
      return true;
    }
    return Refuse(QStringLiteral("scroll speed \"%1\": expected dots per second, 1 to %2")
                      .arg(text)
                      .arg(PanelDots::kMostScrollSpeed));
  }

  bool ReadCodePage() {
    if (!parser_.isSet(names_.code_page)) return true;
    const QString text = parser_.value(names_.code_page);
    options_.code_page = text.toInt();
    if (Brivon1::CodePage::IsKnown(*options_.code_page)) return true;
    return Refuse(QStringLiteral("code page \"%1\": expected 874 or 1250 to 1258").arg(text));
  }

  bool ReadFiles() {
    if (parser_.isSet(names_.picture) && options_.headless) {
      return Refuse(QStringLiteral("a picture needs the window: not with --headless"));
    }
    if (parser_.isSet(names_.log)) options_.log = parser_.value(names_.log);
    if (parser_.isSet(names_.state)) options_.state = parser_.value(names_.state);
    options_.picture = parser_.value(names_.picture);
    return true;
  }

  bool ReadLines() {
    options_.tcp_addresses = parser_.values(names_.tcp);
    options_.pty_links = parser_.values(names_.pty);
    options_.serial_devices = parser_.values(names_.serial);
    if (options_.tcp_addresses.isEmpty() && options_.pty_links.isEmpty() &&
        options_.serial_devices.isEmpty()) {
      options_.tcp_addresses.append(QStringLiteral("127.0.0.1:%1").arg(kUsualPort));
    }
    bool is_number = false;
    options_.baud_rate = parser_.value(names_.baud).toInt(&is_number);
    if (is_number && options_.baud_rate > 0) return true;
    return Refuse(QStringLiteral("baud rate \"%1\": not a number").arg(parser_.value(names_.baud)));
  }

  const QCommandLineParser& parser_;
  const Names& names_;
  Options options_;
  QString error_;
};

}  // namespace

std::variant<Options, HelpText, BadUse> ParseOptions(const QStringList& arguments,
                                                     bool can_show_windows) {
  const Names names;
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("LED text panels on the desk: what they are sent is acknowledged and shown."));
  parser.addOptions({names.help, names.panel, names.tcp, names.serial, names.baud, names.pty,
                     names.headless, names.log, names.state, names.picture, names.fault,
                     names.clock_answer, names.play, names.scroll_speed, names.code_page});
  if (!parser.parse(arguments)) return BadUse{parser.errorText()};
  if (parser.isSet(names.help)) return HelpText{parser.helpText()};
  if (!parser.positionalArguments().isEmpty()) {
    return BadUse{
        QStringLiteral("\"%1\": not an option").arg(parser.positionalArguments().first())};
  }
  if (!parser.isSet(names.headless) && !can_show_windows) {
    // "--headless" was there, but as the value of another option.
    return BadUse{QStringLiteral("\"--headless\" is no value for an option")};
  }
  return Reader(parser, names).Read();
}

}  // namespace VirtualPanel
