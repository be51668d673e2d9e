// The program's lines, faults and refusals.

#include "program_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

TEST_F(ProgramTest, IsFaultyOnDemand) {
  Start(Words("--headless --panel 26:4x96:tri --tcp 0 --fault silent:1 --fault lower-case"));
  QTcpSocket socket;
  Connect(&socket);
  EXPECT_EQ(Exchange(&socket, "<ID1A><?>\r\n<ID1A><?>\r\n"), "<ID1a>\r\n");
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, LetsTheChosenPanelAnswerTheClock) {
  Start(Words("--headless --panel 3:4x96:tri --panel 26:4x96:tri --tcp 0 --clock-answer 26"));
  QTcpSocket socket;
  Connect(&socket);
  EXPECT_EQ(Exchange(&socket, "<T2503053140709>\r\n"), "<ID1A>\r\n");
}

TEST_F(ProgramTest, LetsNobodyAnswerTheClock) {
  Start(Words("--headless --panel 3:4x96:tri --tcp 0 --clock-answer none"));
  QTcpSocket socket;
  Connect(&socket);
  EXPECT_EQ(Exchange(&socket, "<T2503053140709>\r\n<ID03><?>\r\n"), "<ID03>\r\n");
}

TEST_F(ProgramTest, HasAWindowWithoutKeepingAPicture) {
  ShowNoWindow();
  Start(Words("--tcp 0"));
  QTcpSocket socket;
  Connect(&socket);
  EXPECT_EQ(Exchange(&socket, "<ID01><?>\r\n"), "<ID01>\r\n");
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, SaysItsVersion) {
  StartProcess({u"--version"_s});
  ASSERT_TRUE(WaitUntil([&] { return process_.state() == QProcess::NotRunning; }));
  EXPECT_EQ(process_.exitCode(), 0);
  const QString said = QString::fromLocal8Bit(process_.readAllStandardOutput());
  EXPECT_TRUE(
      QRegularExpression(u"^virtual_panel \\d+\\.\\d+(\\.\\d+)?\n$"_s).match(said).hasMatch())
      << said.toStdString();
}

TEST_F(ProgramTest, RefusesALetterOrASpeedThatCannotBe) {
  for (const char* letter : {"K", "AB", "@", "1", ""}) {
    EXPECT_EQ(Refusal({u"--headless"_s, u"--play"_s, QString::fromLatin1(letter)}),
              u"virtual_panel: schedule \"%1\": expected a letter from A to J\n"_s.arg(
                  QLatin1String(letter)));
  }
  for (const char* speed : {"0", "-1", "1001", "fast", "1.5", ""}) {
    EXPECT_EQ(Refusal({u"--headless"_s, u"--scroll-speed"_s, QString::fromLatin1(speed)}),
              u"virtual_panel: scroll speed \"%1\": expected dots per second, 1 to "
              "1000\n"_s.arg(QLatin1String(speed)));
  }
}

TEST_F(ProgramTest, TakesAScrollSpeed) {
  Start(Words("--headless --tcp 0 --scroll-speed 1000"));
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, RefusesACodePageThatThereIsNot) {
  for (const char* page : {"437", "1249", "1259", "utf-8", "-874", ""}) {
    EXPECT_EQ(Refusal({u"--headless"_s, u"--code-page"_s, QString::fromLatin1(page)}),
              u"virtual_panel: code page \"%1\": expected 874 or 1250 to 1258\n"_s.arg(
                  QLatin1String(page)));
  }
}

TEST_F(ProgramTest, RefusesBadUseInWords) {
  EXPECT_EQ(Refusal(Words("--headless --panel 0:4x96:tri")),
            u"virtual_panel: panel \"0:4x96:tri\": ID 0 addresses all panels and cannot be a "
            "panel of its own\n"_s);
  EXPECT_EQ(Refusal(Words("--headless --panel 1:4x96:tri --panel 1:2x48:tri")),
            u"virtual_panel: panel \"1:2x48:tri\": there is a panel 1 already\n"_s);
  EXPECT_TRUE(Refusal(Words("--headless --tcp nowhere:x")).contains(u"nowhere:x"_s));
  EXPECT_TRUE(
      Refusal(Words("--headless --serial /dev/no-program-port")).contains(u"no-program-port"_s));
  EXPECT_TRUE(Refusal(Words("--headless --fault loud")).contains(u"\"loud\""_s));
  for (const char* panel : {"9", "x", ""}) {
    EXPECT_EQ(Refusal({u"--headless"_s, u"--clock-answer"_s, QString::fromLatin1(panel)}),
              u"virtual_panel: clock answer \"%1\": no such panel\n"_s.arg(QLatin1String(panel)));
  }
  EXPECT_TRUE(Refusal(Words("--headless --log /no/such/folder/log")).contains(u"/no/such"_s));
  EXPECT_TRUE(Refusal(Words("--headless --state /no/such/folder/state")).contains(u"/no/such"_s));
  EXPECT_TRUE(Refusal(Words("--headless --picture p.png")).contains(u"window"_s));
  EXPECT_TRUE(Refusal(Words("--pty --headless")).contains(u"no value"_s));
  EXPECT_TRUE(Refusal(Words("--headless --loud")).contains(u"loud"_s));
  EXPECT_TRUE(Refusal(Words("--headless stray")).contains(u"\"stray\""_s));
  for (const char* rate : {"fast", "0", "-9600"}) {
    EXPECT_EQ(
        Refusal({u"--headless"_s, u"--tcp"_s, u"0"_s, u"--baud"_s, QString::fromLatin1(rate)}),
        u"virtual_panel: baud rate \"%1\": not a number\n"_s.arg(QLatin1String(rate)));
  }
}

TEST_F(ProgramTest, IsReachedFromOtherMachinesOnlyWhereThatIsAskedFor) {
  for (const char* address : {"0.0.0.0:0", "[::]:0"}) {
    EXPECT_EQ(Refusal({u"--headless"_s, u"--tcp"_s, QString::fromLatin1(address)}),
              u"virtual_panel: TCP address \"%1\": other machines could reach it; with --expose "
              "they may\n"_s.arg(QLatin1String(address)));
  }
  Start(Words("--headless --tcp 0.0.0.0:0 --expose"));
  EXPECT_TRUE(output_.startsWith(u"listening on tcp 0.0.0.0:"_s)) << output_.toStdString();
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, NeverReplacesAFileByItsLink) {
  const QString path = PathOf("precious");
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("text");
  file.close();
  EXPECT_TRUE(Refusal({u"--headless"_s, u"--pty"_s, path}).contains(path));
  EXPECT_EQ(Contents(path), "text");
}

TEST_F(ProgramTest, SaysWhatItCanDo) {
  StartProcess({u"--help"_s});
  ASSERT_TRUE(WaitUntil([&] { return process_.state() == QProcess::NotRunning; }));
  EXPECT_EQ(process_.exitCode(), 0);
  const QByteArray help = process_.readAllStandardOutput();
  for (const char* option :
       {"--panel", "--tcp", "--expose", "--serial", "--baud", "--pty", "--headless", "--log",
        "--state", "--picture", "--fault", "--clock-answer", "--play", "--scroll-speed"}) {
    EXPECT_TRUE(help.contains(option)) << option;
  }
}

}  // namespace
}  // namespace VirtualPanel
