#include "journey/journey.h"

#include <cstdio>
#include <utility>

#include <QCoreApplication>
#include <QFile>
#include <QRadioButton>

#include "journey/hands.h"
#include "language/module_language.h"
#include "support/message_box_reader.h"

using namespace Qt::StringLiterals;

Journey::Journey(const QString& panel_program, QString samples, const QString& pictures)
    : samples_(std::move(samples)),
      pictures_(pictures),
      panel_(panel_program, folder_, pictures_.filePath(u"virtual_panel.png"_s)) {}

int Journey::Run() {
  Step("the virtual panel is ready", panel_.IsReady());
  if (failures_ > 0) return failures_;
  SetUpAPanel();
  OverTcp();
  OverTheSerialLine();
  InAnotherLanguage();
  std::printf("%d steps, %d failed\n", steps_, failures_);
  return failures_;
}

void Journey::SetUpAPanel() {
  std::printf("-- the first panel\n");
  frmMain launcher;
  launcher.show();
  Visit(launcher, "butConfigEdit", "frmConfig", [this](QWidget* dialog) {
    const QByteArray address = panel_.TcpAddress();
    auto* tcp = Find<QRadioButton>(dialog, "optTCPIP");
    QTest::mouseClick(tcp, Qt::LeftButton, {}, QPoint(8, tcp->height() / 2));
    TypeInto(dialog, "txtIPAddress", u"127.0.0.1"_s);
    TypeInto(dialog, "txtIPPortNo", QString::fromLatin1(address.mid(address.indexOf(':') + 1)));
    TypeInto(dialog, "txtID", u"1"_s);
    TypeInto(dialog, "txtRow", u"4"_s);
    TypeInto(dialog, "txtcol", u"96"_s);
    Choose(dialog, "ComboColorType", 1);
    Click(dialog, "butAdd");
    TakePicture(dialog, "frmConfig");
    Click(dialog, "butOK");
  });
  Step("brivon.ini holds the panel and the link",
       folder_.Read(u"brivon.ini"_s) ==
           "[Dimension Config]\r\nID001=4x96,Tri," + panel_.TcpAddress() +
               "\r\n[Communication]\r\nBaudrate=9600\r\nComPort=2\r\nSendMode=TCPIP\r\n");
}

void Journey::OverTcp() {
  std::printf("-- over TCP\n");
  Configure("TCPIP", 1);
  frmMain launcher;
  launcher.show();
  TakePicture(&launcher, "frmMain");
  Visit(launcher, "butMsgEdit", "frmMsgEditor", [this](QWidget* editor) {
    ComposeAPage(editor);
    SaveThePage(editor);
    SendThePage(editor, u"7"_s);
    Click(editor, "butExit");
  });
  Visit(launcher, "butSchEdit", "frmSchedule", [this](QWidget* editor) {
    BuildASchedule(editor);
    SendTheSchedule(editor, "C", 25, "Schedules file is sent successfully through network");
    Click(editor, "butExit");
  });
  Visit(launcher, "butCommand", "frmCommand", [this](QWidget* window) {
    Command(window, 0, QString(), "Command is sent successfully!");
    Command(window, 1, QString(), "Set Clock Finished!");
    Command(window, 4, u"7"_s, "Page 7 is running.");
    Step("the panel runs page 7",
         QTest::qWaitFor([this] { return panel_.Panel(1)[u"running_page"_s].toInt() == 7; }));
    Click(window, "butDone");
  });
}

void Journey::OverTheSerialLine() {
  std::printf("-- over a serial line\n");
  Configure("RS232", 1);
  frmMain launcher;
  launcher.show();
  Visit(launcher, "butMsgEdit", "frmMsgEditor", [this](QWidget* editor) {
    const FileChooser chooser(page_file_);
    Click(editor, "butOpen");
    SendThePage(editor, u"12"_s);
    QTest::keyClick(editor, Qt::Key_Escape);
  });
  Visit(launcher, "butSchEdit", "frmSchedule", [this](QWidget* editor) {
    const FileChooser chooser(schedule_file_);
    Click(editor, "butOpen");
    SendTheSchedule(editor, "J", 109, "Transmission finished!");
    QTest::keyClick(editor, Qt::Key_Escape);
  });
  Visit(launcher, "butShiftMsg", "frmShiftMsg", [this](QWidget* editor) {
    ComposeAScrollingMessage(editor);
    SendTheScrollingMessage(editor);
    Click(editor, "butExit");
  });
  Visit(launcher, "butCommand", "frmCommand", [this](QWidget* window) {
    Command(window, 0, QString(), "Command is sent successfully!");
    Command(window, 1, QString(), "Set clock is done!");
    Command(window, 3, u"12"_s, "Page 12 is deleted.");
    Step("the panel has deleted page 12 and kept page 7", QTest::qWaitFor([this] {
           return panel_.Page(1, 12).isEmpty() && panel_.Page(1, 7).size() == 4;
         }));
    Click(window, "butDone");
  });
}

void Journey::InAnotherLanguage() {
  std::printf("-- in German\n");
  QFile texts(samples_ + u"/languages/deutsch/langSetting.INI"_s);
  Step("the sample language file is there", texts.open(QIODevice::ReadOnly));
  folder_.Write(u"langSetting.INI"_s, texts.readAll());
  Configure("TCPIP", 2);
  frmMain launcher;
  launcher.show();
  TakePicture(&launcher, "frmMain-deutsch");
  Visit(launcher, "butMsgEdit", "frmMsgEditor", [this](QWidget* editor) {
    const FileChooser chooser(page_file_);
    Click(editor, "butOpen");
    TakePicture(editor, "frmMsgEditor-deutsch");
    Step("the editor speaks German",
         editor->windowTitle() == ModuleLanguage::ReadLangString(
                                      u"frmMsgEditor"_s, u"frmMsgEditor.Caption"_s, QString()) &&
             !editor->windowTitle().isEmpty());
    Click(editor, "butExit");
  });
  Visit(launcher, "butCommand", "frmCommand", [this](QWidget* window) {
    TakePicture(window, "frmCommand-deutsch");
    Click(window, "butDone");
  });
}

void Journey::Step(const char* what, bool succeeded) {
  ++steps_;
  if (!succeeded) ++failures_;
  std::printf("%-7s %s\n", succeeded ? "ok" : "FAILED", what);
  std::fflush(stdout);
}

void Journey::TakePicture(QWidget* window, const char* name) {
  const bool shown = QTest::qWaitForWindowExposed(window);
  QCoreApplication::processEvents();
  const QString file = pictures_.filePath(QString::fromLatin1(name) + u".png"_s);
  if (!shown || !window->grab().save(file)) Step("a picture was taken", false);
}

void Journey::Configure(const char* send_mode, int language) {
  folder_.Write(u"brivon.ini"_s,
                "[Dimension Config]\r\nID001=4x96,Tri," + panel_.TcpAddress() +
                    "\r\nID002=12x192,Mono," + panel_.TcpAddress() +
                    "\r\n[Communication]\r\nSendMode=" + send_mode +
                    "\r\nBaudrate=9600\r\nComPort=2\r\nDelay Period=100\r\n[Serial Ports]\r\n"
                    "Com2=" +
                    panel_.SerialDevice().toLocal8Bit() +
                    "\r\n[Language]\r\nLanguage=" + QByteArray::number(language) + "\r\n");
}

void Journey::Visit(frmMain& launcher, const char* button, const char* window_name,
                    const std::function<void(QWidget*)>& visit) {
  const ModalWindowDriver driver(QString::fromLatin1(window_name), visit);
  Click(&launcher, button);
  Step((QByteArray(window_name) + " was opened from the launcher").data(), driver.Count() == 1);
}
