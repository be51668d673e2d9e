#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "base/code_page.h"
#include "command/frmCommand.h"
#include "ports/port.h"
#include "support/message_box_reader.h"
#include "support/panel_bench.h"
#include "support/send_dialog.h"

using namespace Qt::StringLiterals;

namespace {

class CommandWindow : public SendDialog {
 public:
  explicit CommandWindow(const Brivon1::PanelPorts* ports = nullptr)
      : SendDialog(std::make_unique<frmCommand>(nullptr, ports),
                   {"butSend", "butDone", "ListCommand", "ComboID"}) {}

  QListWidget* Commands() { return Find<QListWidget>("ListCommand"); }

  /// Double-clicks a command's row.
  void DoubleClick(int row) {
    const QPoint at = Commands()->visualItemRect(Commands()->item(row)).center();
    QTest::mouseClick(Commands()->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(Commands()->viewport(), Qt::LeftButton, {}, at);
  }
};

void ExpectBox(const MessageBoxReader& boxes, const QString& text, QMessageBox::Icon icon,
               const QString& title = u"Command"_s) {
  ASSERT_EQ(boxes.Seen().size(), 1);
  EXPECT_EQ(boxes.Seen()[0].text, text);
  EXPECT_EQ(boxes.Seen()[0].icon, icon);
  EXPECT_EQ(boxes.Seen()[0].title, title);
  EXPECT_EQ(boxes.Seen()[0].buttons, QMessageBox::Ok);
}

/// Enters a page number in the page dialog; an empty one cancels it.
ModalWindowDriver EnterPage(const QString& page) {
  return ModalWindowDriver(u"frmPage"_s, [page](QWidget* window) {
    if (page.isEmpty()) {
      QTest::keyClick(window, Qt::Key_Escape);
      return;
    }
    auto* box = window->findChild<QLineEdit*>(u"txtPage"_s);
    box->setText(page);
    QTest::keyClick(box, Qt::Key_Return);
  });
}

class CommandOverLink : public testing::TestWithParam<LineKind> {
 protected:
  CommandOverLink() : bench_(GetParam(), {{200, 4, 96, true}, {201, 2, 80, false}}) {}

  void ExpectTheNextCommandWorks(CommandWindow& command) {
    EXPECT_TRUE(command.IsReady());
    EXPECT_TRUE(bench_.IsReleased());
    bench_.Fail({});
    bench_.PlugIn();
    const MessageBoxReader boxes;
    command.DoubleClick(0);
    ExpectBox(boxes, u"Command is sent successfully!"_s, QMessageBox::Information);
    EXPECT_TRUE(command.IsReady());
    EXPECT_TRUE(bench_.IsReleased());
  }

  VirtualBench bench_;
};

INSTANTIATE_TEST_SUITE_P(Links, CommandOverLink, testing::Values(LineKind::kTcp, LineKind::kSerial),
                         LineName);

TEST_P(CommandOverLink, ADoubleClickOnACommandRowSendsItAtOnce) {
  CommandWindow command(bench_.Ports());
  const MessageBoxReader boxes;
  command.DoubleClick(2);
  ExpectBox(boxes, u"All pages are deleted!"_s, QMessageBox::Information);
  EXPECT_EQ(bench_.Frames(), QList<QByteArray>{"<IDC8><D*>\r\n"});
}

TEST_P(CommandOverLink, ALineLostBeforeTheAnswerFailsOnceAndTheNextCommandWorks) {
  bench_.Fail({.silent = true});
  CommandWindow command(bench_.Ports());
  {
    const MessageBoxReader boxes;
    QObject::connect(
        &bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &command.window,
        [&] { bench_.Unplug(); }, Qt::QueuedConnection);
    command.DoubleClick(2);
    ExpectBox(boxes, u"Transmission error!"_s, QMessageBox::Warning);
    bench_.Engine().disconnect(&command.window);
  }
  EXPECT_EQ(bench_.Frames().size(), 1);
  ExpectTheNextCommandWorks(command);
}

TEST_P(CommandOverLink, ALineLostWhileThePageDialogIsOpenFailsOnceAndTheNextCommandWorks) {
  CommandWindow command(bench_.Ports());
  {
    const MessageBoxReader boxes;
    const ModalWindowDriver page(u"frmPage"_s, [&](QWidget* window) {
      bench_.Unplug();
      QCoreApplication::processEvents();
      QTest::keyClick(window->findChild<QLineEdit*>(u"txtPage"_s), Qt::Key_Return);
    });
    command.DoubleClick(4);
    ExpectBox(boxes, u"Transmission error!"_s, QMessageBox::Warning);
  }
  EXPECT_TRUE(bench_.Frames().isEmpty());
  ExpectTheNextCommandWorks(command);
}

TEST_P(CommandOverLink, TheProgramsEndWhileThePageDialogIsOpenSendsNothing) {
  CommandWindow command(bench_.Ports());
  const MessageBoxReader boxes;
  {
    const ModalWindowDriver page = EnterPage(u"7"_s);
    command.DoubleClick(3);
  }
  EXPECT_EQ(bench_.Frames(), QList<QByteArray>{"<IDC8><D007>\r\n"});
  const ModalWindowDriver page(u"frmPage"_s, [](QWidget*) { QCoreApplication::exit(3); });
  QTimer::singleShot(0, &command.window, [&] { command.DoubleClick(3); });
  EXPECT_EQ(QCoreApplication::exec(), 3);
  EXPECT_EQ(page.Count(), 1);
  EXPECT_TRUE(bench_.IsReleased());
  EXPECT_EQ(bench_.Frames().size(), 1);
}

TEST_P(CommandOverLink, EveryPieceOfAMessageAndItsTitleAreLookedUp) {
  bench_.Folder().UseLanguage(
      "[Message]\r\nmsgPage=Seite\r\nmsgDPOK=ist weg.\r\nmsgRunOK=zeigt sie.\r\n"
      "msgRun=Zeige Seite\r\n[frmMain]\r\nbutCommand.Caption=Befehl\r\n");
  CommandWindow command(bench_.Ports());
  const ModalWindowDriver page = EnterPage(u"7"_s);
  {
    const MessageBoxReader boxes;
    command.DoubleClick(3);
    ExpectBox(boxes, u"Seite 7 ist weg."_s, QMessageBox::Information, u"Befehl"_s);
  }
  const MessageBoxReader boxes;
  command.DoubleClick(4);
  ExpectBox(boxes, u"Seite 7 zeigt sie."_s, QMessageBox::Information, u"Zeige Seite"_s);
}

TEST_P(CommandOverLink, ThePageIsNamedAsItWasEntered) {
  CommandWindow command(bench_.Ports());
  const MessageBoxReader boxes;
  const ModalWindowDriver page = EnterPage(u"7 \u20ac"_s);
  command.DoubleClick(3);
  ExpectBox(boxes, u"Page 7 \u20ac is deleted."_s, QMessageBox::Information);
  EXPECT_EQ(bench_.Frames(), QList<QByteArray>{"<IDC8><D007>\r\n"});
}

TEST_P(CommandOverLink, DeletingPage7OfPanel200) {
  CommandWindow command(bench_.Ports());
  const MessageBoxReader boxes;
  const ModalWindowDriver page = EnterPage(u"7"_s);
  command.DoubleClick(3);
  EXPECT_EQ(page.Count(), 1);
  ExpectBox(boxes, u"Page 7 is deleted."_s, QMessageBox::Information);
  EXPECT_EQ(bench_.Frames(), QList<QByteArray>{"<IDC8><D007>\r\n"});
}

TEST_P(CommandOverLink, RunningAPage) {
  CommandWindow command(bench_.Ports());
  const MessageBoxReader boxes;
  const ModalWindowDriver page = EnterPage(u"012"_s);
  command.DoubleClick(4);
  ExpectBox(boxes, u"Page 012 is running."_s, QMessageBox::Information, u"Run page"_s);
  EXPECT_EQ(bench_.Engine().RunningPage(200), std::optional<int>(12));
}

TEST_P(CommandOverLink, ACancelledPageDialogSendsNothing) {
  CommandWindow command(bench_.Ports());
  const MessageBoxReader boxes;
  const ModalWindowDriver page = EnterPage(QString());
  command.DoubleClick(4);
  EXPECT_EQ(page.Count(), 1);
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_TRUE(bench_.Frames().isEmpty());
  EXPECT_TRUE(command.IsReady());
  EXPECT_TRUE(bench_.IsReleased());
}

TEST_P(CommandOverLink, APageOutside1To120SendsNothing) {
  CommandWindow command(bench_.Ports());
  const MessageBoxReader boxes;
  const ModalWindowDriver page = EnterPage(u"121"_s);
  command.DoubleClick(3);
  ExpectBox(boxes, u"Invalid Page Value!"_s, QMessageBox::Warning);
  EXPECT_EQ(boxes.Remedies(), QStringList(u"A page is a number from 1 to 120."_s));
  EXPECT_TRUE(bench_.Frames().isEmpty());
  EXPECT_TRUE(bench_.IsReleased());
}

TEST_P(CommandOverLink, SetClockSetsThePanelsClock) {
  CommandWindow command(bench_.Ports());
  const MessageBoxReader boxes;
  command.DoubleClick(1);
  ExpectBox(boxes,
            GetParam() == LineKind::kTcp ? u"Set Clock Finished!"_s : u"Set clock is done!"_s,
            QMessageBox::Information);
  ASSERT_EQ(bench_.Frames().size(), 1);
  EXPECT_LT(qAbs(bench_.Engine().ClockOffset(200)), 2000);
  EXPECT_TRUE(bench_.IsReleased());
}

TEST_P(CommandOverLink, AfterTheCommandTheLastBytesHaveThreeTicksToLeaveTheLine) {
  CommandWindow command(bench_.Ports());
  const MessageBoxReader boxes;
  qsizetype before = 0;
  qint64 read_at = 0;
  const ModalWindowDriver box(QString(), [&](QWidget*) {
    before = bench_.Time().Timeline().size();
    read_at = bench_.Time().Now();
  });
  qint64 closed_at = 0;
  bench_.OnClose([&] { closed_at = bench_.Time().Now(); });
  command.DoubleClick(0);
  EXPECT_EQ(box.Count(), 1);
  const int at = static_cast<int>(read_at);
  EXPECT_EQ(bench_.Time().Timeline().mid(before), TicksAt(at + 100, at + 300));
  EXPECT_EQ(closed_at, read_at + 300);
  EXPECT_FALSE(bench_.Timer().IsEnabled());
}

TEST_P(CommandOverLink, WithoutASelectedCommandNothingIsSent) {
  CommandWindow command(bench_.Ports());
  EXPECT_EQ(command.Commands()->currentRow(), -1);
  const MessageBoxReader boxes;
  command.Click("butSend");
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_TRUE(bench_.Frames().isEmpty());
  EXPECT_TRUE(command.IsReady());
  EXPECT_TRUE(bench_.IsReleased());
}

TEST_P(CommandOverLink, WithoutASelectedCommandTheWindowAsksForOneUntilItIsChosen) {
  CommandWindow command(bench_.Ports());
  EXPECT_EQ(command.Shown("lblNote"), QString());
  command.Click("butSend");
  EXPECT_EQ(command.Shown("lblNote"), u"Choose a command."_s);
  EXPECT_TRUE(command.Find<QWidget>("lblNote")->isVisible());
  QTest::mouseClick(command.Commands()->viewport(), Qt::LeftButton, {},
                    command.Commands()->visualItemRect(command.Commands()->item(0)).center());
  EXPECT_FALSE(command.Find<QWidget>("lblNote")->isVisible());
  EXPECT_EQ(command.Send(), QStringList{u"Command is sent successfully!"_s});
  EXPECT_FALSE(command.Find<QWidget>("lblNote")->isVisible());
}

TEST_P(CommandOverLink, TheSecondPanelOfTheListIsReachedByItsOwnId) {
  CommandWindow command(bench_.Ports());
  const MessageBoxReader boxes;
  command.Find<QComboBox>("ComboID")->setCurrentIndex(1);
  command.DoubleClick(0);
  EXPECT_EQ(bench_.Frames(), QList<QByteArray>{"<IDC9><?>\r\n"});
}

class CommandWindowAlone : public testing::Test {
 protected:
  TemporaryProgramFolder folder_;
};

TEST_F(CommandWindowAlone, WithNoConfiguredPanelTheIdListIsEmptyAndSendReportsEmptyId) {
  CommandWindow command;
  EXPECT_EQ(command.Find<QComboBox>("ComboID")->count(), 0);
  const MessageBoxReader boxes;
  command.Click("butSend");
  ExpectBox(boxes, u"Empty ID!"_s, QMessageBox::NoIcon);
  EXPECT_EQ(boxes.Remedies(), QStringList(u"Set up a panel: Config in the main window."_s));
}

TEST_F(CommandWindowAlone, HasItsControlsAndTexts) {
  folder_.Configure("[Dimension Config]\r\nID012=16x128,Tri,192.168.0.12:80\r\n");
  CommandWindow command;
  auto* panels = command.Find<QComboBox>("ComboID");
  EXPECT_EQ(panels->currentText(), u"ID012     16x128     Tri-Color     192.168.0.12:80"_s);
  QStringList commands;
  for (int row = 0; row < command.Commands()->count(); ++row) {
    commands.append(command.Commands()->item(row)->text());
  }
  EXPECT_EQ(commands, (QStringList{u"Polling"_s, u"Set Clock"_s, u"Delete All"_s, u"Delete Page"_s,
                                   u"Run page"_s}));
  EXPECT_EQ(command.Find<QGroupBox>("FrameID")->title(), u"ID Number"_s);
  EXPECT_EQ(command.Find<QPushButton>("butSend")->text(), u"Send"_s);
  EXPECT_EQ(command.Find<QPushButton>("butDone")->text(), u"Done"_s);
  EXPECT_EQ(command.Find<QTimer>("Timer1")->interval(), 100);
  EXPECT_NE(command.Find<Ports::Port>("Comm1"), nullptr);
  EXPECT_NE(command.Find<QTcpSocket>("Winsock1"), nullptr);
}

TEST_F(CommandWindowAlone, DoneClosesTheWindow) {
  CommandWindow command;
  QTest::mouseClick(command.Find<QPushButton>("butDone"), Qt::LeftButton);
  EXPECT_FALSE(command.window.isVisible());
}

TEST_F(CommandWindowAlone, NoPortIsAnExclamation) {
  folder_.Configure(
      "[Dimension Config]\r\nID001=4x96,Tri,1.2.3.4:80\r\n[Communication]\r\nSendMode=RS232\r\n"
      "[Serial Ports]\r\nCom2=/dev/no-command-port\r\n");
  CommandWindow command;
  const MessageBoxReader boxes;
  command.DoubleClick(0);
  ExpectBox(boxes, u"Fail to initialize communication port!"_s, QMessageBox::Warning);
  EXPECT_EQ(boxes.Seen().value(0).informative,
            u"/dev/no-command-port: No such file or directory"_s);
  EXPECT_TRUE(command.IsReady());
}

TEST_F(CommandWindowAlone, ADeviceWhoseNameLooksLikeMarkupIsShownLetterByLetter) {
  folder_.Configure(
      "[Dimension Config]\r\nID001=4x96,Tri,1.2.3.4:80\r\n[Communication]\r\nSendMode=RS232\r\n"
      "[Serial Ports]\r\nCom2=/dev/<b>x</b>\r\n");
  CommandWindow command;
  QStringList shown;
  const ModalWindowDriver driver(QString(), [&](QWidget* box) {
    shown = ShownTexts(*box);
    QTest::keyClick(box, Qt::Key_Return);
  });
  command.DoubleClick(0);
  EXPECT_TRUE(shown.contains(u"/dev/<b>x</b>: No such file or directory"_s))
      << shown.join(u'|').toStdString();
}

TEST_F(CommandWindowAlone, APanelWithoutAUsableAddressCannotBeReachedOverTcp) {
  folder_.Configure(
      "[Dimension Config]\r\nID001=4x96,Tri\r\n[Communication]\r\nSendMode=TCPIP\r\n");
  CommandWindow command;
  const MessageBoxReader boxes;
  command.DoubleClick(0);
  ExpectBox(boxes, u"Cannot create TCP link!"_s, QMessageBox::Warning);
}

TEST_F(CommandWindowAlone, AHostIsShownInTheSystemsCodePage) {
  folder_.Configure(
      "[Dimension Config]\r\nID001=4x96,Tri,a\x80z.invalid:80\r\n"
      "[Communication]\r\nSendMode=TCPIP\r\n");
  CommandWindow command;
  const MessageBoxReader boxes;
  command.DoubleClick(0);
  const QString host = Brivon1::CodePage::System().ToText("a\x80z.invalid");
  const QString reason = boxes.Seen().value(0).informative;
  EXPECT_TRUE(reason.startsWith(host + u":80: "_s)) << reason.toStdString();
}

TEST_F(CommandWindowAlone, SendModeEmptyOpensNothingAndReportsNothing) {
  folder_.Configure("[Dimension Config]\r\nID001=4x96,Tri,1.2.3.4:80\r\n");
  CommandWindow command;
  const MessageBoxReader boxes;
  command.DoubleClick(0);
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_TRUE(command.IsReady());
}

TEST_F(CommandWindowAlone, WithoutALinkItsNoteStaysWhateverIsSelectedAndSent) {
  folder_.Configure("[Dimension Config]\r\nID001=4x96,Tri,1.2.3.4:80\r\n");
  CommandWindow command;
  const QString note = u"No link is chosen: Config, Communication Selection"_s;
  EXPECT_EQ(command.Shown("lblNote"), note);
  command.Click("butSend");
  EXPECT_EQ(command.Shown("lblNote"), note);
  command.DoubleClick(0);
  EXPECT_EQ(command.Shown("lblNote"), note);
}

TEST_F(CommandWindowAlone, TextsAndTitleComeFromTheLanguageFile) {
  folder_.Configure(
      "[Dimension Config]\r\nID001=4x96,Tri\r\n[Communication]\r\nSendMode=TCPIP\r\n");
  folder_.UseLanguage(
      "[Message]\r\nmsgErrTCP=Keine Verbindung!\r\n[frmMain]\r\nbutCommand.Caption=Befehl\r\n");
  CommandWindow command;
  const MessageBoxReader boxes;
  command.DoubleClick(0);
  ExpectBox(boxes, u"Keine Verbindung!"_s, QMessageBox::Warning, u"Befehl"_s);
}

}  // namespace
