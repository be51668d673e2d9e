// The real program, started as a process and watched from outside.

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSerialPort>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "led_of.h"
#include "wait_until.h"

namespace {

class ProgramTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(folder_.isValid()); }

  void TearDown() override {
    if (process_.state() == QProcess::NotRunning) return;
    process_.kill();
    process_.waitForFinished();
  }

  QString PathOf(const char* name) const { return folder_.filePath(QLatin1String(name)); }

  void StartProcess(const QStringList& arguments) {
    process_.setProgram(QStringLiteral(VIRTUAL_PANEL_PROGRAM));
    process_.setArguments(arguments);
    process_.start();
  }

  // Starts the program and waits until it is ready.
  void Start(const QStringList& arguments) {
    StartProcess(arguments);
    ASSERT_TRUE(WaitUntil([&] {
      output_ += QString::fromLocal8Bit(process_.readAllStandardOutput());
      return output_.endsWith(QLatin1String("ready\n")) || process_.state() == QProcess::NotRunning;
    }));
    ASSERT_TRUE(output_.endsWith(QLatin1String("ready\n")))
        << process_.readAllStandardError().toStdString();
  }

  quint16 Port() const {
    const QRegularExpression line(QStringLiteral("^listening on tcp 127\\.0\\.0\\.1:(\\d+)$"),
                                  QRegularExpression::MultilineOption);
    return line.match(output_).captured(1).toUShort();
  }

  void Connect(QTcpSocket* socket) const {
    socket->connectToHost(QStringLiteral("127.0.0.1"), Port());
    ASSERT_TRUE(WaitUntil([&] { return socket->state() == QAbstractSocket::ConnectedState; }));
  }

  template <typename Device>
  static QByteArray Exchange(Device* device, const QByteArray& frame) {
    device->write(frame);
    EXPECT_TRUE(WaitUntil([&] { return device->bytesAvailable() >= 8; }));
    return device->readAll();
  }

  // Ends it as a user does, and gives its exit code.
  int Terminate() {
    process_.terminate();
    EXPECT_TRUE(WaitUntil([&] { return process_.state() == QProcess::NotRunning; }));
    EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit);
    return process_.exitCode();
  }

  static QByteArray Contents(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
  }

  // Expects that the program refuses these arguments, and gives what it says.
  QString Refusal(const QStringList& arguments) {
    StartProcess(arguments);
    EXPECT_TRUE(WaitUntil([&] { return process_.state() == QProcess::NotRunning; }));
    EXPECT_EQ(process_.exitCode(), 2);
    return QString::fromLocal8Bit(process_.readAllStandardError());
  }

  static QStringList Words(const char* text) {
    return QString::fromLatin1(text).split(QLatin1Char(' '));
  }

  QTemporaryDir folder_;
  QProcess process_;
  QString output_;
};

TEST_F(ProgramTest, SpeaksLogsAndKeepsItsState) {
  const QString log = PathOf("log");
  const QString state = PathOf("state");
  Start(Words("--headless --panel 26:2x48:mono --panel 7:4x96:tri --tcp 127.0.0.1:0") +
        QStringList{QStringLiteral("--log"), log, QStringLiteral("--state"), state});
  ASSERT_NE(Port(), 0);
  QTcpSocket socket;
  Connect(&socket);
  EXPECT_EQ(Exchange(&socket, "<ID1A><L01><P007><SA>x\xE9 \r\n"), "<ID1A>\r\n");
  EXPECT_EQ(Exchange(&socket, "<ID1A><RP007>\r\n"), "<ID1A>\r\n");

  // Both files are up to date as soon as the answer is there.
  const QList<QByteArray> lines = Contents(log).split('\n');
  ASSERT_EQ(lines.size(), 3);
  EXPECT_TRUE(lines[2].isEmpty());
  const QJsonObject entry = QJsonDocument::fromJson(lines[0]).object();
  EXPECT_EQ(entry[QStringLiteral("frame")].toString(),
            QStringLiteral("<ID1A><L01><P007><SA>x\u00E9 \r\n"));
  EXPECT_EQ(entry[QStringLiteral("line")].toString(), QStringLiteral("tcp"));
  EXPECT_EQ(entry[QStringLiteral("panel")].toInt(), 26);
  EXPECT_EQ(entry[QStringLiteral("meaning")].toString(), QStringLiteral("page 7, row 1"));
  EXPECT_TRUE(entry[QStringLiteral("answered")].toBool());
  const QRegularExpression time(
      QStringLiteral("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}(Z|[+-]\\d\\d:\\d\\d)$"));
  EXPECT_TRUE(time.match(entry[QStringLiteral("time")].toString()).hasMatch());

  const QJsonArray panels =
      QJsonDocument::fromJson(Contents(state)).object()[QStringLiteral("panels")].toArray();
  ASSERT_EQ(panels.size(), 2);
  const QJsonObject panel = panels[1].toObject();
  EXPECT_EQ(panel[QStringLiteral("id")].toInt(), 26);
  EXPECT_EQ(panel[QStringLiteral("running_page")].toInt(), 7);
  EXPECT_EQ(panel[QStringLiteral("pages")][QStringLiteral("7")][QStringLiteral("1")].toString(),
            QStringLiteral("<SA>x\u00E9 "));
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, AnswersOnAPseudoTerminalAndRemovesItsLink) {
  const QString link = PathOf("panel");
  Start({QStringLiteral("--headless"), QStringLiteral("--pty"), link});
  EXPECT_EQ(output_, QStringLiteral("pty %1 -> %2\nready\n").arg(link, QFile::symLinkTarget(link)));
  QSerialPort port;
  port.setPortName(link);
  ASSERT_TRUE(port.open(QIODevice::ReadWrite));
  EXPECT_EQ(Exchange(&port, "<ID01><?>\r\n"), "<ID01>\r\n");
  port.close();
  EXPECT_EQ(Terminate(), 0);
  EXPECT_FALSE(QFileInfo(link).isSymLink());
}

TEST_F(ProgramTest, ServesAPseudoTerminalAndTcpAtOnce) {
  const QString link = PathOf("port");
  Start({QStringLiteral("--headless"), QStringLiteral("--pty"), link, QStringLiteral("--tcp"),
         QStringLiteral("0")});
  QTcpSocket socket;
  Connect(&socket);
  EXPECT_EQ(Exchange(&socket, "<ID01><L01><P001>x \r\n"), "<ID01>\r\n");
  QSerialPort port;
  port.setPortName(link);
  ASSERT_TRUE(port.open(QIODevice::ReadWrite));
  EXPECT_EQ(Exchange(&port, "<ID01><RP001>\r\n"), "<ID01>\r\n");
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, ComesBackAfterAFaultHasPulledItsPseudoTerminal) {
  const QString link = PathOf("panel");
  Start({QStringLiteral("--headless"), QStringLiteral("--pty"), link, QStringLiteral("--fault"),
         QStringLiteral("close-after:1")});
  {
    QSerialPort port;
    port.setPortName(link);
    ASSERT_TRUE(port.open(QIODevice::ReadWrite));
    EXPECT_EQ(Exchange(&port, "<ID01><?>\r\n"), "<ID01>\r\n");
    ASSERT_TRUE(WaitUntil([&] { return !QFileInfo(link).isSymLink(); }));
  }
  ASSERT_TRUE(WaitUntil([&] { return QFileInfo(link).isSymLink(); }));
  QSerialPort port;
  port.setPortName(link);
  ASSERT_TRUE(port.open(QIODevice::ReadWrite));
  EXPECT_EQ(Exchange(&port, "<ID01><?>\r\n"), "<ID01>\r\n");
  EXPECT_EQ(Terminate(), 0);
}

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

TEST_F(ProgramTest, PlaysAScheduleOnDemandAndKeepsItsStateUpToDate) {
  const QString state = PathOf("state");
  // Lower case will do, as in the program that sends.
  Start(Words("--headless --panel 26:4x96:tri --panel 3:2x48:mono --tcp 0 --play c --state") +
        QStringList{state});
  QTcpSocket socket;
  Connect(&socket);
  const auto panel = [&](int index) -> QJsonObject {
    return QJsonDocument::fromJson(Contents(state))
        .object()[QStringLiteral("panels")]
        .toArray()[index]
        .toObject();
  };
  const auto playing = [&](int index) -> QJsonValue {
    return panel(index)[QStringLiteral("playing")];
  };
  // Due on another day only, also if midnight comes now.
  const int today = QDate::currentDate().dayOfWeek() % 7;
  const QByteArray other_day = QByteArray::number((today + 3) % 7);
  EXPECT_EQ(Exchange(&socket, "<ID1A><TB>" + other_day + "120000101A\r\n"), "<ID1A>\r\n");
  EXPECT_TRUE(playing(1).isNull());
  EXPECT_EQ(Exchange(&socket, "<ID1A><TC>" + other_day + "120002501B,02601D\r\n"), "<ID1A>\r\n");
  EXPECT_EQ(playing(1)[QStringLiteral("letter")].toString(), QStringLiteral("C"));
  EXPECT_EQ(playing(1)[QStringLiteral("entry")].toInt(), 1);
  EXPECT_TRUE(playing(0).isNull());
  // It goes on without a frame.
  EXPECT_TRUE(WaitUntil([&] { return playing(1)[QStringLiteral("entry")].toInt() == 2; }));
  EXPECT_EQ(playing(1)[QStringLiteral("effect")].toString(), QStringLiteral("Wipe Right"));
  EXPECT_EQ(Exchange(&socket, "<ID1A><L2>text\r\n"), "<ID1A>\r\n");
  EXPECT_EQ(panel(1)[QStringLiteral("scrolling")][QStringLiteral("2")].toString(),
            QStringLiteral("text"));
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, RefusesALetterOrASpeedThatCannotBe) {
  for (const char* letter : {"K", "AB", "@", "1", ""}) {
    EXPECT_EQ(Refusal({QStringLiteral("--headless"), QStringLiteral("--play"),
                       QString::fromLatin1(letter)}),
              QStringLiteral("virtual_panel: schedule \"%1\": expected a letter from A to J\n")
                  .arg(QLatin1String(letter)));
  }
  for (const char* speed : {"0", "-1", "1001", "fast", "1.5", ""}) {
    EXPECT_EQ(Refusal({QStringLiteral("--headless"), QStringLiteral("--scroll-speed"),
                       QString::fromLatin1(speed)}),
              QStringLiteral("virtual_panel: scroll speed \"%1\": expected dots per second, 1 to "
                             "1000\n")
                  .arg(QLatin1String(speed)));
  }
}

TEST_F(ProgramTest, TakesAScrollSpeed) {
  Start(Words("--headless --tcp 0 --scroll-speed 1000"));
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, KeepsAPictureOfItsWindow) {
  const QString picture = PathOf("picture.png");
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
  process_.setProcessEnvironment(environment);
  Start(Words("--tcp 0 --picture") + QStringList{picture});
  const auto red_pixels = [&] {
    const QImage image(picture);
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (LedOf(image.pixelColor(x, y)) == Led::kRed) ++count;
      }
    }
    return count;
  };
  ASSERT_FALSE(QImage(picture).isNull());
  EXPECT_EQ(red_pixels(), 0);
  QTcpSocket socket;
  Connect(&socket);
  EXPECT_EQ(Exchange(&socket, "<ID01><L01><P001>HHHH \r\n"), "<ID01>\r\n");
  EXPECT_TRUE(WaitUntil([&] { return red_pixels() > 100; }));
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, ShowsWhatItReceivesInTheCodePageThatItIsTold) {
  const auto shown_with = [this](const QStringList& arguments) {
    const QString picture = PathOf("picture.png");
    Start(Words("--tcp 0 --picture") + QStringList{picture} + arguments);
    QTcpSocket socket;
    Connect(&socket);
    Exchange(&socket, "<ID01><L01><P001><SA><CA>\xC3\xC4\xC6 \r\n");
    int lit = 0;
    EXPECT_TRUE(WaitUntil([&] {
      const QImage image(picture);
      lit = 0;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) lit += LedOf(image.pixelColor(x, y)) == Led::kRed;
      }
      return lit > 100;
    }));
    EXPECT_EQ(Terminate(), 0);
    output_.clear();
    return lit;
  };
  const int western = shown_with({});
  EXPECT_EQ(shown_with(Words("--code-page 1252")), western);
  EXPECT_NE(shown_with(Words("--code-page 1251")), western);
}

TEST_F(ProgramTest, RefusesACodePageThatThereIsNot) {
  for (const char* page : {"437", "1249", "1259", "utf-8", "-874", ""}) {
    EXPECT_EQ(Refusal({QStringLiteral("--headless"), QStringLiteral("--code-page"),
                       QString::fromLatin1(page)}),
              QStringLiteral("virtual_panel: code page \"%1\": expected 874 or 1250 to 1258\n")
                  .arg(QLatin1String(page)));
  }
}

TEST_F(ProgramTest, RefusesBadUseInWords) {
  EXPECT_EQ(Refusal(Words("--headless --panel 0:4x96:tri")),
            QStringLiteral(
                "virtual_panel: panel \"0:4x96:tri\": ID 0 addresses all panels and cannot be a "
                "panel of its own\n"));
  EXPECT_EQ(Refusal(Words("--headless --panel 1:4x96:tri --panel 1:2x48:tri")),
            QStringLiteral("virtual_panel: panel \"1:2x48:tri\": there is a panel 1 already\n"));
  EXPECT_TRUE(Refusal(Words("--headless --tcp nowhere:x")).contains(QStringLiteral("nowhere:x")));
  EXPECT_TRUE(Refusal(Words("--headless --serial /dev/no-such-port"))
                  .contains(QStringLiteral("no-such-port")));
  EXPECT_TRUE(Refusal(Words("--headless --fault loud")).contains(QStringLiteral("\"loud\"")));
  EXPECT_TRUE(
      Refusal(Words("--headless --clock-answer 9")).contains(QStringLiteral("no such panel")));
  EXPECT_TRUE(
      Refusal(Words("--headless --log /no/such/folder/log")).contains(QStringLiteral("/no/such")));
  EXPECT_TRUE(Refusal(Words("--headless --state /no/such/folder/state"))
                  .contains(QStringLiteral("/no/such")));
  EXPECT_TRUE(Refusal(Words("--headless --picture p.png")).contains(QStringLiteral("window")));
  EXPECT_TRUE(Refusal(Words("--pty --headless")).contains(QStringLiteral("no value")));
  EXPECT_TRUE(Refusal(Words("--headless --loud")).contains(QStringLiteral("loud")));
  EXPECT_TRUE(Refusal(Words("--headless stray")).contains(QStringLiteral("\"stray\"")));
  EXPECT_TRUE(
      Refusal(Words("--headless --tcp 0 --baud fast")).contains(QStringLiteral("\"fast\"")));
}

TEST_F(ProgramTest, NeverReplacesAFileByItsLink) {
  const QString path = PathOf("precious");
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("text");
  file.close();
  EXPECT_TRUE(
      Refusal({QStringLiteral("--headless"), QStringLiteral("--pty"), path}).contains(path));
  EXPECT_EQ(Contents(path), "text");
}

TEST_F(ProgramTest, SaysWhatItCanDo) {
  StartProcess({QStringLiteral("--help")});
  ASSERT_TRUE(WaitUntil([&] { return process_.state() == QProcess::NotRunning; }));
  EXPECT_EQ(process_.exitCode(), 0);
  const QByteArray help = process_.readAllStandardOutput();
  for (const char* option :
       {"--panel", "--tcp", "--serial", "--baud", "--pty", "--headless", "--log", "--state",
        "--picture", "--fault", "--clock-answer", "--play", "--scroll-speed"}) {
    EXPECT_TRUE(help.contains(option)) << option;
  }
}

}  // namespace
