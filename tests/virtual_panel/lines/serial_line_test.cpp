#include "lines/serial_line.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QSerialPort>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "lines/pty_line.h"
#include "port_kinds.h"
#include "support/wait_until.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

class PtyLineTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder_.isValid());
    link_ = folder_.filePath(u"panel"_s);
    ASSERT_TRUE(line_.Open(link_)) << line_.ErrorString().toStdString();
  }

  static void OpenPort(QSerialPort* port, const QString& device) {
    port->setPortName(device);
    ASSERT_TRUE(port->open(QIODevice::ReadWrite)) << port->errorString().toStdString();
  }

  static QByteArray Exchange(QSerialPort* port, const QByteArray& frame, int size = 8) {
    port->write(frame);
    EXPECT_TRUE(WaitUntil([&] { return port->bytesAvailable() >= size; }));
    return port->readAll();
  }

  void SetFault(const char* text) {
    Faults faults;
    ASSERT_TRUE(ParseFault(QString::fromLatin1(text), &faults, nullptr));
    engine_.SetFaults(faults);
  }

  QTemporaryDir folder_;
  QString link_;
  PanelEngine engine_{{{26, 4, 96, true}}};
  PtyLine line_{&engine_};
};

TEST_F(PtyLineTest, AnswersASerialPortThroughItsLink) {
  EXPECT_EQ(QFile::symLinkTarget(link_), line_.DeviceName());
  QSerialPort port;
  OpenPort(&port, link_);
  EXPECT_EQ(Exchange(&port, "<ID1A><L01><P001>x \r\n"), "<ID1A>\r\n");
  EXPECT_EQ(engine_.Page(26, 1).value(1), "x ");
  EXPECT_EQ(engine_.Frames().last().line, u"pty"_s);
}

TEST_F(PtyLineTest, PassesEveryByteValue) {
  QByteArray text;
  for (int value = 0; value < 256; ++value) {
    if (value != '\n') text += static_cast<char>(value);
  }
  QSerialPort port;
  OpenPort(&port, line_.DeviceName());
  EXPECT_EQ(Exchange(&port, "<ID1A><L01><P001>" + text + " \r\n"), "<ID1A>\r\n");
  EXPECT_EQ(engine_.Page(26, 1).value(1), text + ' ');
}

TEST_F(PtyLineTest, CanBeOpenedAgainAndAgain) {
  for (int i = 0; i < 5; ++i) {
    QSerialPort port;
    OpenPort(&port, link_);
    EXPECT_EQ(Exchange(&port, "<ID1A><?>\r\n"), "<ID1A>\r\n");
  }
  EXPECT_EQ(engine_.FrameCount(), 5);
}

TEST_F(PtyLineTest, KeepsNoOldAnswerForALaterUser) {
  const int descriptor = ::open(line_.DeviceName().toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
  ASSERT_GE(descriptor, 0);
  ASSERT_EQ(::write(descriptor, "<ID1A><?>\r\n", 11), 11);
  ASSERT_TRUE(WaitUntil([&] { return engine_.FrameCount() == 1; }));
  EXPECT_TRUE(line_.IsInUse());
  ::close(descriptor);
  ASSERT_TRUE(WaitUntil([&] { return !line_.IsInUse(); }));
  QSerialPort port;
  OpenPort(&port, link_);
  EXPECT_EQ(Exchange(&port, "<ID1A><D*>\r\n"), "<ID1A>\r\n");
  EXPECT_EQ(port.bytesAvailable(), 0);
}

TEST_F(PtyLineTest, DropsAnAnswerThatNobodyWaitsFor) {
  const int descriptor = ::open(line_.DeviceName().toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
  ASSERT_GE(descriptor, 0);
  ASSERT_EQ(::write(descriptor, "<ID1A><?>\r\n", 11), 11);
  ::close(descriptor);
  ASSERT_TRUE(WaitUntil([&] { return engine_.FrameCount() == 1; }));
  QSerialPort port;
  OpenPort(&port, link_);
  EXPECT_EQ(Exchange(&port, "<ID1A><D*>\r\n"), "<ID1A>\r\n");
}

TEST_F(PtyLineTest, VanishesWhenUnpluggedAndComesBack) {
  QSerialPort port;
  OpenPort(&port, link_);
  EXPECT_EQ(Exchange(&port, "<ID1A><?>\r\n"), "<ID1A>\r\n");
  const QSignalSpy unplugged(&line_, &PtyLine::Unplugged);
  bool failed = false;
  QObject::connect(&port, &QSerialPort::errorOccurred, &port,
                   [&](QSerialPort::SerialPortError error) {
                     if (error == QSerialPort::NoError) return;
                     failed = true;
                   });
  line_.Unplug();
  EXPECT_EQ(unplugged.count(), 1);
  EXPECT_FALSE(line_.IsPlugged());
  EXPECT_TRUE(line_.DeviceName().isEmpty());
  EXPECT_FALSE(QFileInfo(link_).isSymLink());
  EXPECT_TRUE(WaitUntil([&] { return failed; }));
  port.close();

  ASSERT_TRUE(line_.Open(link_));
  QSerialPort again;
  OpenPort(&again, link_);
  EXPECT_EQ(Exchange(&again, "<ID1A><?>\r\n"), "<ID1A>\r\n");
}

TEST_F(PtyLineTest, CutsTheLineOnceTheLastAnswerHasBeenRead) {
  SetFault("close-after:1");
  QSerialPort port;
  OpenPort(&port, link_);
  QByteArray received;
  QObject::connect(&port, &QSerialPort::readyRead, &port, [&] { received += port.readAll(); });
  port.write("<ID1A><?>\r\n<ID1A><D*>\r\n");
  ASSERT_TRUE(WaitUntil([&] { return !line_.IsPlugged(); }));
  EXPECT_EQ(received, "<ID1A>\r\n");
}

TEST_F(PtyLineTest, FloodsAndStops) {
  SetFault("flood");
  QSerialPort port;
  OpenPort(&port, link_);
  EXPECT_GE(Exchange(&port, "<ID1A><?>\r\n", 200'000).size(), 200'000);
  engine_.SetFaults(Faults{});
  QByteArray last;
  ASSERT_TRUE(WaitUntil([&] {
    port.write("<ID1A><?>\r\n");
    last += port.readAll();
    last = last.right(8);
    return last == "<ID1A>\r\n";
  }));
}

TEST_F(PtyLineTest, SurvivesAFloodThatNobodyReads) {
  SetFault("flood");
  const int descriptor = ::open(line_.DeviceName().toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
  ASSERT_GE(descriptor, 0);
  ASSERT_EQ(::write(descriptor, "<ID1A><?>\r\n", 11), 11);
  ASSERT_TRUE(WaitUntil([&] { return engine_.FrameCount() == 1; }));
  ASSERT_EQ(::write(descriptor, "<ID1A><D*>\r\n", 12), 12);
  EXPECT_TRUE(WaitUntil([&] { return engine_.FrameCount() == 2; }));
  ::close(descriptor);
}

TEST_F(PtyLineTest, RemovesItsLinkAtTheEnd) {
  const QString link = folder_.filePath(u"other"_s);
  {
    PtyLine other(&engine_);
    ASSERT_TRUE(other.Open(link));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
  }
  EXPECT_FALSE(QFileInfo(link).isSymLink());
}

TEST_F(PtyLineTest, LeavesALinkThatSomebodyHasMadeInItsPlace) {
  ASSERT_TRUE(QFile::remove(link_));
  ASSERT_TRUE(QFile::link(folder_.path(), link_));
  line_.Unplug();
  EXPECT_EQ(QFile::symLinkTarget(link_), folder_.path());
}

TEST_F(PtyLineTest, AnswersWithoutALinkToo) {
  PtyLine other(&engine_);
  ASSERT_TRUE(other.Open({})) << other.ErrorString().toStdString();
  QSerialPort port;
  OpenPort(&port, other.DeviceName());
  EXPECT_EQ(Exchange(&port, "<ID1A><?>\r\n"), "<ID1A>\r\n");
}

TEST_F(PtyLineTest, ReplacesAStaleLinkOfItsKind) {
  const QString link = folder_.filePath(u"stale"_s);
  ASSERT_TRUE(QFile::link(u"/dev/pts/99999"_s, link));
  PtyLine other(&engine_);
  ASSERT_TRUE(other.Open(link)) << other.ErrorString().toStdString();
  EXPECT_EQ(QFile::symLinkTarget(link), other.DeviceName());
}

TEST_F(PtyLineTest, NeverReplacesAnythingElse) {
  const QString path = folder_.filePath(u"precious"_s);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("text");
  file.close();
  const QString foreign = folder_.filePath(u"foreign"_s);
  ASSERT_TRUE(QFile::link(path, foreign));
  for (const QString& link : {path, foreign, folder_.path(), folder_.filePath(u"no/such"_s)}) {
    PtyLine other(&engine_);
    EXPECT_FALSE(other.Open(link)) << link.toStdString();
    EXPECT_TRUE(other.ErrorString().startsWith(link)) << other.ErrorString().toStdString();
    EXPECT_FALSE(other.IsPlugged());
  }
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), "text");
  EXPECT_EQ(QFile::symLinkTarget(foreign), path);
}

// A serial line at one end of a pseudo-terminal, the test at the other.
class SerialLineTest : public testing::TestWithParam<Ports::PortKind> {
 protected:
  void SetUp() override {
    master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    ASSERT_GE(master_, 0);
    ASSERT_EQ(::grantpt(master_), 0);
    ASSERT_EQ(::unlockpt(master_), 0);
    device_ = QString::fromLocal8Bit(::ptsname(master_));
  }

  void TearDown() override { CloseMaster(); }

  void CloseMaster() {
    if (master_ >= 0) ::close(master_);
    master_ = -1;
  }

  QByteArray Exchange(const QByteArray& frame) {
    EXPECT_EQ(::write(master_, frame.constData(), static_cast<size_t>(frame.size())), frame.size());
    QByteArray received;
    EXPECT_TRUE(WaitUntil([&] {
      char bytes[64];
      const ssize_t size = ::read(master_, bytes, sizeof(bytes));
      if (size > 0) received.append(bytes, size);
      return received.size() >= 8;
    }));
    return received;
  }

  int master_ = -1;
  QString device_;
  PanelEngine engine_{{{26, 4, 96, true}}};
  SerialLine line_{&engine_, nullptr, GetParam().make()};
};

INSTANTIATE_TEST_SUITE_P(Ports, SerialLineTest, Ports::kPortKinds, Ports::PortKindName);

TEST_P(SerialLineTest, AnswersOnItsDevice) {
  ASSERT_TRUE(line_.Open(device_, 19200)) << line_.ErrorString().toStdString();
  EXPECT_EQ(Exchange("<ID1A><L01><P001>x \r\n"), "<ID1A>\r\n");
  EXPECT_EQ(engine_.Page(26, 1).value(1), "x ");
  EXPECT_EQ(engine_.Frames().last().line, u"serial"_s);
}

TEST_P(SerialLineTest, ReportsADeviceThatIsNotThere) {
  EXPECT_FALSE(line_.Open(u"/dev/no-such-port"_s));
  EXPECT_FALSE(line_.ErrorString().isEmpty());
  EXPECT_FALSE(line_.IsOpen());
}

TEST_P(SerialLineTest, NoticesOnceThatItsLineIsGone) {
  ASSERT_TRUE(line_.Open(device_));
  const QSignalSpy unplugged(&line_, &SerialLine::Unplugged);
  CloseMaster();
  ASSERT_TRUE(WaitUntil([&] { return !line_.IsOpen(); }));
  EXPECT_EQ(unplugged.count(), 1);
}

TEST_P(SerialLineTest, AFullBufferIsNoLostLine) {
  Faults faults;
  faults.flood = true;
  engine_.SetFaults(faults);
  ASSERT_TRUE(line_.Open(device_));
  const QSignalSpy unplugged(&line_, &SerialLine::Unplugged);
  ASSERT_EQ(::write(master_, "<ID1A><?>\r\n", 11), 11);
  // The other end reads more slowly than the panel sends.
  qsizetype received = 0;
  EXPECT_TRUE(WaitUntil([&] {
    char bytes[997];
    const ssize_t size = ::read(master_, bytes, sizeof(bytes));
    if (size > 0) received += size;
    return received >= 200'000 || unplugged.count() > 0;
  }));
  EXPECT_EQ(unplugged.count(), 0);
  EXPECT_GE(received, 200'000);
  // And it still obeys.
  const qint64 count = engine_.FrameCount();
  ASSERT_EQ(::write(master_, "<ID1A><?>\r\n", 11), 11);
  EXPECT_TRUE(WaitUntil([&] { return engine_.FrameCount() > count; }));
}

TEST_P(SerialLineTest, IsCutOnceTheAnswersHaveLeftAlsoWhereTheyFillTheBuffer) {
  constexpr int kFrames = 12'000;  // their answers are more than the system holds
  Faults faults;
  faults.close_after_frame = kFrames;
  engine_.SetFaults(faults);
  ASSERT_TRUE(line_.Open(device_));
  QByteArray frames = QByteArray("<ID1A><?>\r\n").repeated(kFrames);
  ASSERT_TRUE(WaitUntil([&] {
    const ssize_t size = ::write(master_, frames.constData(), static_cast<size_t>(frames.size()));
    if (size > 0) frames.remove(0, size);
    return engine_.FrameCount() == kFrames;
  }));
  QByteArray received;
  EXPECT_TRUE(WaitUntil([&] {
    char bytes[997];
    const ssize_t size = ::read(master_, bytes, sizeof(bytes));
    if (size > 0) received.append(bytes, size);
    return size < 0 && !line_.IsOpen();
  }));
  EXPECT_EQ(received.size(), qsizetype{8} * kFrames);
}

TEST_P(SerialLineTest, IsUnpluggedAtOnceWhileTheOtherEndTakesNothing) {
  Faults faults;
  faults.flood = true;
  engine_.SetFaults(faults);
  ASSERT_TRUE(line_.Open(device_));
  ASSERT_EQ(::write(master_, "<ID1A><?>\r\n", 11), 11);
  ASSERT_TRUE(WaitUntil([&] { return engine_.FrameCount() == 1; }));
  line_.Unplug();
  EXPECT_FALSE(line_.IsOpen());
  ASSERT_TRUE(line_.Open(device_)) << line_.ErrorString().toStdString();
}

TEST_P(SerialLineTest, UnplugsAfterTheLastAnswer) {
  Faults faults;
  faults.close_after_frame = 1;
  engine_.SetFaults(faults);
  ASSERT_TRUE(line_.Open(device_));
  EXPECT_EQ(Exchange("<ID1A><?>\r\n"), "<ID1A>\r\n");
  EXPECT_TRUE(WaitUntil([&] { return !line_.IsOpen(); }));
}

}  // namespace
}  // namespace VirtualPanel
