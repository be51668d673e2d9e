#include "virtual_panel/options.h"

#include <algorithm>

#include <QCommandLineParser>
#include <QCoreApplication>

#include "base/code_page.h"
#include "engine/schedule.h"
#include "virtual_panel/start_up.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr quint16 kUsualPort = 2101;

struct KnownOptions {
  QCommandLineOption help{{u"h"_s, u"help"_s}, u"Show this text."_s};
  QCommandLineOption version{u"version"_s, u"Show the version."_s};
  QCommandLineOption panel{u"panel"_s, u"A panel, such as 1:4x96:tri (may be repeated)."_s,
                           u"ID:ROWSxCOLUMNS:mono|tri"_s};
  QCommandLineOption tcp{u"tcp"_s,
                         u"Listen on a TCP port; port 0 takes any free one. Without an address: "
                         "127.0.0.1. Without any line: 127.0.0.1:%1."_s.arg(kUsualPort),
                         u"[ADDRESS:]PORT"_s};
  QCommandLineOption expose{
      u"expose"_s,
      u"Let --tcp take an address that other machines reach, such as 0.0.0.0. Whoever reaches it "
      "can change what the panels show."_s};
  QCommandLineOption serial{u"serial"_s, u"Answer on a serial port."_s, u"DEVICE"_s};
  QCommandLineOption baud{u"baud"_s, u"Its baud rate (9600)."_s, u"N"_s, u"9600"_s};
  QCommandLineOption pty{u"pty"_s, PtyHelp(), u"LINK"_s};
  QCommandLineOption headless{u"headless"_s, u"Without a window."_s};
  QCommandLineOption log{u"log"_s, u"Append one line of JSON for every frame."_s, u"FILE"_s};
  QCommandLineOption state{
      u"state"_s,
      u"Keep the panels' pages, schedules, scrolling texts and clocks there as "
      "JSON."_s,
      u"FILE"_s};
  QCommandLineOption picture{u"picture"_s, u"Keep a picture (PNG) of the window there."_s,
                             u"FILE"_s};
  QCommandLineOption fault{
      u"fault"_s,
      u"Be faulty (may be repeated): %1. \"lower-case\" shows with IDs that "
      "have a letter in hexadecimal, such as 10."_s.arg(FaultNames().join(u", "_s)),
      u"NAME[:N]"_s};
  QCommandLineOption clock_answer{
      u"clock-answer"_s,
      u"The panel that acknowledges the set-clock frame (the lowest ID), or none."_s, u"ID|none"_s};
  QCommandLineOption play{
      u"play"_s,
      u"Play the schedule of this letter, A to J, on every panel as soon as the "
      "panel has it, whatever its weekday and time."_s,
      u"LETTER"_s};
  QCommandLineOption scroll_speed{
      u"scroll-speed"_s,
      u"The speed of scrolling texts in dots per second, 1 to %1 (%2)."_s
          .arg(PanelDots::kMostScrollSpeed)
          .arg(PanelDots::kUsualScrollSpeed),
      u"N"_s, QString::number(PanelDots::kUsualScrollSpeed)};
  QCommandLineOption code_page{
      u"code-page"_s, u"The code page of what is received, 874 or 1250 to 1258 (the system's)."_s,
      u"N"_s};
};

// Reads the values of the options one after the other; the first bad one ends it.
class Reader {
 public:
  Reader(const QCommandLineParser& parser, const KnownOptions& known)
      : parser_(parser), known_(known) {}

  std::variant<Options, HelpText, BadUse> Read() {
    options_.headless = parser_.isSet(known_.headless);
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
    for (const QString& text : parser_.values(known_.panel)) {
      const auto panel = ParsePanelDescription(text, &error_);
      if (!panel) return false;
      if (HasPanel(panel->id)) {
        return Refuse(u"panel \"%1\": there is a panel %2 already"_s.arg(text).arg(panel->id));
      }
      options_.panels.append(*panel);
    }
    if (options_.panels.isEmpty()) options_.panels.append(PanelDescription{});
    return true;
  }

  bool ReadFaults() {
    const QStringList texts = parser_.values(known_.fault);
    return std::all_of(texts.cbegin(), texts.cend(), [this](const QString& text) {
      return ParseFault(text, &options_.faults, &error_);
    });
  }

  bool ReadClockAnswer() {
    options_.sets_clock_answer = parser_.isSet(known_.clock_answer);
    const QString text = parser_.value(known_.clock_answer);
    if (!options_.sets_clock_answer || text == "none"_L1) return true;
    bool is_number = false;
    const int id = text.toInt(&is_number);
    if (!is_number || !HasPanel(id)) {
      return Refuse(u"clock answer \"%1\": no such panel"_s.arg(text));
    }
    options_.clock_answer = id;
    return true;
  }

  bool ReadPlay() {
    if (!parser_.isSet(known_.play)) return true;
    const QString text = parser_.value(known_.play);
    const QString letter = text.toUpper();
    if (letter.size() != 1 || letter[0] < QLatin1Char(kFirstScheduleLetter) ||
        letter[0] > QLatin1Char(kLastScheduleLetter)) {
      return Refuse(u"schedule \"%1\": expected a letter from A to J"_s.arg(text));
    }
    options_.play_on_arrival = letter[0].toLatin1();
    return true;
  }

  bool ReadScrollSpeed() {
    const QString text = parser_.value(known_.scroll_speed);
    bool is_number = false;
    options_.scroll_speed = text.toInt(&is_number);
    if (is_number && options_.scroll_speed >= 1 &&
        options_.scroll_speed <= PanelDots::kMostScrollSpeed) {
      return true;
    }
    return Refuse(u"scroll speed \"%1\": expected dots per second, 1 to %2"_s.arg(text).arg(
        PanelDots::kMostScrollSpeed));
  }

  bool ReadCodePage() {
    if (!parser_.isSet(known_.code_page)) return true;
    const QString text = parser_.value(known_.code_page);
    options_.code_page = text.toInt();
    if (Brivon1::CodePage::IsKnown(*options_.code_page)) return true;
    return Refuse(u"code page \"%1\": expected 874 or 1250 to 1258"_s.arg(text));
  }

  bool ReadFiles() {
    if (parser_.isSet(known_.picture) && options_.headless) {
      return Refuse(u"a picture needs the window: not with --headless"_s);
    }
    if (parser_.isSet(known_.log)) options_.log = parser_.value(known_.log);
    if (parser_.isSet(known_.state)) options_.state = parser_.value(known_.state);
    options_.picture = parser_.value(known_.picture);
    return true;
  }

  bool ReadLines() {
    options_.tcp_addresses = parser_.values(known_.tcp);
    options_.exposed = parser_.isSet(known_.expose);
    options_.pty_links = parser_.values(known_.pty);
    options_.serial_devices = parser_.values(known_.serial);
    if (options_.tcp_addresses.isEmpty() && options_.pty_links.isEmpty() &&
        options_.serial_devices.isEmpty()) {
      options_.tcp_addresses.append(u"127.0.0.1:%1"_s.arg(kUsualPort));
    }
    bool is_number = false;
    options_.baud_rate = parser_.value(known_.baud).toInt(&is_number);
    if (is_number && options_.baud_rate > 0) return true;
    return Refuse(u"baud rate \"%1\": not a number"_s.arg(parser_.value(known_.baud)));
  }

  const QCommandLineParser& parser_;
  const KnownOptions& known_;
  Options options_;
  QString error_;
};

}  // namespace

std::variant<Options, HelpText, BadUse> ParseOptions(const QStringList& arguments,
                                                     bool can_show_windows) {
  const KnownOptions known;
  QCommandLineParser parser;
  parser.setApplicationDescription(
      u"LED text panels on the desk: what they are sent is acknowledged and shown."_s);
  parser.addOptions({known.help, known.version, known.panel, known.tcp, known.expose, known.serial,
                     known.baud, known.pty, known.headless, known.log, known.state, known.picture,
                     known.fault, known.clock_answer, known.play, known.scroll_speed,
                     known.code_page});
  if (!parser.parse(arguments)) return BadUse{parser.errorText()};
  if (parser.isSet(known.help)) return HelpText{parser.helpText()};
  if (parser.isSet(known.version)) {
    return HelpText{u"virtual_panel %1\n"_s.arg(QCoreApplication::applicationVersion())};
  }
  if (!parser.positionalArguments().isEmpty()) {
    return BadUse{u"\"%1\": not an option"_s.arg(parser.positionalArguments().first())};
  }
  if (!parser.isSet(known.headless) && !can_show_windows) {
    // "--headless" was there, but as the value of another option.
    return BadUse{u"\"--headless\" is no value for an option"_s};
  }
  return Reader(parser, known).Read();
}

}  // namespace VirtualPanel
