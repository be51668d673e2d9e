// What a window's serial port makes of the system's, whatever that one says.
#include "panel_line/serial_link.h"

#include <memory>
#include <utility>
#include <vector>

#include <QSignalSpy>

#include <gtest/gtest.h>

#include "ports/port.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

// A port that has room for so much as the test says, and keeps what it was asked.
class ScriptedPort : public Ports::Port {
 public:
  bool Open(const QString&, int) override { return true; }
  bool IsOpen() const override { return true; }
  bool IsLost() const override { return false; }
  QString ErrorString() const override { return {}; }
  void SetDtr(bool) override {}
  void SetRts(bool) override {}
  void Write(const QByteArray& bytes) override { written += bytes; }
  qint64 Waiting() const override { return waiting; }
  qint64 Unsent() const override { return waiting; }
  void Discard() override { waiting = 0; }
  QByteArray Read(int wait) override {
    waits.push_back(wait);
    return std::exchange(arrived, {});
  }
  void Close() override {}

  QByteArray written;
  QByteArray arrived;
  qint64 waiting = 0;
  std::vector<int> waits;  // one for each read
};

class SerialLinkAlone : public testing::Test {
 protected:
  SerialLinkAlone() {
    auto port = std::make_unique<ScriptedPort>();
    port_ = port.get();
    link_ = std::make_unique<SerialLink>(nullptr, std::move(port));
    EXPECT_TRUE(link_->Open(u"COM1"_s, "9600,N,8,1"));
  }

  ScriptedPort* port_ = nullptr;
  std::unique_ptr<SerialLink> link_;
};

TEST_F(SerialLinkAlone, OfBytesThatHadToWaitOnlyTheLastOneIsSaidToHaveLeft) {
  const QSignalSpy happened(link_.get(), &SerialLink::Happened);
  port_->waiting = 1;
  link_->Write("x");
  Q_EMIT port_->BytesHaveLeft();
  EXPECT_EQ(happened.count(), 0);
  port_->waiting = 0;
  Q_EMIT port_->BytesHaveLeft();
  EXPECT_EQ(happened.count(), 1);
  // That is said once.
  Q_EMIT port_->BytesHaveLeft();
  EXPECT_EQ(happened.count(), 1);
}

TEST_F(SerialLinkAlone, BytesThatTheSystemTookAtOnceAreNotSaidToHaveLeft) {
  const QSignalSpy happened(link_.get(), &SerialLink::Happened);
  link_->Write("x");
  Q_EMIT port_->BytesHaveLeft();
  EXPECT_EQ(happened.count(), 0);
}

TEST_F(SerialLinkAlone, OnlyTheFirstReadAfterAFrameWaitsForItsAnswer) {
  EXPECT_EQ(link_->ReadAvailable(), "");
  link_->Write("<ID01><?>\r\n");
  port_->arrived = "<ID01>";
  EXPECT_EQ(link_->ReadAvailable(), "<ID01>");
  EXPECT_EQ(link_->ReadAvailable(), "");
  ASSERT_EQ(port_->waits.size(), 3U);
  EXPECT_EQ(port_->waits[0], 0);
  EXPECT_GT(port_->waits[1], 0);
  EXPECT_EQ(port_->waits[2], 0);
}

}  // namespace
}  // namespace Brivon1
