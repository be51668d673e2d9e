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

class RowOnItsWay : public testing::Test {
 protected:
  RowOnItsWay() {
    folder_.Configure("[Dimension Config]\r\nID026=2x96,Tri,10.0.0.26:80\r\n");
    // Each frame has 68 bytes, which take 2267 ms.
    const QByteArray text(40, 'x');
    path_ = folder_.Write(u"page.msg"_s,
                          "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n<L01><SA><CA>" +
                              text + "\r\n<L02><SA><CA>" + text + "\r\n");
    link_.SendAt(300);
  }

  bool Send() { return SendMessageFile(line_, path_, 26, "007", {2, 96}); }

  QString Arrived() const { return ArrivedText(line_.progress, 26); }

  TemporaryProgramFolder folder_;
  VirtualTime time_;
  VirtualTickTimer timer_{time_};
  VirtualClock clock_{time_};
  ScriptedLink link_{time_};
  QString path_;
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

TEST_F(RowOnItsWay, ALineThatIsLostWithTheLastAnswerHasSentEverything) {
  link_.SendAt(9600);
  link_.AnswerAfter(100, "<ID1A>\r\n");
  link_.AnswerAfter(100, "<ID1A>\r\n");
  link_.AndLoseAfter(100);
  EXPECT_TRUE(Send());
}

}  // namespace
}  // namespace Brivon1
