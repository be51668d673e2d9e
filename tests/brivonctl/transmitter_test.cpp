#include "orders/transmitter.h"

#include <memory>

#include <QFile>

#include <gtest/gtest.h>

#include "support/panel_bench.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

const QList<VirtualPanel::PanelDescription> kPanels = {
    {1, 2, 96, true}, {2, 2, 96, true}, {3, 2, 96, true}};

std::shared_ptr<const FileCopies> CopiesOf(const QString& path) {
  const auto copies = std::make_shared<FileCopies>(path);
  copies->TakeDigest(path);
  return copies;
}

/// Panels at one line in virtual time, and what the transmitter tells of them.
class TransmitterTest : public testing::TestWithParam<LineKind> {
 protected:
  TransmitterTest() {
    assignment_.order = {Action::kSendPage,
                         bench_.Folder().Write(u"page.msg"_s, SampleMessageFile(2, 96)), u"7"_s};
    assignment_.order.copies = CopiesOf(assignment_.order.path);
    assignment_.configuration = Brivon1::Store();
    assignment_.configuration.delay_period = 300;
  }

  static Brivon1::PanelListEntry Entry(int id) {
    const auto& entry = Brivon1::Store().panels[static_cast<std::size_t>(id)];
    return {id, entry.rows, entry.columns, Brivon1::ReadEndpoint(entry.address)};
  }

  void Serve(const QList<int>& ids) {
    PanelsOfALine panels;
    for (const int id : ids) panels.append(Entry(id));
    const Tell tell = [this](const Happening& happening) {
      if (std::holds_alternative<Step>(happening)) {
        ++steps_;
        if (steps_ == stop_at_step_) bench_.Ports()->timer.stop.made = true;
      } else {
        transmissions_.append(std::get<Transmission>(happening));
      }
    };
    Transmitter(assignment_, *bench_.Ports(), tell).Serve(panels);
  }

  bool IsSerial() const { return GetParam() == LineKind::kSerial; }

  VirtualBench bench_{GetParam(), kPanels};
  Assignment assignment_;
  QList<Transmission> transmissions_;
  int steps_ = 0;
  int stop_at_step_ = 0;
};

INSTANTIATE_TEST_SUITE_P(, TransmitterTest, testing::Values(LineKind::kTcp, LineKind::kSerial),
                         LineName);

TEST_P(TransmitterTest, APageIsSentAsTheWindowSendsItAndInItsTime) {
  Serve({1});
  EXPECT_EQ(bench_.Frames(), (QList<QByteArray>{"<ID01><L01><P007><SA><CA>Row 01 \r\n",
                                                "<ID01><L02><P007><SA><CB>Row 02 \r\n"}));
  ASSERT_EQ(transmissions_.size(), 1);
  EXPECT_EQ(transmissions_[0].result.result, Result::kOk);
  EXPECT_EQ(transmissions_[0].result.text, u"Transmission finished!"_s);
  EXPECT_EQ(transmissions_[0].acknowledged_rows, 2);
  EXPECT_EQ(transmissions_[0].attempts, 2);
  EXPECT_EQ(transmissions_[0].digest.size(), 64);
  EXPECT_EQ(steps_, 2);
  // Half a second until a connection is looked at, and the "Delay Period" behind the last row.
  EXPECT_EQ(bench_.Time().Now(), (IsSerial() ? 0 : 500) + 300);
  EXPECT_TRUE(bench_.IsReleased());
}

TEST_P(TransmitterTest, APanelThatNeverAnswersFailsAfterFiveAttempts) {
  bench_.Fail({.silent = true});
  Serve({2});
  ASSERT_EQ(transmissions_.size(), 1);
  EXPECT_EQ(transmissions_[0].result.result, Result::kFailed);
  EXPECT_EQ(transmissions_[0].result.text, u"Transmission failure!"_s);
  EXPECT_EQ(transmissions_[0].result.reason,
            u"No response from display panel. Please check connection.\n"
            "Panel ID 2 was tried 5 times.\n0 of 2 rows have arrived, missing: 2."_s);
  EXPECT_EQ(transmissions_[0].attempts, 5);
  EXPECT_EQ(transmissions_[0].acknowledged_rows, 0);
  EXPECT_EQ(bench_.Time().Now(), (IsSerial() ? 0 : 500) + 5 * 1100);
}

TEST_P(TransmitterTest, TheSerialPortIsOpenedOnceAndAConnectionForEachTransmission) {
  Serve({1, 2, 3});
  EXPECT_EQ(bench_.Openings(), IsSerial() ? 1 : 3);
  ASSERT_EQ(transmissions_.size(), 3);
  for (const Transmission& transmission : transmissions_) {
    EXPECT_EQ(transmission.result.result, Result::kOk);
  }
  EXPECT_TRUE(bench_.IsReleased());
}

TEST_P(TransmitterTest, AWholeTransmissionIsRepeatedBehindAllOtherPanels) {
  assignment_.further_transmissions = 2;
  bench_.Fail({.silent_answers = 5});
  Serve({1, 2});
  ASSERT_EQ(transmissions_.size(), 3);
  EXPECT_EQ(transmissions_[0].result.panel, 1);
  EXPECT_EQ(transmissions_[0].result.result, Result::kFailed);
  EXPECT_FALSE(transmissions_[0].is_last);
  EXPECT_EQ(transmissions_[1].result.panel, 2);
  EXPECT_TRUE(transmissions_[1].is_last);
  EXPECT_EQ(transmissions_[2].result.panel, 1);
  EXPECT_EQ(transmissions_[2].result.result, Result::kOk);
  EXPECT_EQ(transmissions_[2].number, 2);
  EXPECT_TRUE(transmissions_[2].is_last);
}

TEST_P(TransmitterTest, NoMoreThanTheFurtherTransmissionsFollow) {
  assignment_.further_transmissions = 1;
  bench_.Fail({.silent = true});
  Serve({1});
  ASSERT_EQ(transmissions_.size(), 2);
  EXPECT_TRUE(transmissions_[1].is_last);
  EXPECT_EQ(bench_.Frames().size(), 10);
}

TEST_P(TransmitterTest, AStopLetsTheAttemptInProgressEndAndNothingElseBegin) {
  stop_at_step_ = 1;
  Serve({1, 2});
  ASSERT_EQ(transmissions_.size(), 2);
  EXPECT_EQ(transmissions_[0].result.result, Result::kStopped);
  EXPECT_EQ(transmissions_[0].result.text, u"Aborted!"_s);
  EXPECT_EQ(transmissions_[0].result.reason, u"1 of 2 rows have arrived, missing: 1."_s);
  EXPECT_EQ(transmissions_[0].acknowledged_rows, 1);
  EXPECT_EQ(transmissions_[1].result.result, Result::kStopped);
  EXPECT_EQ(transmissions_[1].result.reason, u"Nothing has been sent."_s);
  EXPECT_EQ(bench_.Frames().size(), 1);
  EXPECT_TRUE(bench_.IsReleased());
}

TEST_P(TransmitterTest, AStopBehindAFailureTellsWhatTheFailedTransmissionHasBrought) {
  assignment_.further_transmissions = 1;
  bench_.Fail({.close_after_frame = 1});
  const Tell tell = [this](const Happening& happening) {
    if (!std::holds_alternative<Transmission>(happening)) return;
    transmissions_.append(std::get<Transmission>(happening));
    bench_.Ports()->timer.stop.made = true;
  };
  Transmitter(assignment_, *bench_.Ports(), tell).Serve({Entry(1)});
  ASSERT_EQ(transmissions_.size(), 2);
  EXPECT_EQ(transmissions_[0].result.result, Result::kFailed);
  EXPECT_EQ(transmissions_[0].acknowledged_rows, 1);
  EXPECT_EQ(transmissions_[1].result.result, Result::kStopped);
  EXPECT_EQ(transmissions_[1].result.text, u"Aborted!"_s);
  EXPECT_EQ(transmissions_[1].acknowledged_rows, 1);
  EXPECT_EQ(transmissions_[1].result.reason,
            u"Transmission failure!\n"_s + transmissions_[0].result.reason);
  EXPECT_TRUE(transmissions_[1].result.reason.endsWith(u"1 of 2 rows have arrived, missing: 1."_s));
}

TEST_P(TransmitterTest, AStopTellsOfTheTransmissionThatHasComeFurther) {
  assignment_.further_transmissions = 1;
  struct Further {
    int stop_at_step;    // of the second transmission
    bool falls_silent;   // behind the first row, else before it
    int rows;            // that the panel has
    const char* reason;  // how what is told ends
  };
  for (const Further& further : {Further{6, false, 1, "1 of 2 rows have arrived, missing: 1."},
                                 Further{7, true, 1, "1 of 2 rows have arrived, missing: 1."}}) {
    int step = 0;
    QList<Transmission> told;
    if (!further.falls_silent) bench_.Fail({.silent_answers = 5});
    const Tell tell = [&](const Happening& happening) {
      if (const auto* transmission = std::get_if<Transmission>(&happening)) {
        told.append(*transmission);
      } else if (++step == further.stop_at_step) {
        bench_.Ports()->timer.stop.made = true;
      } else if (step == 2 && further.falls_silent) {
        bench_.Fail({.silent = true});
      }
    };
    Transmitter(assignment_, *bench_.Ports(), tell).Serve({Entry(1)});
    bench_.Fail({});
    bench_.Ports()->timer.stop.made = false;
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told[0].result.result, Result::kFailed);
    EXPECT_EQ(told[1].acknowledged_rows, further.rows);
    EXPECT_TRUE(told[1].result.reason.endsWith(QLatin1String(further.reason)))
        << told[1].result.reason.toStdString();
    EXPECT_EQ(told[1].result.reason.startsWith(u"Transmission failure!"_s), further.falls_silent);
  }
}

TEST_P(TransmitterTest, AFileThatChangesMeanwhileIsSentAsItWasChecked) {
  const QByteArray digest = assignment_.order.Digest();
  Serve({1});
  const auto frames = bench_.Frames();
  bench_.Folder().Write(u"page.msg"_s, SampleMessageFile(2, 96).replace("Row", "Raw"));
  Serve({1});
  ASSERT_TRUE(QFile::remove(assignment_.order.path));
  Serve({1});
  EXPECT_EQ(bench_.Frames(), frames + frames + frames);
  ASSERT_EQ(transmissions_.size(), 3);
  for (const Transmission& transmission : transmissions_) {
    EXPECT_EQ(transmission.result.result, Result::kOk);
    EXPECT_EQ(transmission.digest, digest);
  }
}

TEST_P(TransmitterTest, SoAreTheMessageFilesOfASchedule) {
  const QString path =
      bench_.Folder().Write(u"week.sch"_s,
                            "*** Brivon Schedule File ***\r\nWeek =0\r\nHour =8\r\n"
                            "Min =30\r\nRow =2\r\nCol =96\r\nNo of Sequence =1\r\npage.msg\r\n5\r\n"
                            "Flip\r\n");
  assignment_.order = {Action::kSendSchedule, path, u"A"_s, CopiesOf(path)};
  bench_.Folder().Write(u"page.msg"_s, SampleMessageFile(2, 96).replace("Row", "Raw"));
  ASSERT_TRUE(QFile::remove(path));
  Serve({1});
  EXPECT_EQ(bench_.Frames(), (QList<QByteArray>{"<ID01><L01><P001><SA><CA>Row 01 \r\n",
                                                "<ID01><L02><P001><SA><CB>Row 02 \r\n",
                                                "<ID01><TA>*083000105B\r\n"}));
  ASSERT_EQ(transmissions_.size(), 1);
  EXPECT_EQ(transmissions_[0].result.text, IsSerial()
                                               ? u"Transmission finished!"_s
                                               : u"Schedules file is sent successfully through "
                                                 "network"_s);
}

TEST_P(TransmitterTest, AnAnswerThatComesBetweenTwoPanelsIsNoneOfTheNextOne) {
  assignment_.order = {Action::kPoll, {}, {}};
  const Tell tell = [this](const Happening& happening) {
    if (!std::holds_alternative<Transmission>(happening)) return;
    transmissions_.append(std::get<Transmission>(happening));
    if (transmissions_.size() > 1) return;
    bench_.Ports()->serial.Write(bench_.Frames().last());
    bench_.Ports()->clock.WaitForEvent(50);
    bench_.Fail({.silent = true});
  };
  Transmitter(assignment_, *bench_.Ports(), tell).Serve({Entry(1), Entry(1)});
  ASSERT_EQ(transmissions_.size(), 2);
  EXPECT_EQ(transmissions_[0].result.result, Result::kOk);
  EXPECT_EQ(transmissions_[1].result.result, Result::kFailed);
}

TEST_P(TransmitterTest, AScheduleSaysOnceWhyItHasFailed) {
  assignment_.order = {Action::kSendSchedule,
                       bench_.Folder().Write(u"week.sch"_s,
                                             "*** Brivon Schedule File ***\r\nWeekday = 0\r\n"
                                             "Hour = *\r\nMinute = *\r\nRow = 2\r\nCol = 96\r\n"
                                             "Seq = 1\r\npage.msg\r\n5\r\nFlip\r\n"),
                       u"A"_s};
  bench_.Fail({.silent = true});
  Serve({2});
  ASSERT_EQ(transmissions_.size(), 1);
  EXPECT_EQ(transmissions_[0].result.result, Result::kFailed);
  EXPECT_EQ(transmissions_[0].result.reason.toStdString(),
            "Error in sending page.msg!\n"
            "No response from display panel. Please check connection.\n"
            "Panel ID 2 was tried 5 times.\n0 of 1 files have arrived. The schedule has not.\n"
            "page.msg: 0 of 2 rows have arrived, missing: 2.");
}

TEST_P(TransmitterTest, ALineThatCannotBeOpenedIsTheReason) {
  bench_.Unplug();
  Serve({1, 2});
  ASSERT_EQ(transmissions_.size(), 2);
  for (const Transmission& transmission : transmissions_) {
    EXPECT_EQ(transmission.result.result, Result::kFailed);
    EXPECT_EQ(transmission.result.text, IsSerial() ? u"Fail to initialize communication port!"_s
                                                   : u"Cannot create TCP link!"_s);
    EXPECT_TRUE(transmission.result.reason.endsWith(u": nobody is there"_s));
    EXPECT_EQ(transmission.attempts, 0);
  }
}

TEST_P(TransmitterTest, ALineThatIsCutFailsForItsPanelAndIsOpenedAnewForTheNextOne) {
  bench_.Fail({.close_after_frame = 1});
  Serve({1, 2});
  ASSERT_EQ(transmissions_.size(), 2);
  EXPECT_EQ(transmissions_[0].result.result, Result::kFailed);
  EXPECT_TRUE(transmissions_[0].result.reason.contains(u": nobody is there\n"_s))
      << transmissions_[0].result.reason.toStdString();
  EXPECT_EQ(bench_.Openings(), 2);
}

TEST_P(TransmitterTest, ACommandReportsInTheWordsOfItsWindow) {
  assignment_.order = {Action::kRunPage, {}, u"12"_s};
  Serve({3});
  EXPECT_EQ(bench_.Frames(), (QList<QByteArray>{"<ID03><RP012>\r\n"}));
  ASSERT_EQ(transmissions_.size(), 1);
  EXPECT_EQ(transmissions_[0].result.text, u"Page 12 is running."_s);
  EXPECT_EQ(transmissions_[0].acknowledged_rows, 0);
  EXPECT_EQ(transmissions_[0].attempts, 1);
}

TEST_P(TransmitterTest, ToAllPanelsTogetherOkMeansSent) {
  auto& entry = assignment_.configuration.panels[0];
  entry = assignment_.configuration.panels[1];
  Brivon1::PanelListEntry everybody = Entry(1);
  everybody.id = 0;
  QList<Transmission> told;
  const Tell tell = [&told](const Happening& happening) {
    if (const auto* transmission = std::get_if<Transmission>(&happening)) {
      told.append(*transmission);
    }
  };
  Transmitter(assignment_, *bench_.Ports(), tell).Serve({everybody});
  ASSERT_EQ(told.size(), 1);
  EXPECT_EQ(told[0].result.result, Result::kOk);
  EXPECT_EQ(told[0].acknowledged_rows, 0);
  EXPECT_EQ(bench_.Frames().size(), 2);
}

TEST(ByLine, PanelsOfOneAddressShareOneLineAndTheSerialLineIsOneForAll) {
  const Brivon1::TcpEndpoint first{"10.0.0.1", 80};
  const Brivon1::TcpEndpoint second{"10.0.0.1", 81};
  const QList<Brivon1::PanelListEntry> panels = {
      {1, 2, 96, first}, {2, 2, 96, second}, {3, 2, 96, first}};
  const auto lines = ByLine(panels, Brivon1::SendMode::kTcp);
  ASSERT_EQ(lines.size(), 2);
  ASSERT_EQ(lines[0].size(), 2);
  EXPECT_EQ(lines[0][0].id, 1);
  EXPECT_EQ(lines[0][1].id, 3);
  ASSERT_EQ(lines[1].size(), 1);
  EXPECT_EQ(lines[1][0].id, 2);
  const auto serial = ByLine(panels, Brivon1::SendMode::kSerial);
  ASSERT_EQ(serial.size(), 1);
  EXPECT_EQ(serial[0].size(), 3);
}

}  // namespace
}  // namespace BrivonCtl
