// A lie about a transfer is found.
#include "soak/told.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using End = Told::End;

class TruthOfWhatIsTold : public testing::Test {
 protected:
  TruthOfWhatIsTold() {
    page_.kind = WorkKind::kPage;
    page_.panel = {26, 3, 96, true};
    page_.pages = {{7, {"one ", "two ", "three "}}};
    page_.frames = {"<ID1A><L01><P007>one \r\n", "<ID1A><L02><P007>two \r\n",
                    "<ID1A><L03><P007>three \r\n"};
  }

  void Receive(int rows) {
    for (int row = 0; row < rows; ++row) {
      engine_.Receive(page_.frames.at(row));
      received_.append(page_.frames.at(row));
    }
  }

  bool IsTrue(End end, const QString& why = {}) {
    return Untruth({end, why}, page_, engine_, received_).isEmpty();
  }

  Work page_;
  VirtualPanel::PanelEngine engine_{{{26, 3, 96, true}}};
  QList<QByteArray> received_;
};

TEST_F(TruthOfWhatIsTold, FinishedMeansThatEveryRowIsThere) {
  Receive(2);
  EXPECT_FALSE(IsTrue(End::kFinished));
  Receive(3);
  EXPECT_TRUE(IsTrue(End::kFinished));
  engine_.Receive("<ID1A><L02><P007>other \r\n");
  EXPECT_FALSE(IsTrue(End::kFinished));
}

TEST_F(TruthOfWhatIsTold, OfAFailureTheRowsThatHaveArrivedAreThere) {
  Receive(1);
  EXPECT_TRUE(IsTrue(End::kFailed, u"1 of 3 rows have arrived, missing: 2."_s));
  EXPECT_TRUE(IsTrue(End::kStopped, u"0 of 3 rows have arrived, missing: 3."_s));
  EXPECT_FALSE(IsTrue(End::kFailed, u"2 of 3 rows have arrived, missing: 1."_s));
  EXPECT_FALSE(IsTrue(End::kFailed, u"1 of 2 rows have arrived, missing: 1."_s));
  EXPECT_FALSE(IsTrue(End::kFailed)) << "it does not say why";
  EXPECT_FALSE(IsTrue(End::kFailed, u"Nothing has been sent."_s));
}

TEST_F(TruthOfWhatIsTold, ACommandHasBeenCarriedOut) {
  Receive(3);
  page_.kind = WorkKind::kDeletePage;
  page_.number = u"7"_s;
  page_.pages.clear();
  EXPECT_FALSE(IsTrue(End::kFinished));
  engine_.Receive("<ID1A><D007>\r\n");
  EXPECT_TRUE(IsTrue(End::kFinished));
}

TEST_F(TruthOfWhatIsTold, AScheduleAndAScrollingMessageAreThere) {
  Work schedule = page_;
  schedule.kind = WorkKind::kSchedule;
  schedule.pages.clear();
  schedule.letter = 'C';
  schedule.schedule.entries = {{7, 5, 'E'}};
  EXPECT_FALSE(Untruth({End::kFinished, {}}, schedule, engine_, {}).isEmpty());
  engine_.Receive("<ID1A><TC>*****00705E\r\n");
  EXPECT_EQ(Untruth({End::kFinished, {}}, schedule, engine_, {}), QString());
  Work scrolling = page_;
  scrolling.kind = WorkKind::kScrolling;
  scrolling.pages.clear();
  scrolling.row = 2;
  scrolling.scrolling = "<SA>text";
  EXPECT_FALSE(Untruth({End::kFinished, {}}, scrolling, engine_, {}).isEmpty());
  engine_.Receive("<ID1A><L2><SA>text\r\n");
  EXPECT_EQ(Untruth({End::kFinished, {}}, scrolling, engine_, {}), QString());
}

TEST_F(TruthOfWhatIsTold, FramesComeInTheirOrderEachAsOftenAsItIsTried) {
  const auto& frames = page_.frames;
  EXPECT_EQ(WrongFrame(page_, {frames[0], frames[0], frames[1], frames[2]}), QString());
  EXPECT_FALSE(WrongFrame(page_, {frames[0], frames[2]}).isEmpty());
  EXPECT_FALSE(WrongFrame(page_, {frames[1], frames[0]}).isEmpty());
  EXPECT_FALSE(WrongFrame(page_, {"<ID1A><L0" + frames[0]}).isEmpty());
}

}  // namespace
