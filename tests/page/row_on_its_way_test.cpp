// A line so slow that a row is sent again before its first attempt has left: what is answered then
// may be said of another row than the panel means.
#include <gtest/gtest.h>

#include "page/message_transmission.h"
#include "sending/sending_words.h"
#include "support/program_folder.h"
#include "support/virtual_time.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

/// A line whose other end does not see it closing, so that a line end follows what is given up.
class LineThatEndsWhatItCuts : public ScriptedLink {
 public:
  using ScriptedLink::ScriptedLink;

  void GiveUp() override {
    TakeEverything();
    Write("\r\n");
  }
};

class RowOnItsWay : public testing::Test {
 protected:
  RowOnItsWay() {
    folder_.Configure("[Dimension Config]\r\nID026=2x96,Tri,10.0.0.26:80\r\n");
    link_.SendAt(300);
  }

  /// Sends a page whose frames have 64 bytes each, which take 2133 ms.
  bool Send(qint16 rows = 2) { return SendOver(line_, rows); }

  bool SendOver(OpenLine& line, qint16 rows) {
    QByteArray page =
        "*** Brivon Message File ***\r\nRow = " + QByteArray::number(rows) + "\r\nCol = 96\r\n";
    for (int row = 1; row <= rows; ++row) {
      page += "<L0" + QByteArray::number(row) + "><SA><CA>" + QByteArray(40, 'x') + "\r\n";
    }
    return SendMessageFile(line, folder_.Write(u"page.msg"_s, page), 26, "007", {rows, 96});
  }

  QString Arrived() const { return ArrivedText(line_.progress, 26); }

  TemporaryProgramFolder folder_;
  VirtualTime time_;
  VirtualTickTimer timer_{time_};
  VirtualClock clock_{time_};
  ScriptedLink link_{time_};
  OpenLine line_{link_, timer_, clock_, {}, [](const QString&) {}};
};

TEST_F(RowOnItsWay, ARowOfWhichAnAttemptStillWaitsHasNotArrivedAfterAStop) {
  link_.AnswerAfter(2400, "<ID1A>\r\n");
  time_.Schedule(2450, [this] { timer_.stop.made = true; });
  EXPECT_FALSE(Send());
  ASSERT_EQ(link_.Written().size(), 4) << "three attempts at row 1, one at row 2";
  EXPECT_EQ(Arrived(), u"0 of 2 rows have arrived, missing: 2."_s);
}

TEST_F(RowOnItsWay, ARowWhoseAttemptsHaveLeftHasArrived) {
  link_.StaySilent();
  link_.AnswerAfter(600, "<ID1A>\r\n");
  link_.SendAt(9600);
  time_.Schedule(1750, [this] { timer_.stop.made = true; });
  EXPECT_FALSE(Send());
  ASSERT_EQ(link_.Written().size(), 3);
  EXPECT_EQ(Arrived(), u"1 of 2 rows have arrived, missing: 1."_s);
}

TEST_F(RowOnItsWay, ALineThatIsLostWithTheAnswerToAnEarlierAttemptHasNotSentTheLastRow) {
  link_.AnswerAfter(2400, "<ID1A>\r\n");
  link_.AnswerAfter(3700, "<ID1A>\r\n");
  link_.AndLoseAfter(3700);
  EXPECT_FALSE(Send());
  EXPECT_EQ(link_.Written().size(), 6) << "three attempts at each row";
  EXPECT_EQ(Arrived(), u"0 of 2 rows have arrived, missing: 2."_s);
}

TEST_F(RowOnItsWay, ARowThatLeftBeforeOthersHadToWaitHasArrivedWhenTheLineIsLost) {
  link_.SendAt(1200);  // 533 ms a frame
  link_.AnswerAfter(600, "<ID1A>\r\n");
  link_.AnswerAfter(1150, "<ID1A>\r\n");  // to row 2, whose second attempt has begun
  link_.StaySilent();
  link_.LoseAfter(10);
  EXPECT_FALSE(Send(3));
  ASSERT_EQ(link_.Written().size(), 4);
  EXPECT_EQ(Arrived(), u"1 of 3 rows have arrived, missing: 2."_s);
}

TEST_F(RowOnItsWay, APageThatHadLeftAheadOfTheLastRowsLastAttemptIsFinishedOverALostLine) {
  link_.SendAt(1200);
  link_.AnswerAfter(1150, "<ID1A>\r\n");
  // Row 2 begins behind the second attempt at row 1 and has left after 2167 ms.
  time_.Schedule(2850, [this] {
    link_.Receive("<ID1A>\r\n");
    link_.Lose();
  });
  EXPECT_TRUE(Send());
  EXPECT_EQ(link_.Written().size(), 4);
}

TEST_F(RowOnItsWay, ALastRowThatWaitedAtItsOnlyAttemptHasNotArrivedOverALostLine) {
  link_.SendAt(1200);
  link_.AnswerAfter(1150, "<ID1A>\r\n");
  time_.Schedule(1160, [this] {
    link_.Receive("<ID1A>\r\n");
    link_.Lose();
  });
  EXPECT_FALSE(Send());
  EXPECT_EQ(link_.Written().size(), 3);
  EXPECT_EQ(Arrived(), u"0 of 2 rows have arrived, missing: 2."_s);
}

TEST_F(RowOnItsWay, ARowThatLeavesAmongTheLastBytesHasArrivedAfterAStop) {
  link_.AnswerAfter(2400, "<ID1A>\r\n");
  link_.AnswerAfter(1400, "<ID1A>\r\n");
  // Row 1, with its three attempts, has left after 6400 ms, row 2 would have after 8533 ms.
  time_.Schedule(6405, [this] { timer_.stop.made = true; });
  EXPECT_FALSE(Send());
  ASSERT_EQ(link_.Written().size(), 4);
  EXPECT_EQ(Arrived(), u"1 of 2 rows have arrived, missing: 1."_s);
}

TEST_F(RowOnItsWay, ARowThatIsGivenUpAmongTheLastBytesHasNotArrived) {
  LineThatEndsWhatItCuts link(time_);
  OpenLine line{link, timer_, clock_, {}, [](const QString&) {}};
  link.SendAt(300);
  link.AnswerAfter(2400, "<ID1A>\r\n");
  link.AnswerAfter(1400, "<ID1A>\r\n");
  time_.Schedule(6385, [this] { timer_.stop.made = true; });
  EXPECT_FALSE(SendOver(line, 2));
  ASSERT_EQ(link.Written().size(), 5);
  EXPECT_EQ(link.Written().last(), "\r\n");
  EXPECT_EQ(ArrivedText(line.progress, 26), u"0 of 2 rows have arrived, missing: 2."_s);
}

TEST_F(RowOnItsWay, ALineThatIsLostWithTheLastAnswerHasSentEverything) {
  link_.SendAt(9600);
  link_.AnswerAfter(100, "<ID1A>\r\n");
  link_.AnswerAfter(100, "<ID1A>\r\n");
  link_.AndLoseAfter(100);
  EXPECT_TRUE(Send());
}

}  // namespace
}  // namespace Brivon1
