// Golden frames: what --dry-run prints is what leaves.
#include "orders/rehearsal.h"

#include <gtest/gtest.h>

#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

constexpr const char* kIni =
    "[Dimension Config]\r\nID001=2x96,Tri,10.0.0.1:80\r\nID026=2x96,Mono,10.0.0.2:80\r\n"
    "[Communication]\r\nSendMode=TCPIP\r\nDelay Period=300\r\n";

constexpr const char* kPage =
    "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n"
    "<L01><SA><CA>Hi ~B DD MMM YYYY\r\n<L02><SA><CC>\xfc HH:MM\r\n";

class RehearsalTest : public testing::Test {
 protected:
  RehearsalTest() {
    folder_.Configure(kIni);
    folder_.Write(u"a.msg"_s, kPage);
    folder_.Write(u"a.srl"_s, "*** Brivon Shift Message File ***\r\n<SA><CA>To the left\r\n");
    folder_.Write(u"a.sch"_s,
                  "*** Brivon Schedule File ***\r\nWeek =1\r\nHour =7\r\nMin =**\r\n"
                  "Row =2\r\nCol =96\r\nNo of Sequence =1\r\na.msg\r\n5\r\nOpen\r\n");
  }

  Rehearsal Of(const Order& order, int id) const {
    const Brivon1::PanelEntry& entry = Brivon1::Store().panels[static_cast<std::size_t>(id)];
    const auto now = [] { return QDateTime(QDate(2024, 2, 29), QTime(23, 4, 5)); };
    return Rehearse(order, {id, entry.rows, entry.columns, {}}, Brivon1::Store(), now);
  }

  QList<QByteArray> Frames(Action action, const QString& number = {}, int id = 26) const {
    const Rehearsal rehearsal = Of({action, {}, number}, id);
    EXPECT_EQ(rehearsal.result.result, Result::kOk);
    return rehearsal.frames;
  }

  TemporaryProgramFolder folder_;
};

TEST_F(RehearsalTest, APageIsOneFrameARow) {
  const Order order{Action::kSendPage, folder_.Path(u"a.msg"_s), u"7"_s};
  EXPECT_EQ(Of(order, 1).frames, (QList<QByteArray>{"<ID01><L01><P007><SA><CA>Hi <GB> <DD> \r\n",
                                                    "<ID01><L02><P007><SA><CC>\xfc <DT> \r\n"}));
  EXPECT_EQ(Of(order, 26).frames, (QList<QByteArray>{"<ID1A><L01><P007><SA>Hi <GB> <DD> \r\n",
                                                     "<ID1A><L02><P007><SA>\xfc <DT> \r\n"}));
}

TEST_F(RehearsalTest, AScheduleIsItsPagesAndOneFrame) {
  const Rehearsal rehearsal = Of({Action::kSendSchedule, folder_.Path(u"a.sch"_s), u"b"_s}, 1);
  EXPECT_EQ(rehearsal.frames, (QList<QByteArray>{"<ID01><L01><P013><SA><CA>Hi <GB> <DD> \r\n",
                                                 "<ID01><L02><P013><SA><CC>\xfc <DT> \r\n",
                                                 "<ID01><TB>007**01305C\r\n"}));
}

TEST_F(RehearsalTest, AScrollingMessageIsOneFrame) {
  EXPECT_EQ(Of({Action::kSendScrolling, folder_.Path(u"a.srl"_s), u"2"_s}, 1).frames,
            (QList<QByteArray>{"<ID01><L2><SA><CA>To the left\r\n"}));
}

TEST_F(RehearsalTest, EachCommandIsOneFrame) {
  EXPECT_EQ(Frames(Action::kPoll), (QList<QByteArray>{"<ID1A><?>\r\n"}));
  EXPECT_EQ(Frames(Action::kRunPage, u"12"_s), (QList<QByteArray>{"<ID1A><RP012>\r\n"}));
  EXPECT_EQ(Frames(Action::kDeletePage, u"120"_s), (QList<QByteArray>{"<ID1A><D120>\r\n"}));
  EXPECT_EQ(Frames(Action::kDeleteAll), (QList<QByteArray>{"<ID1A><D*>\r\n"}));
  EXPECT_EQ(Frames(Action::kSetClock), (QList<QByteArray>{"<T2402294230405>\r\n"}));
}

TEST_F(RehearsalTest, AFileThatBreaksOffFails) {
  folder_.Write(u"short.msg"_s,
                "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n<L01><SA><CA>Hi\r\n");
  const Rehearsal rehearsal = Of({Action::kSendPage, folder_.Path(u"short.msg"_s), u"7"_s}, 1);
  EXPECT_EQ(rehearsal.result.result, Result::kFailed);
  EXPECT_EQ(rehearsal.frames, QList<QByteArray>());
}

}  // namespace
}  // namespace BrivonCtl
