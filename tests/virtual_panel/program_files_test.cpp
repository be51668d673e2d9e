// The files that the program keeps written.

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "program_fixture.h"
#include "support/led_of.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

TEST_F(ProgramTest, SpeaksLogsAndKeepsItsState) {
  const QString log = PathOf("log");
  const QString state = PathOf("state");
  Start(Words("--headless --panel 26:2x48:mono --panel 7:4x96:tri --tcp 127.0.0.1:0") +
        QStringList{u"--log"_s, log, u"--state"_s, state});
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
  EXPECT_EQ(entry[u"frame"_s].toString(), u"<ID1A><L01><P007><SA>x\u00E9 \r\n"_s);
  EXPECT_EQ(entry[u"line"_s].toString(), u"tcp"_s);
  EXPECT_EQ(entry[u"panel"_s].toInt(), 26);
  EXPECT_EQ(entry[u"meaning"_s].toString(), u"page 7, row 1"_s);
  EXPECT_TRUE(entry[u"answered"_s].toBool());
  const QRegularExpression time(
      u"^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}(Z|[+-]\\d\\d:\\d\\d)$"_s);
  EXPECT_TRUE(time.match(entry[u"time"_s].toString()).hasMatch());

  const QJsonArray panels =
      QJsonDocument::fromJson(Contents(state)).object()[u"panels"_s].toArray();
  ASSERT_EQ(panels.size(), 2);
  const QJsonObject panel = panels[1].toObject();
  EXPECT_EQ(panel[u"id"_s].toInt(), 26);
  EXPECT_EQ(panel[u"running_page"_s].toInt(), 7);
  EXPECT_EQ(panel[u"pages"_s][u"7"_s][u"1"_s].toString(), u"<SA>x\u00E9 "_s);
  EXPECT_EQ(Terminate(), 0);
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
        .object()[u"panels"_s]
        .toArray()
        .at(index)
        .toObject();
  };
  const auto playing = [&](int index) -> QJsonValue { return panel(index)[u"playing"_s]; };
  // Due on another day only, also if midnight comes now.
  const int today = QDate::currentDate().dayOfWeek() % 7;
  const QByteArray other_day = QByteArray::number((today + 3) % 7);
  EXPECT_EQ(Exchange(&socket, "<ID1A><TB>" + other_day + "120000101A\r\n"), "<ID1A>\r\n");
  EXPECT_TRUE(playing(1).isNull());
  EXPECT_EQ(Exchange(&socket, "<ID1A><TC>" + other_day + "120002501B,02601D\r\n"), "<ID1A>\r\n");
  EXPECT_EQ(playing(1)[u"letter"_s].toString(), u"C"_s);
  EXPECT_EQ(playing(1)[u"entry"_s].toInt(), 1);
  EXPECT_TRUE(playing(0).isNull());
  // It goes on without a frame.
  EXPECT_TRUE(WaitUntil([&] { return playing(1)[u"entry"_s].toInt() == 2; }));
  EXPECT_EQ(playing(1)[u"effect"_s].toString(), u"Wipe Right"_s);
  EXPECT_EQ(Exchange(&socket, "<ID1A><L2>text\r\n"), "<ID1A>\r\n");
  EXPECT_EQ(panel(1)[u"scrolling"_s][u"2"_s].toString(), u"text"_s);
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, KeepsAPictureOfItsWindow) {
  const QString picture = PathOf("picture.png");
  ShowNoWindow();
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

TEST_F(ProgramTest, SaysOnceThatItsLogCannotBeWrittenAndGoesOn) {
  const QString picture = PathOf("picture.png");
  ShowNoWindow();
  Start(Words("--tcp 0 --log /dev/full --picture") + QStringList{picture});
  // The warning in the status line.
  const auto warning_pixels = [&] {
    const QImage image(picture);
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == QColor(0xFF, 0xB0, 0x00)) ++count;
      }
    }
    return count;
  };
  EXPECT_EQ(warning_pixels(), 0);
  QTcpSocket socket;
  Connect(&socket);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Exchange(&socket, "<ID01><?>\r\n"), "<ID01>\r\n");
  EXPECT_TRUE(WaitUntil([&] { return warning_pixels() > 500; }));
  EXPECT_EQ(Terminate(), 0);
  EXPECT_EQ(Errors().toStdString(),
            "virtual_panel: the log /dev/full cannot be written: No space left on device\n");
}

TEST_F(ProgramTest, SaysThatTheFolderOfItsStateIsGoneAndWhenItIsBack) {
  const QString folder = PathOf("folder");
  ASSERT_TRUE(QDir().mkdir(folder));
  const QString state = folder + u"/state"_s;
  Start(Words("--headless --tcp 0 --state") + QStringList{state});
  QTcpSocket socket;
  Connect(&socket);
  ASSERT_TRUE(QDir(folder).removeRecursively());
  for (const char* page : {"001", "002", "003"}) {
    EXPECT_EQ(Exchange(&socket, QByteArray("<ID01><RP") + page + ">\r\n"), "<ID01>\r\n");
  }
  const QString gone =
      u"virtual_panel: the state %1 cannot be written: No such file or directory\n"_s.arg(state);
  EXPECT_TRUE(WaitUntil([&] { return Errors() == gone; })) << errors_.toStdString();
  ASSERT_TRUE(QDir().mkdir(folder));
  const QString back = u"virtual_panel: the state %1 is written again\n"_s.arg(state);
  EXPECT_TRUE(WaitUntil([&] { return Errors() == gone + back; })) << errors_.toStdString();
  // It is up to date without another frame.
  EXPECT_TRUE(Contents(state).contains("\"running_page\": 3"));
  EXPECT_EQ(Terminate(), 0);
}

TEST_F(ProgramTest, RefusesFilesThatCannotBeWrittenFromTheStart) {
  ShowNoWindow();
  for (const char* what : {"log", "state", "picture"}) {
    errors_.clear();
    StartProcess({u"--tcp"_s, u"0"_s, u"--"_s + QLatin1String(what), u"/no/such/folder/file"_s});
    EXPECT_TRUE(WaitUntil([&] { return process_.state() == QProcess::NotRunning; }));
    EXPECT_EQ(process_.exitCode(), 2);
    EXPECT_EQ(Errors().toStdString(),
              std::string("virtual_panel: the ") + what +
                  " /no/such/folder/file cannot be written: No such file or directory\n");
  }
}

}  // namespace
}  // namespace VirtualPanel
