// The faults of a line over lines that are really there, a TCP port on loopback and a
// pseudo-terminal: a part of them, in which nobody waits for what does not come any more, and with
// BRIVON_LINE_FAULTS=all in the environment every one in its own time.
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTcpSocket>
#include <QTimer>

#include <gtest/gtest.h>

#include "panel_line/window_ports.h"
#include "sending/line_faults/fault_checks.h"
#include "support/abrupt_end.h"

using namespace Qt::StringLiterals;

namespace {

bool TriesAll() { return qgetenv("BRIVON_LINE_FAULTS") == "all"; }

/// A clock that passes over the rest of a connection's time as soon as it stands or has failed.
class HastyClock : public Brivon1::MillisecondClock {
 public:
  explicit HastyClock(const QTcpSocket& socket) : socket_(socket) { elapsed_.start(); }

  bool is_hasty = true;

  qint64 Milliseconds() const override { return elapsed_.elapsed() + passed_over_; }

  bool WaitForEvent(qint64 at_most) override {
    constexpr qint64 kShort = 10;
    QEventLoop loop;
    QTimer::singleShot(is_hasty ? 1 : std::min(at_most, kShort), &loop, &QEventLoop::quit);
    loop.exec();
    const bool is_decided = socket_.state() == QAbstractSocket::ConnectedState ||
                            socket_.state() == QAbstractSocket::UnconnectedState;
    if (is_hasty && is_decided && at_most > kShort) passed_over_ += at_most;
    return true;
  }

 private:
  const QTcpSocket& socket_;
  QElapsedTimer elapsed_;
  qint64 passed_over_ = 0;
};

/// The window's real ports, which can be in a hurry.
class HastyPorts {
 public:
  HastyPorts()
      : ports_(&owner_),
        timer_(owner_.findChild<QTimer*>(u"Timer1"_s)),
        clock_(*owner_.findChild<QTcpSocket*>(u"Winsock1"_s)),
        hasty_{ports_.Ports().serial, ports_.Ports().tcp, ports_.Ports().timer, clock_} {
    HurryTicks(false);
  }

  const Brivon1::PanelPorts* Ports() const { return &hasty_; }
  bool IsTimerRunning() const { return timer_->isActive(); }
  void HurryConnecting(bool hurry) { clock_.is_hasty = hurry; }

  /// A tick still counts for 100 ms, and comes after 60, so that on a busy machine an answer still
  /// comes in time; or after two, where nothing is awaited that comes.
  void HurryTicks(bool hurry) { timer_->setInterval(hurry ? 2 : 60); }

 private:
  QObject owner_;
  Brivon1::WindowPorts ports_;
  QTimer* timer_;
  HastyClock clock_;
  Brivon1::PanelPorts hasty_;
};

/// Whether no answer that counts comes any more once the fault has set in.
bool IsFinal(LineFault fault) {
  return fault == LineFault::kSilent || fault == LineFault::kSilent5 ||
         fault == LineFault::kGarbage || fault == LineFault::kLowerCase ||
         fault == LineFault::kStrayByte || fault == LineFault::kFlood;
}

/// Whether a real line can show this case. The test and the panel share a thread, so that nothing
/// comes between the opening of a port and the first frame.
bool CanBeReal(LineKind line, LineFault fault, Moment moment) {
  if (moment != Moment::kBefore) return true;
  return !PanelFault(fault) && !(line == LineKind::kSerial && fault == LineFault::kCloseAfter);
}

/// The part that is tried each time.
bool IsChosen(const FaultyWindow& window, LineFault fault, Moment moment) {
  const QByteArrayView name = window.name;
  if (name == "Polling" || name == "SetClock") {
    return fault == LineFault::kCloseAfter && moment != Moment::kBefore;
  }
  if (fault == LineFault::kSilent4 || fault == LineFault::kSilent5 ||
      fault == LineFault::kLowerCase || fault == LineFault::kLate) {
    return false;
  }
  if (name == "Page") return moment == Moment::kBefore || moment == Moment::kMiddleRow;
  return moment == Moment::kBefore || moment == static_cast<Moment>(window.frames_at.size());
}

class RealCase {
 public:
  RealCase(const FaultyWindow& window, LineKind line, LineFault fault, Moment moment)
      : window_(window),
        line_(line),
        fault_(fault),
        frame_(*FrameAt(window, moment)),
        moment_(moment),
        bench_(line, {window.window.panel}) {
    bench_.Engine().Receive(window.older);
  }

  void Try(const Outcome& outcome) {
    const QString path = window_.window.write_file(bench_.Folder());
    SendDialog dialog(window_.window.make(path, TriesAll() ? nullptr : hasty_.Ports()),
                      window_.window.locked);
    window_.window.fill_in(dialog);
    const QList<bool> enabled = EnabledControls(dialog);
    const qsizetype older = bench_.Frames().size();
    const QString target =
        line_ == LineKind::kTcp ? u"127.0.0.1:%1"_s.arg(bench_.Tcp().Port()) : bench_.Device();
    {
      const auto listener =
          QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived,
                           &dialog.window, [this] { LookAtFrame(); });
      if (frame_ == 0) {
        SetInBefore(&dialog.window);
      } else if (frame_ == 1 || fault_ == LineFault::kCloseAfter) {
        SetIn();
      }
      const MessageBoxReader boxes;
      dialog.Click("butSend");
      QObject::disconnect(listener);
      ExpectBoxes(boxes, window_, line_, outcome, bench_.Folder(), target + u": "_s + Reason());
    }
    const QList<QByteArray> frames = FramesOf(window_, moment_, outcome);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bench_.Frames().size() >= older + frames.size(); }));
    EXPECT_EQ(WithoutTimes(bench_.Frames().mid(older)), frames);
    EXPECT_EQ(window_.held(bench_.Engine()), HeldAfter(window_, outcome));
    ExpectAtRest(dialog, enabled);

    if (fault_ == LineFault::kCloseAfter && line_ == LineKind::kSerial) {
      // The port goes once its last answer has been read.
      EXPECT_TRUE(QTest::qWaitFor([&] { return !bench_.Port().IsPlugged(); }));
    }
    hasty_.HurryTicks(false);
    hasty_.HurryConnecting(true);
    bench_.Fail({});
    bench_.PlugIn();
    const qsizetype before = bench_.Frames().size();
    EXPECT_EQ(dialog.Send(), QStringList{window_.window.finished(line_)});
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return bench_.Frames().size() >= before + window_.window.frames.size(); }));
    EXPECT_EQ(WithoutTimes(bench_.Frames().mid(before)), window_.window.frames);
    EXPECT_EQ(window_.held(bench_.Engine()), window_.held_after);
    ExpectAtRest(dialog, enabled);
  }

 private:
  void LookAtFrame() {
    ++frames_;
    // The answer to the frame before it has come by now.
    if (frames_ == frame_ && IsFinal(fault_)) hasty_.HurryTicks(true);
    if (frames_ == frame_ - 1 && fault_ != LineFault::kCloseAfter) SetIn();
    // Not from inside the panel, which is still at the frame.
    if (frames_ == frame_ && !PanelFault(fault_) && fault_ != LineFault::kCloseAfter) {
      QTimer::singleShot(0, &bench_.Engine(), [this] { CutLine(); });
    }
  }

  /// The next frame has no answer any more that is right, or none at all.
  void SetIn() {
    if (fault_ == LineFault::kCloseAfter) {
      bench_.Fail({.close_after_frame = frame_});
    } else {
      bench_.Fail(PanelFault(fault_).value_or(VirtualPanel::Faults{.silent = true}));
    }
  }

  void SetInBefore(QObject* context) {
    if (fault_ != LineFault::kCloseAfter && fault_ != LineFault::kReset) {
      bench_.Unplug();
      return;
    }
    // The connection is closed as soon as it stands.
    hasty_.HurryConnecting(false);
    auto* look = new QTimer(context);
    QObject::connect(look, &QTimer::timeout, look, [this, look] {
      if (bench_.Tcp().ConnectionCount() == 0) return;
      CutLine();
      look->deleteLater();
      look->stop();
    });
    look->start(1);
  }

  void CutLine() {
    switch (fault_) {
      case LineFault::kReset:
        for (const auto* socket : bench_.Tcp().findChildren<QTcpSocket*>()) {
          ResetOnClose(socket->socketDescriptor());
        }
        bench_.Tcp().DropConnections();
        break;
      case LineFault::kCloseAfter:
        bench_.Tcp().DropConnections();
        break;
      case LineFault::kReplugged:
        bench_.Unplug();
        bench_.PlugIn();
        break;
      default:
        bench_.Unplug();
    }
  }

  QString Reason() const {
    if (line_ == LineKind::kSerial) return u"No such file or directory"_s;
    return fault_ == LineFault::kRefused || fault_ == LineFault::kReplugged
               ? u"Connection refused"_s
               : u"The remote host closed the connection"_s;
  }

  void ExpectAtRest(SendDialog& dialog, const QList<bool>& enabled) {
    EXPECT_TRUE(dialog.IsReady());
    EXPECT_EQ(EnabledControls(dialog), enabled);
    EXPECT_TRUE(bench_.IsReleased());
    EXPECT_FALSE(hasty_.IsTimerRunning());
  }

  const FaultyWindow& window_;
  LineKind line_;
  LineFault fault_;
  int frame_;
  Moment moment_;
  PanelBench bench_;
  HastyPorts hasty_;
  int frames_ = 0;
};

class RealLineFaults : public testing::TestWithParam<FaultPlace> {};

INSTANTIATE_TEST_SUITE_P(All, RealLineFaults, testing::ValuesIn(FaultPlaces()), FaultPlaceName);

TEST_P(RealLineFaults, EndAsTheTablesSay) {
  const auto& [window, line] = GetParam();
  int cases = 0;
  for (const LineFault fault : kLineFaults) {
    for (const Moment moment : kMoments) {
      SCOPED_TRACE(std::string(NameOf(fault)) + ", " + NameOf(moment));
      const auto expected = ExpectedOutcome(*window, line, fault, moment);
      ASSERT_TRUE(expected);
      if (!std::holds_alternative<Outcome>(*expected) || !CanBeReal(line, fault, moment)) continue;
      if (!TriesAll() && !IsChosen(*window, fault, moment)) continue;
      ++cases;
      RealCase(*window, line, fault, moment).Try(std::get<Outcome>(*expected));
    }
  }
  EXPECT_GE(cases, 1);
  RecordProperty("cases", cases);
}

}  // namespace
