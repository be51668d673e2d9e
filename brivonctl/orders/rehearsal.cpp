#include "orders/rehearsal.h"

#include <utility>

#include "panel_line/framing.h"
#include "panel_line/link.h"

namespace BrivonCtl {
namespace {

/// A line to a panel that acknowledges each frame.
class RehearsedLink : public Brivon1::PanelLink {
 public:
  explicit RehearsedLink(int panel) : panel_(panel) {}

  const QList<QByteArray>& Frames() const { return frames_; }

  void Write(const QByteArray& bytes) override {
    frames_.append(bytes);
    answer_ = Brivon1::Acknowledgement(panel_);
  }
  qint64 Unsent() const override { return 0; }
  int Speed() const override { return 9600; }
  QByteArray ReadAvailable() override { return std::exchange(answer_, {}); }
  bool IsLost() const override { return false; }
  void Close() override {}
  QString FailureReason() const override { return {}; }

 private:
  int panel_;
  QByteArray answer_;
  QList<QByteArray> frames_;
};

/// Every wait is over at once.
class RehearsedTimer : public Brivon1::TickTimer {
 public:
  void Enable() override {}
  void Disable() override {}
  bool WaitForEvent() override {
    Tick();
    return true;
  }
  void ProcessEvents() override {}
};

class RehearsedClock : public Brivon1::MillisecondClock {
 public:
  qint64 Milliseconds() const override { return now_; }
  bool WaitForEvent(qint64 at_most) override {
    now_ += at_most;
    return true;
  }

 private:
  qint64 now_ = 0;
};

}  // namespace

Rehearsal Rehearse(const Order& order, const Brivon1::PanelListEntry& panel,
                   const Brivon1::Configuration& configuration, const TimeSource& now) {
  RehearsedLink link(panel.id);
  RehearsedTimer timer;
  RehearsedClock clock;
  Brivon1::OpenLine line{link, timer, clock, configuration, [](const QString&) {}};
  Rehearsal rehearsal;
  rehearsal.result = CarryOut(line, order, panel, now);
  rehearsal.frames = link.Frames();
  return rehearsal;
}

PanelResult Rehearsals::Of(const Brivon1::PanelListEntry& panel) {
  const qint16 colour_type = configuration_.panels[static_cast<std::size_t>(panel.id)].colour_type;
  const Kind kind{panel.rows, panel.columns, colour_type};
  const auto known = results_.find(kind);
  if (known != results_.end()) return known->second;
  const auto now = [] { return QDateTime::currentDateTime(); };
  return results_[kind] = Rehearse(order_, panel, configuration_, now).result;
}

}  // namespace BrivonCtl
