#include "orders/order_checks.h"

#include <gtest/gtest.h>

#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

class OrderChecks : public testing::Test {
 protected:
  OrderChecks() {
    Configure("TCPIP");
    folder_.Write(u"a.msg"_s,
                  "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n"
                  "<L01><SA><CA>Hi\r\n<L02><SA><CA>Ho\r\n");
    folder_.Write(u"short.msg"_s,
                  "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n<L01><SA><CA>Hi\r\n");
    folder_.Write(u"a.srl"_s, "*** Brivon Shift Message File ***\r\n<SA><CA>To the left\r\n");
  }

  void Configure(const QByteArray& mode) const {
    folder_.Configure(
        "[Dimension Config]\r\nID001=2x96,Tri,10.0.0.1:80\r\nID002=4x96,Tri,10.0.0.2:80\r\n"
        "ID003=2x96,Mono\r\n[Communication]\r\nSendMode=" +
        mode + "\r\n");
  }

  QString Path(const char* name) const { return folder_.Path(QString::fromLatin1(name)); }

  /// "1 fit", or why not, the first line of it.
  QStringList Checked(const Order& order, const QList<int>& ids) const {
    const CheckedPanels panels = CheckPanels(order, ids, Brivon1::Store());
    QStringList lines;
    for (const auto& panel : panels.fit) lines.append(u"%1 fits"_s.arg(panel.id));
    for (const PanelResult& panel : panels.unfit) {
      EXPECT_EQ(panel.result, Result::kRefused);
      lines.append(u"%1 %2"_s.arg(panel.panel).arg(panel.text));
    }
    return lines;
  }

  QString Wrong(const Order& order) const {
    const QString wrong = WhatIsWrongWith(order, Brivon1::Store());
    return wrong.section(u'\n', 0, 0);
  }

  TemporaryProgramFolder folder_;
};

TEST_F(OrderChecks, APageGoesToPanelsOfItsSizeThatHaveAnAddress) {
  EXPECT_EQ(
      Checked({Action::kSendPage, Path("a.msg"), u"7"_s}, {1, 2, 3, 9}),
      (QStringList{u"1 fits"_s, u"2 Dimension not matched!"_s, u"3 IP address is null or invaild"_s,
                   u"9 not configured; brivonctl list shows the panels that are"_s}));
}

TEST_F(OrderChecks, OverTheSerialLineNobodyNeedsAnAddress) {
  Configure("RS232");
  EXPECT_EQ(Checked({Action::kPoll, {}, {}}, {1, 3}), (QStringList{u"1 fits"_s, u"3 fits"_s}));
  Configure("TCPIP");
  EXPECT_EQ(Checked({Action::kPoll, {}, {}}, {1, 3}),
            (QStringList{u"1 fits"_s, u"3 IP address is null or invaild"_s}));
  EXPECT_EQ(Checked({Action::kSendScrolling, Path("a.srl"), u"2"_s}, {1, 3}),
            (QStringList{u"1 fits"_s, u"3 fits"_s}));
}

TEST_F(OrderChecks, AScrollingMessageNeedsAPanelThatHasTheLine) {
  EXPECT_EQ(Checked({Action::kSendScrolling, Path("a.srl"), u"3"_s}, {1, 2}),
            (QStringList{u"2 fits"_s, u"1 Line No. Not Valid!"_s}));
}

TEST_F(OrderChecks, APageThatBreaksOffFitsNoPanel) {
  EXPECT_EQ(Checked({Action::kSendPage, Path("short.msg"), u"7"_s}, {1}),
            (QStringList{u"1 Transmission failure!"_s}));
}

TEST_F(OrderChecks, AFileThatIsMissingAFolderOrOfAnotherKindKeepsTheOrderFromEveryPanel) {
  EXPECT_EQ(Wrong({Action::kSendPage, Path("a.msg"), u"7"_s}), QString());
  EXPECT_EQ(Wrong({Action::kSendPage, Path("no.msg"), u"7"_s}),
            Path("no.msg") + u": File not found!"_s);
  EXPECT_EQ(Wrong({Action::kSendPage, Path("."), u"7"_s}), Path(".") + u": File not found!"_s);
  EXPECT_EQ(Wrong({Action::kSendPage, Path("a.srl"), u"7"_s}),
            Path("a.srl") + u": Error in opening file!"_s);
  EXPECT_EQ(Wrong({Action::kSendScrolling, Path("a.msg"), u"1"_s}),
            Path("a.msg") + u": Error in opening file!"_s);
  EXPECT_EQ(Wrong({Action::kSendSchedule, Path("a.msg"), u"A"_s}),
            Path("a.msg") + u": Error in opening file"_s);
}

TEST_F(OrderChecks, AScheduleIsCheckedWithItsMessageFiles) {
  const auto schedule = [](const QByteArray& name) {
    return "*** Brivon Schedule File ***\r\nWeek =0\r\nHour =**\r\nMin =**\r\nRow =2\r\n"
           "Col =96\r\nNo of Sequence =1\r\n" +
           name + "\r\n5\r\nOpen\r\n";
  };
  folder_.Write(u"good.sch"_s, schedule("a.msg"));
  folder_.Write(u"bad.sch"_s, schedule("no.msg"));
  folder_.Write(u"short.sch"_s, schedule("a.msg").replace("Sequence =1", "Sequence =2"));
  EXPECT_EQ(Wrong({Action::kSendSchedule, Path("good.sch"), u"A"_s}), QString());
  EXPECT_EQ(Wrong({Action::kSendSchedule, Path("bad.sch"), u"A"_s}),
            Path("bad.sch") + u": File not found: no.msg"_s);
  EXPECT_EQ(Wrong({Action::kSendSchedule, Path("short.sch"), u"A"_s}),
            Path("short.sch") + u": Error in opening file"_s);
  EXPECT_EQ(Checked({Action::kSendSchedule, Path("good.sch"), u"A"_s}, {1, 2}),
            (QStringList{u"1 fits"_s, u"2 Dimension not matched!"_s}));
}

TEST_F(OrderChecks, WithoutALinkNothingIsSentButScrollingMessages) {
  Configure("NONE");
  EXPECT_EQ(Wrong({Action::kPoll, {}, {}}),
            u"No link is chosen: Config, Communication Selection"_s);
  EXPECT_EQ(Wrong({Action::kSendScrolling, Path("a.srl"), u"1"_s}), QString());
}

TEST_F(OrderChecks, PanelsWithTheSameReasonAreNamedTogetherInOneLine) {
  EXPECT_EQ(UnfitPanels({{1, Result::kRefused, u"Too small!"_s, u"It has\ntwo rows"_s},
                         {7, Result::kRefused, u"gone"_s, {}},
                         {12, Result::kRefused, u"Too small!"_s, u"It has\ntwo rows"_s}}),
            u"ID001, ID012: Too small! It has. two rows; ID007: gone"_s);
}

}  // namespace
}  // namespace BrivonCtl
