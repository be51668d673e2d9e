#include "sending/sending_windows.h"

#include <QComboBox>
#include <QListWidget>

#include "command/frmCommand.h"
#include "page/frmSendMsg.h"
#include "schedule/frmSendSch.h"
#include "scrolling/frmSendShift.h"

using namespace Qt::StringLiterals;

namespace {

const QList<LineKind> kBothLines = {LineKind::kTcp, LineKind::kSerial};

QString Finished(LineKind) { return u"Transmission finished!"_s; }
QStringList Failed(const TemporaryProgramFolder&) { return {u"Transmission failure!"_s}; }
QString TranslatedFinished(LineKind) { return u"Fertig!"_s; }
QStringList TranslatedFailed(const TemporaryProgramFolder&) { return {u"Fehler!"_s}; }

template <typename Window>
std::unique_ptr<QDialog> Make(const QString& path, const Brivon1::PanelPorts* ports) {
  return std::make_unique<Window>(nullptr, path, ports);
}

SendingWindow SendPage() {
  return {
      .name = "Page",
      .lines = kBothLines,
      .title = u"Send Message"_s,
      .success_icon = QMessageBox::NoIcon,
      .failure_icon = QMessageBox::NoIcon,
      .locked = {"butBrowse", "ComboID", "txtPage", "butSend", "butDone"},
      .text_box = "txtPage",
      .panel = {26, 4, 96, true},
      .make = Make<frmSendMsg>,
      .write_file =
          [](TemporaryProgramFolder& folder) {
            return folder.Write(u"page.msg"_s, SampleMessageFile(4, 96));
          },
      .fill_in = [](SendDialog& dialog) { dialog.Find<QComboBox>("ComboID")->setCurrentIndex(0); },
      .frames = {"<ID1A><L01><P001><SA><CA>Row 01 \r\n", "<ID1A><L02><P001><SA><CB>Row 02 \r\n",
                 "<ID1A><L03><P001><SA><CC>Row 03 \r\n", "<ID1A><L04><P001><SA><CD>Row 04 \r\n"},
      .statuses = {u" Sending Line 1"_s, u" Sending Line 2"_s, u" Sending Line 3"_s,
                   u" Sending Line 4"_s},
      .keeps_status = false,
      .finished = Finished,
      .failed = Failed,
      .translated_finished = TranslatedFinished,
      .translated_failed = TranslatedFailed};
}

SendingWindow SendSchedule() {
  return {
      .name = "Schedule",
      .lines = kBothLines,
      .title = u"Send Schedule"_s,
      .success_icon = QMessageBox::NoIcon,
      .failure_icon = QMessageBox::NoIcon,
      .locked = {"butSend", "butDone", "ComboSchID", "butBrowse"},
      .text_box = "txtSchNo",
      .panel = {26, 2, 96, true},
      .make = Make<frmSendSch>,
      .write_file =
          [](TemporaryProgramFolder& folder) {
            const QString page = folder.Write(u"first.msg"_s, SampleMessageFile(2, 96));
            return folder.Write(u"week.sch"_s,
                                "*** Brivon Schedule File ***\r\nWeek =7\r\nHour =8\r\nMin =**\r\n"
                                "Row =2\r\nCol =96\r\nNo of Sequence =1\r\n" +
                                    page.toLocal8Bit().leftJustified(100, ' ') +
                                    "\r\n5\r\nwipe left\r\n");
          },
      .fill_in =
          [](SendDialog& dialog) {
            dialog.Find<QComboBox>("ComboSchID")->setCurrentIndex(0);
            dialog.TypeInto("txtSchNo", u"a"_s);
          },
      .frames = {"<ID1A><L01><P001><SA><CA>Row 01 \r\n", "<ID1A><L02><P001><SA><CB>Row 02 \r\n",
                 "<ID1A><TA>608**00105E\r\n"},
      .statuses = {u" Sending Line 1"_s, u" Sending Line 2"_s, u"Schedule--->"_s},
      .keeps_status = true,
      .finished =
          [](LineKind line) {
            return line == LineKind::kTcp ? u"Schedules file is sent successfully through network"_s
                                          : u"Transmission finished!"_s;
          },
      .failed =
          [](const TemporaryProgramFolder& folder) {
            return QStringList{u"Error in sending %1!"_s.arg(folder.Path(u"first.msg"_s)),
                               u"Transmission failure!"_s};
          },
      .translated_finished =
          [](LineKind line) {
            return line == LineKind::kTcp ? u"Zeitplan ist da!"_s : u"Fertig!"_s;
          },
      .translated_failed =
          [](const TemporaryProgramFolder& folder) {
            return QStringList{u"Fehler bei %1!"_s.arg(folder.Path(u"first.msg"_s)), u"Fehler!"_s};
          }};
}

SendingWindow SendScrolling() {
  return {.name = "Scrolling",
          .lines = {LineKind::kSerial},
          .title = u"Send Scrolling Message"_s,
          .success_icon = QMessageBox::NoIcon,
          .failure_icon = QMessageBox::NoIcon,
          .locked = {"butBrowse", "ComboID", "txtLine", "butSend", "butDone"},
          .text_box = "txtLine",
          .panel = {26, 4, 96, true},
          .make = Make<frmSendShift>,
          .write_file =
              [](TemporaryProgramFolder& folder) {
                return folder.Write(u"a.srl"_s,
                                    "*** Brivon Shift Message File ***\r\n"
                                    "<SA><CA>Road <CB>works\r\n");
              },
          .fill_in = [](SendDialog&) {},
          .frames = {"<ID1A><L1><SA><CA>Road <CB>works\r\n"},
          .statuses = {u"Sending --->"_s},
          .keeps_status = false,
          .finished = Finished,
          .failed = Failed,
          .translated_finished = TranslatedFinished,
          .translated_failed = TranslatedFailed};
}

SendingWindow SendCommand() {
  return {.name = "Command",
          .lines = kBothLines,
          .title = u"Command"_s,
          .success_icon = QMessageBox::Information,
          .failure_icon = QMessageBox::Warning,
          .locked = {"butSend", "butDone", "ListCommand", "ComboID"},
          .text_box = nullptr,
          .panel = {200, 4, 96, true},
          .make = [](const QString&, const Brivon1::PanelPorts* ports) -> std::unique_ptr<QDialog> {
            return std::make_unique<frmCommand>(nullptr, ports);
          },
          .write_file = [](TemporaryProgramFolder&) { return QString(); },
          .fill_in =
              [](SendDialog& dialog) { dialog.Find<QListWidget>("ListCommand")->setCurrentRow(0); },
          .frames = {"<IDC8><?>\r\n"},
          .statuses = {},
          .keeps_status = false,
          .finished = [](LineKind) { return u"Command is sent successfully!"_s; },
          .failed = [](const TemporaryProgramFolder&) { return QStringList{u"Polling error!"_s}; },
          .translated_finished = [](LineKind) { return u"Befehl ist da!"_s; },
          .translated_failed =
              [](const TemporaryProgramFolder&) { return QStringList{u"Keiner da!"_s}; }};
}

}  // namespace

const QList<SendingWindow>& SendingWindows() {
  static const QList<SendingWindow> windows = {SendPage(), SendSchedule(), SendScrolling(),
                                               SendCommand()};
  return windows;
}

QList<WindowOverLine> WindowsOverLines(bool (*holds)(const WindowOverLine& pair)) {
  QList<WindowOverLine> pairs;
  for (const SendingWindow& window : SendingWindows()) {
    for (const LineKind line : window.lines) {
      if (holds({&window, line})) pairs.append({&window, line});
    }
  }
  return pairs;
}

QList<WindowOverLine> WindowsOverLines() {
  return WindowsOverLines([](const WindowOverLine&) { return true; });
}

bool IsOverTcp(const WindowOverLine& pair) { return pair.line == LineKind::kTcp; }

std::string WindowOverLineName(const testing::TestParamInfo<WindowOverLine>& info) {
  return info.param.window->name + std::string("Over") +
         (info.param.line == LineKind::kTcp ? "Tcp" : "Serial");
}
