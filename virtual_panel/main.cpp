// A panel on the desk: speaks the panels' side of the protocol over TCP, a serial port or a
// pseudo-terminal, and shows in a window what real panels would show.

#include <cstdlib>
#include <cstring>
#include <memory>
#include <variant>

#include <QApplication>

#include "base/program_icon.h"
#include "base/shell.h"
#include "virtual_panel/options.h"
#include "virtual_panel/program.h"
#include "virtual_panel/start_up.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr int kBadUse = 2;

// Options that need no display.
bool WantsNoWindow(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    for (const char* option : {"--headless", "--help", "-h", "--version"}) {
      if (std::strcmp(argv[i], option) == 0) return true;
    }
  }
  return false;
}

int Refuse(const QString& reason) {
  Complain(reason);
  return kBadUse;
}

int Run(const QCoreApplication& application) {
  const bool can_show_windows = qobject_cast<const QApplication*>(&application) != nullptr;
  const auto parsed = ParseOptions(QCoreApplication::arguments(), can_show_windows);
  if (const auto* bad_use = std::get_if<BadUse>(&parsed)) return Refuse(bad_use->reason);
  if (const auto* help = std::get_if<HelpText>(&parsed)) {
    Brivon1::WriteToStream(Brivon1::Stream::kOutput, Brivon1::StreamText(help->text),
                           Brivon1::WhenFull::kGiveUp);
    return EXIT_SUCCESS;
  }
  Program program(std::get<Options>(parsed));
  QString error;
  if (!program.Start(&error)) return Refuse(error);
  Say(u"ready"_s);
  return QCoreApplication::exec();
}

}  // namespace
}  // namespace VirtualPanel

int main(int argc, char** argv) {
  VirtualPanel::OpenStreams();
  std::unique_ptr<QCoreApplication> application;
  if (VirtualPanel::WantsNoWindow(argc, argv)) {
    // A desktop's event loop, which no window needs here, takes twice as long with many callers.
    if (!qEnvironmentVariableIsSet("QT_NO_GLIB")) qputenv("QT_NO_GLIB", "1");
    application = std::make_unique<QCoreApplication>(argc, argv);
  } else {
    if (!VirtualPanel::HasDisplay()) {
      return VirtualPanel::Refuse(u"there is no display: use --headless"_s);
    }
    application = std::make_unique<QApplication>(argc, argv);
    QApplication::setDesktopFileName(u"org.brivon.VirtualPanel"_s);
    QApplication::setWindowIcon(Brivon1::ProgramIcon(u"org.brivon.VirtualPanel"_s));
  }
  QCoreApplication::setApplicationName(u"virtual_panel"_s);
  QCoreApplication::setApplicationVersion(QStringLiteral(BRIVON_VERSION));
  VirtualPanel::QuitOnSignals(application.get());
  return VirtualPanel::Run(*application);
}
