// The lock of a window that sends, by itself.
#include "sending/sending_session.h"

#include <stdexcept>

#include <QDialog>
#include <QPushButton>

#include <gtest/gtest.h>

#include "support/message_box_reader.h"
#include "support/panel_bench.h"

using namespace Qt::StringLiterals;

namespace {

class SendingSessionTest : public testing::Test {
 protected:
  static void IgnoreStatus(const QString&) {}

  VirtualBench bench_{LineKind::kSerial, {{26, 4, 96, true}}};
  QDialog window_;
  QPushButton* button_ = new QPushButton(&window_);
  SendingSession* session_ = new SendingSession(&window_, {button_}, bench_.Ports());
};

TEST_F(SendingSessionTest, TheWindowIsLockedAndItsLineOpenAsLongAsTheGuardLives) {
  {
    Sending sending(session_);
    ASSERT_TRUE(sending);
    EXPECT_TRUE(session_->IsSending());
    EXPECT_FALSE(button_->isEnabled());
    EXPECT_TRUE(bench_.IsReleased());
    EXPECT_TRUE(sending.OpenSerial(IgnoreStatus));
    EXPECT_FALSE(bench_.IsReleased());
  }
  EXPECT_FALSE(session_->IsSending());
  EXPECT_TRUE(button_->isEnabled());
  EXPECT_TRUE(bench_.IsReleased());
}

TEST_F(SendingSessionTest, ASecondGuardIsEmptyAndItsEndEndsNothing) {
  Sending sending(session_);
  auto line = sending.OpenSerial(IgnoreStatus);
  ASSERT_TRUE(line);
  {
    const Sending second(session_);
    EXPECT_FALSE(second);
  }
  EXPECT_TRUE(session_->IsSending());
  EXPECT_FALSE(button_->isEnabled());
  EXPECT_FALSE(bench_.IsReleased());
  line->link.Write("<ID1A><?>\r\n");
  EXPECT_EQ(bench_.Frames(), QList<QByteArray>{"<ID1A><?>\r\n"});
}

TEST_F(SendingSessionTest, AnExceptionUnlocksTheWindowAndClosesTheLine) {
  const auto send = [this] {
    Sending sending(session_);
    const auto line = sending.OpenSerial(IgnoreStatus);
    EXPECT_TRUE(line);
    line->timer.Enable();
    throw std::runtime_error("in the middle");
  };
  EXPECT_THROW(send(), std::runtime_error);
  EXPECT_FALSE(session_->IsSending());
  EXPECT_TRUE(button_->isEnabled());
  EXPECT_TRUE(bench_.IsReleased());
  EXPECT_FALSE(bench_.Timer().IsEnabled());
}

TEST_F(SendingSessionTest, AnOpenLineKeepsTheConfigurationWithWhichItWasOpened) {
  Sending sending(session_);
  const auto line = sending.OpenSerial(IgnoreStatus);
  ASSERT_TRUE(line);
  bench_.Folder().Configure("[Communication]\r\nSendMode=TCPIP\r\nDelay Period=700\r\n");
  EXPECT_EQ(line->configuration.Mode(), Brivon1::SendMode::kSerial);
  EXPECT_EQ(line->configuration.delay_period, 0);
  EXPECT_EQ(line->configuration.panels[26].rows, 4);
}

TEST_F(SendingSessionTest, ALineThatCannotBeOpenedLeavesTheWindowLockedUntilTheGuardEnds) {
  bench_.Unplug();
  {
    Sending sending(session_);
    const MessageBoxReader boxes;
    EXPECT_FALSE(sending.OpenSerial(IgnoreStatus));
    EXPECT_EQ(boxes.Texts(), QStringList{u"Fail to initialize communication port!"_s});
    EXPECT_FALSE(button_->isEnabled());
  }
  EXPECT_TRUE(button_->isEnabled());
}

}  // namespace
