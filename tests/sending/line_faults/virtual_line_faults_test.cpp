// Every fault of a line at every moment of every window that sends, over both links, in virtual
// time: what is said, what stands on the panel, how long it takes to the millisecond, and that the
// next send works.
#include <QWidget>

#include <gtest/gtest.h>

#include "sending/line_faults/fault_checks.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kConnecting = 500;

class Case {
 public:
  Case(const FaultyWindow& window, LineKind line, LineFault fault, Moment moment)
      : window_(window),
        line_(line),
        fault_(fault),
        moment_(moment),
        bench_(line, {window.window.panel}) {
    QByteArray ini = bench_.Folder().Read(u"brivon.ini"_s);
    bench_.Folder().Configure(ini.replace("Delay Period=0", "Delay Period=300"));
    bench_.Engine().Receive(window.older);
  }

  void Try(const Outcome& outcome) {
    const QString path = window_.window.write_file(bench_.Folder());
    SendDialog dialog(window_.window.make(path, bench_.Ports()), window_.window.locked);
    window_.window.fill_in(dialog);
    const QList<bool> enabled = EnabledControls(dialog);
    const qsizetype older = bench_.Frames().size();
    EXPECT_EQ(window_.held(bench_.Engine()), window_.held_before);
    {
      FaultSetter setter(*this, dialog);
      const MessageBoxReader boxes;
      const qint64 begin = bench_.Time().Now();
      dialog.Click("butSend");
      const int connecting = line_ == LineKind::kTcp ? kConnecting : 0;
      EXPECT_EQ(bench_.Time().Now() - begin, outcome.milliseconds + connecting);
      ExpectBoxes(boxes, window_, line_, outcome, bench_.Folder(),
                  (line_ == LineKind::kTcp ? u"127.0.0.1:2101"_s : bench_.Device()) +
                      u": nobody is there"_s);
    }
    EXPECT_EQ(WithoutTimes(bench_.Frames().mid(older)), FramesOf(window_, moment_, outcome));
    EXPECT_EQ(window_.held(bench_.Engine()), HeldAfter(window_, outcome));
    ExpectAtRest(dialog, enabled);

    bench_.Fail({});
    bench_.PlugIn();
    const qsizetype before = bench_.Frames().size();
    EXPECT_EQ(dialog.Send(), QStringList{window_.window.finished(line_)});
    EXPECT_EQ(WithoutTimes(bench_.Frames().mid(before)), window_.window.frames);
    EXPECT_EQ(window_.held(bench_.Engine()), window_.held_after);
    ExpectAtRest(dialog, enabled);
  }

 private:
  /// Lets the fault set in at its moment, once.
  class FaultSetter {
   public:
    FaultSetter(Case& owner, SendDialog& dialog) : bench_(owner.bench_) {
      const int frame = *FrameAt(owner.window_, owner.moment_);
      if (const auto fault = PanelFault(owner.fault_)) {
        SetPanelFault(*fault, frame);
      } else if (frame == 0) {
        SetLineFaultBefore(owner.fault_);
      } else if (owner.fault_ == LineFault::kCloseAfter) {
        bench_.Fail({.close_after_frame = frame});
      } else {
        at_frame_ = frame;
        action_ = [this, is_back = owner.fault_ == LineFault::kReplugged] {
          bench_.Unplug();
          if (is_back) bench_.PlugIn();
        };
      }
      listener_ = QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived,
                                   &dialog.window, [this] {
                                     if (++frames_ == at_frame_) action_();
                                   });
    }

    ~FaultSetter() {
      QObject::disconnect(listener_);
      bench_.OnOpen([] {});
    }

    FaultSetter(const FaultSetter&) = delete;
    FaultSetter& operator=(const FaultSetter&) = delete;

   private:
    // The panel's answer to a frame is made when the frame is reported.
    void SetPanelFault(const VirtualPanel::Faults& fault, int frame) {
      const auto set = [this, fault] { bench_.Fail(fault); };
      if (frame == 0) {
        set();
      } else if (frame == 1) {
        bench_.OnOpen(set);
      } else {
        at_frame_ = frame - 1;
        action_ = set;
      }
    }

    void SetLineFaultBefore(LineFault fault) {
      if (fault == LineFault::kCloseAfter || fault == LineFault::kReset) {
        bench_.OnOpen([this] { bench_.Unplug(); });
      } else {
        bench_.Unplug();
        if (fault == LineFault::kReplugged) bench_.OnOpen([this] { bench_.PlugIn(); });
      }
    }

    VirtualBench& bench_;
    int at_frame_ = 0;
    int frames_ = 0;
    std::function<void()> action_ = [] {};
    QMetaObject::Connection listener_;
  };

  void ExpectAtRest(SendDialog& dialog, const QList<bool>& enabled) {
    EXPECT_TRUE(dialog.IsReady());
    EXPECT_EQ(EnabledControls(dialog), enabled);
    EXPECT_TRUE(bench_.IsReleased());
    EXPECT_FALSE(bench_.Timer().IsEnabled());
  }

  const FaultyWindow& window_;
  LineKind line_;
  LineFault fault_;
  Moment moment_;
  VirtualBench bench_;
};

class VirtualLineFaults : public testing::TestWithParam<FaultPlace> {};

INSTANTIATE_TEST_SUITE_P(All, VirtualLineFaults, testing::ValuesIn(FaultPlaces()), FaultPlaceName);

TEST_P(VirtualLineFaults, EndAsTheTablesSayAtEveryMoment) {
  const auto& [window, line] = GetParam();
  int cases = 0;
  for (const LineFault fault : kLineFaults) {
    for (const Moment moment : kMoments) {
      SCOPED_TRACE(std::string(NameOf(fault)) + ", " + NameOf(moment));
      const auto expected = ExpectedOutcome(*window, line, fault, moment);
      ASSERT_TRUE(expected) << "in the tables exactly once";
      if (!std::holds_alternative<Outcome>(*expected)) continue;
      ++cases;
      Case(*window, line, fault, moment).Try(std::get<Outcome>(*expected));
    }
  }
  RecordProperty("cases", cases);
  EXPECT_GE(cases, 20);
}

TEST(LineFaultTables, KnowEveryFaultOverEveryLinkInEveryWindowAtEveryMomentOrWhyItCannotBe) {
  int outcomes = 0;
  int impossible = 0;
  for (const FaultyWindow& window : FaultyWindows()) {
    for (const LineKind line : {LineKind::kTcp, LineKind::kSerial}) {
      for (const LineFault fault : kLineFaults) {
        for (const Moment moment : kMoments) {
          const auto expected = ExpectedOutcome(window, line, fault, moment);
          ASSERT_TRUE(expected) << window.name << ", " << NameOf(fault) << ", " << NameOf(moment);
          ++(std::holds_alternative<Outcome>(*expected) ? outcomes : impossible);
        }
      }
    }
  }
  EXPECT_EQ(outcomes + impossible, 6 * 2 * 14 * 5);
  EXPECT_EQ(outcomes, kFaultCases);
}

}  // namespace
