#include "lines/conversation.h"

#include <gtest/gtest.h>

#include "support/wait_until.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

// Keeps what is sent, and says what it is told of what has not left yet.
class HeldOutlet : public Outlet {
 public:
  void Send(const QByteArray& bytes) override {
    sent += bytes;
    sends.append(bytes);
  }
  qint64 Unsent() const override { return unsent; }
  void HangUp() override { ++hang_ups; }

  QByteArray sent;
  QList<QByteArray> sends;
  qint64 unsent = 0;
  int hang_ups = 0;
};

class ConversationTest : public testing::Test {
 protected:
  PanelEngine engine_{{{26, 4, 96, true}}};
  HeldOutlet outlet_;
  Conversation conversation_{&engine_, u"test"_s, &outlet_};
};

TEST_F(ConversationTest, LosesAnswersThatNobodyReads) {
  outlet_.unsent = Conversation::kMostUnsent - 8;
  conversation_.Receive("<ID1A><?>\r\n");
  EXPECT_EQ(outlet_.sent, "<ID1A>\r\n");
  outlet_.unsent = Conversation::kMostUnsent - 7;
  conversation_.Receive("<ID1A><?>\r\n");
  EXPECT_EQ(outlet_.sent, "<ID1A>\r\n");
  outlet_.unsent = 0;
  conversation_.Receive("<ID1A><?>\r\n");
  EXPECT_EQ(outlet_.sent, "<ID1A>\r\n<ID1A>\r\n");
}

TEST_F(ConversationTest, KeepsNoEndlessLineOfLateAnswers) {
  Faults faults;
  faults.late_ms = 1;
  engine_.SetFaults(faults);
  conversation_.Receive(QByteArray("<ID1A><?>\r\n").repeated(10'100));
  EXPECT_TRUE(WaitUntil([&] { return outlet_.sent.size() >= qsizetype{8} * 10'000; }));
  EXPECT_EQ(outlet_.sent.size(), qsizetype{8} * 10'000);
  // Those that follow are answered again.
  conversation_.Receive("<ID1A><?>\r\n");
  EXPECT_TRUE(WaitUntil([&] { return outlet_.sent.size() == qsizetype{8} * 10'001; }));
}

TEST_F(ConversationTest, NoAnswerLeavesByItselfBeforeAFlood) {
  Faults faults;
  faults.flood = true;
  engine_.SetFaults(faults);
  conversation_.Receive("<ID1A><?>\r\n");
  ASSERT_FALSE(outlet_.sends.isEmpty());
  EXPECT_TRUE(outlet_.sends[0].startsWith("<ID1A>\r\nU"));
}

TEST_F(ConversationTest, OfAnAnswerInPiecesTheLastOneLeavesWithTheFlood) {
  Faults faults;
  faults.pieces = 2;
  faults.flood = true;
  engine_.SetFaults(faults);
  conversation_.Receive("<ID1A><?>\r\n");
  ASSERT_TRUE(WaitUntil([&] { return outlet_.sends.size() >= 2; }));
  EXPECT_EQ(outlet_.sends[0], "<ID1");
  EXPECT_TRUE(outlet_.sends[1].startsWith("A>\r\nU"));
}

TEST_F(ConversationTest, AnAnswerFromBeforeTheFaultBringsNoFlood) {
  Faults faults;
  faults.late_ms = 1;
  engine_.SetFaults(faults);
  conversation_.Receive("<ID1A><?>\r\n");
  faults.flood = true;
  engine_.SetFaults(faults);
  ASSERT_TRUE(WaitUntil([&] { return !outlet_.sends.isEmpty(); }));
  EXPECT_EQ(outlet_.sends, QList<QByteArray>{"<ID1A>\r\n"});
}

TEST_F(ConversationTest, AFloodRestsAfterAMegabyteAndGoesOn) {
  Faults faults;
  faults.flood = true;
  engine_.SetFaults(faults);
  conversation_.Receive("<ID1A><?>\r\n");
  for (int pass = 0; pass < 300; ++pass) conversation_.BytesHaveLeft();
  EXPECT_EQ(outlet_.sent.size(), qsizetype{8} + 1'048'576);
  EXPECT_TRUE(WaitUntil([&] { return outlet_.sent.size() > qsizetype{8} + 1'048'576; }));
}

TEST_F(ConversationTest, HearsNothingMoreOnceItHasHungUp) {
  Faults faults;
  faults.close_after_frame = 1;
  engine_.SetFaults(faults);
  conversation_.Receive("<ID1A><?>\r\n");
  EXPECT_EQ(outlet_.hang_ups, 1);
  conversation_.Receive("<ID1A><D*>\r\n");
  EXPECT_EQ(outlet_.sent, "<ID1A>\r\n");
  EXPECT_EQ(outlet_.hang_ups, 1);
  EXPECT_EQ(engine_.FrameCount(), 1);
  // A line that is opened anew is heard again.
  conversation_.Reset();
  conversation_.Receive("<ID1A><?>\r\n");
  EXPECT_EQ(outlet_.sent, "<ID1A>\r\n<ID1A>\r\n");
}

}  // namespace
}  // namespace VirtualPanel
