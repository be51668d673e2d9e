// A panel on the desk: speaks the panels' side of the protocol over TCP, a serial port or a
// pseudo-terminal, and shows in a window what real panels would show.

#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QSaveFile>
#include <QSocketNotifier>
#include <QTimer>

#include "core/code_page.h"
#include "engine_json.h"
#include "panel_lines.h"
#include "panel_window.h"

namespace VirtualPanel {
namespace {

constexpr int kBadUse = 2;
constexpr quint16 kUsualPort = 2101;
constexpr qint64 kMostTimerMs = qint64{24} * 60 * kMinuteMs;

int signal_sockets[2] = {-1, -1};

void PassSignalOn(int /*number*/) {
  const char byte = 1;
  [[maybe_unused]] const ssize_t size = ::write(signal_sockets[0], &byte, 1);
}

// Ends the event loop in an orderly way on SIGINT and SIGTERM.
void QuitOnSignals(QCoreApplication* application) {
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, signal_sockets) != 0) return;
  auto* notifier = new QSocketNotifier(signal_sockets[1], QSocketNotifier::Read, application);
  QObject::connect(notifier, &QSocketNotifier::activated, application, &QCoreApplication::quit);
  struct sigaction action = {};
  action.sa_handler = PassSignalOn;
  ::sigaction(SIGINT, &action, nullptr);
  ::sigaction(SIGTERM, &action, nullptr);
  // Whoever started the program may stop listening to it.
  action.sa_handler = SIG_IGN;
  ::sigaction(SIGPIPE, &action, nullptr);
}

void Say(const QString& line) {
  std::fputs((line + QLatin1Char('\n')).toLocal8Bit().constData(), stdout);
  std::fflush(stdout);
}

int Complain(const QString& line) {
  std::fputs(
      (QStringLiteral("virtual_panel: ") + line + QLatin1Char('\n')).toLocal8Bit().constData(),
      stderr);
  return kBadUse;
}

bool WriteWhole(const QString& path, const QByteArray& bytes, QString* error) {
  QSaveFile file(path);
  if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
    return true;
  *error = path + QStringLiteral(": ") + file.errorString();
  return false;
}

struct Options {
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
          .arg(kMostScrollSpeed)
          .arg(kUsualScrollSpeed),
      QStringLiteral("N"), QString::number(kUsualScrollSpeed)};
  QCommandLineOption code_page{
      QStringLiteral("code-page"),
      QStringLiteral("The code page of what is received, 874 or 1250 to 1258 (the system's)."),
      QStringLiteral("N")};
};

class Program {
 public:
  explicit Program(QCoreApplication* application) : application_(application) {}

  int Run() {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "LED text panels on the desk: what they are sent is acknowledged and shown."));
    parser.addOptions({options_.help, options_.panel, options_.tcp, options_.serial, options_.baud,
                       options_.pty, options_.headless, options_.log, options_.state,
                       options_.picture, options_.fault, options_.clock_answer, options_.play,
                       options_.scroll_speed, options_.code_page});
    if (!parser.parse(application_->arguments())) return Complain(parser.errorText());
    if (parser.isSet(options_.help)) {
      std::fputs(parser.helpText().toLocal8Bit().constData(), stdout);
      return EXIT_SUCCESS;
    }
    if (!parser.positionalArguments().isEmpty()) {
      return Complain(
          QStringLiteral("\"%1\": not an option").arg(parser.positionalArguments().first()));
    }
    const bool has_window = !parser.isSet(options_.headless);
    if (has_window && qobject_cast<QApplication*>(application_) == nullptr) {
      // "--headless" was there, but as the value of another option.
      return Complain(QStringLiteral("\"--headless\" is no value for an option"));
    }
    QString error;
    if (!MakeEngine(parser, &error) || !ReadPlaying(parser, &error) ||
        !ReadCodePage(parser, &error) || !StartRecords(parser, &error) ||
        !OpenLines(parser, &error)) {
      return Complain(error);
    }
    if (has_window) ShowWindow(parser.value(options_.picture));
    Say(QStringLiteral("ready"));
    return QCoreApplication::exec();
  }

 private:
  bool MakeEngine(const QCommandLineParser& parser, QString* error) {
    QList<PanelDescription> panels;
    for (const QString& text : parser.values(options_.panel)) {
      const auto panel = ParsePanelDescription(text, error);
      if (!panel) return false;
      for (const PanelDescription& other : std::as_const(panels)) {
        if (other.id != panel->id) continue;
        *error =
            QStringLiteral("panel \"%1\": there is a panel %2 already").arg(text).arg(panel->id);
        return false;
      }
      panels.append(*panel);
    }
    if (panels.isEmpty()) panels.append(PanelDescription{});
    engine_ = std::make_unique<PanelEngine>(panels);

    Faults faults;
    for (const QString& text : parser.values(options_.fault)) {
      if (!ParseFault(text, &faults, error)) return false;
    }
    engine_->SetFaults(faults);

    if (parser.isSet(options_.clock_answer)) {
      const QString text = parser.value(options_.clock_answer);
      if (text == QLatin1String("none")) {
        engine_->SetClockAnswer(std::nullopt);
        return true;
      }
      bool is_number = false;
      const int id = text.toInt(&is_number);
      if (!is_number || engine_->FindPanel(id) == nullptr) {
        *error = QStringLiteral("clock answer \"%1\": no such panel").arg(text);
        return false;
      }
      engine_->SetClockAnswer(id);
    }
    return true;
  }

  bool ReadPlaying(const QCommandLineParser& parser, QString* error) {
    if (parser.isSet(options_.play)) {
      const QString text = parser.value(options_.play);
      const QString letter = text.toUpper();
      if (letter.size() != 1 || letter[0] < QLatin1Char(kFirstScheduleLetter) ||
          letter[0] > QLatin1Char(kLastScheduleLetter)) {
        *error = QStringLiteral("schedule \"%1\": expected a letter from A to J").arg(text);
        return false;
      }
      engine_->SetPlayOnArrival(letter[0].toLatin1());
    }
    const QString text = parser.value(options_.scroll_speed);
    bool is_number = false;
    scroll_speed_ = text.toInt(&is_number);
    if (!is_number || scroll_speed_ < 1 || scroll_speed_ > kMostScrollSpeed) {
      *error = QStringLiteral("scroll speed \"%1\": expected dots per second, 1 to %2")
                   .arg(text)
                   .arg(kMostScrollSpeed);
      return false;
    }
    return true;
  }

  bool ReadCodePage(const QCommandLineParser& parser, QString* error) {
    if (!parser.isSet(options_.code_page)) return true;
    const QString text = parser.value(options_.code_page);
    const int number = text.toInt();
    if (!Brivon1::CodePage::IsKnown(number)) {
      *error = QStringLiteral("code page \"%1\": expected 874 or 1250 to 1258").arg(text);
      return false;
    }
    Brivon1::CodePage::SetSystem(number);
    return true;
  }

  bool StartRecords(const QCommandLineParser& parser, QString* error) {
    if (parser.isSet(options_.picture) && parser.isSet(options_.headless)) {
      *error = QStringLiteral("a picture needs the window: not with --headless");
      return false;
    }
    if (parser.isSet(options_.log)) {
      log_.setFileName(parser.value(options_.log));
      if (!log_.open(QIODevice::WriteOnly | QIODevice::Append)) {
        *error = log_.fileName() + QStringLiteral(": ") + log_.errorString();
        return false;
      }
      QObject::connect(engine_.get(), &PanelEngine::FrameReceived, application_,
                       [this](const FrameRecord& record) {
                         log_.write(LogLine(record));
                         log_.flush();
                       });
    }
    if (parser.isSet(options_.state)) {
      const QString path = parser.value(options_.state);
      if (!WriteWhole(path, StateDocument(*engine_), error)) return false;
      const auto write_state = [this, path] {
        QString reason;
        if (!WriteWhole(path, StateDocument(*engine_), &reason)) Complain(reason);
      };
      // The wait is set first: a change that comes while the file is written ends it at once.
      const auto follow = [this, write_state] {
        WaitForNextChange();
        write_state();
      };
      // Before the answer is sent: whoever has read an answer finds what it was for.
      QObject::connect(engine_.get(), &PanelEngine::Changed, application_, follow);
      // A schedule goes on without a frame.
      next_change_.setSingleShot(true);
      next_change_.setTimerType(Qt::PreciseTimer);
      QObject::connect(&next_change_, &QTimer::timeout, application_, follow);
    }
    return true;
  }

  void WaitForNextChange() {
    const QDateTime now = engine_->Now();
    const auto next = engine_->NextChange(now);
    if (next) {
      next_change_.start(static_cast<int>(qMin(now.msecsTo(*next), kMostTimerMs)));
    } else {
      next_change_.stop();
    }
  }

  bool OpenLines(const QCommandLineParser& parser, QString* error) {
    QStringList addresses = parser.values(options_.tcp);
    const QStringList links = parser.values(options_.pty);
    const QStringList devices = parser.values(options_.serial);
    if (addresses.isEmpty() && links.isEmpty() && devices.isEmpty()) {
      addresses.append(QStringLiteral("127.0.0.1:%1").arg(kUsualPort));
    }
    lines_ = std::make_unique<PanelLines>(engine_.get());
    QObject::connect(lines_.get(), &PanelLines::Opened, application_, Say);
    QObject::connect(lines_.get(), &PanelLines::Failed, application_, Complain);
    for (const QString& text : std::as_const(addresses)) {
      if (!lines_->OpenTcp(text, error)) return false;
    }
    for (const QString& link : links) {
      if (!lines_->OpenPty(link, error)) return false;
    }
    bool is_number = false;
    const qint32 baud_rate = parser.value(options_.baud).toInt(&is_number);
    if (!is_number || baud_rate <= 0) {
      *error = QStringLiteral("baud rate \"%1\": not a number").arg(parser.value(options_.baud));
      return false;
    }
    for (const QString& device : devices) {
      if (!lines_->OpenSerial(device, baud_rate, error)) return false;
    }
    return true;
  }

  void ShowWindow(const QString& picture_path) {
    window_ = std::make_unique<PanelWindow>(engine_.get());
    window_->SetScrollSpeed(scroll_speed_);
    const auto name_lines = [this] {
      window_->SetLines(lines_->Descriptions().join(QStringLiteral("   \u00B7   ")));
    };
    name_lines();
    // A pseudo-terminal has another name each time it is plugged in.
    QObject::connect(lines_.get(), &PanelLines::Opened, window_.get(), name_lines);
    QObject::connect(window_.get(), &PanelWindow::Plugged, lines_.get(), &PanelLines::SetPlugged);
    window_->show();
    if (picture_path.isEmpty()) return;
    const auto write_picture = [this, picture_path] {
      QSaveFile file(picture_path);
      if (!file.open(QIODevice::WriteOnly) || !window_->grab().save(&file, "PNG") ||
          !file.commit()) {
        Complain(picture_path + QStringLiteral(": ") + file.errorString());
      }
    };
    QObject::connect(window_.get(), &PanelWindow::Refreshed, application_, write_picture);
    write_picture();
  }

  QCoreApplication* application_;
  Options options_;
  std::unique_ptr<PanelEngine> engine_;
  int scroll_speed_ = kUsualScrollSpeed;
  QTimer next_change_;
  QFile log_;
  std::unique_ptr<PanelLines> lines_;
  std::unique_ptr<PanelWindow> window_;
};

// Options that need no display.
bool WantsNoWindow(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    for (const char* option : {"--headless", "--help", "-h"}) {
      if (std::strcmp(argv[i], option) == 0) return true;
    }
  }
  return false;
}

}  // namespace
}  // namespace VirtualPanel

int main(int argc, char** argv) {
  std::unique_ptr<QCoreApplication> application;
  if (VirtualPanel::WantsNoWindow(argc, argv)) {
    application = std::make_unique<QCoreApplication>(argc, argv);
  } else {
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
      return VirtualPanel::Complain(QStringLiteral("there is no display: use --headless"));
    }
    application = std::make_unique<QApplication>(argc, argv);
  }
  QCoreApplication::setApplicationName(QStringLiteral("virtual_panel"));
  VirtualPanel::QuitOnSignals(application.get());
  VirtualPanel::Program program(application.get());
  return program.Run();
}
