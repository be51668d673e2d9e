#include "fuzz/frames.h"

#include <utility>

#include "fuzz/must.h"
#include "panel_line/link.h"

namespace Fuzz {
namespace {

/// The addresses of the panels that are sent to, as the reference writes them.
QByteArray AddressOf(int id) {
  switch (id) {
    case 1:
      return "<ID01>";
    case 7:
      return "<ID07>";
    case 26:
      return "<ID1A>";
    case 255:
      return "<IDFF>";
    default:
      throw Broken("a panel of which the address is known");
  }
}

class AcknowledgingLink : public Brivon1::PanelLink {
 public:
  explicit AcknowledgingLink(int id) : id_(id) {}

  const QList<QByteArray>& Frames() const { return frames_; }

  void Write(const QByteArray& bytes) override {
    frames_.append(bytes);
    answer_ = AddressOf(id_) + "\r\n";
  }
  qint64 Unsent() const override { return 0; }
  int Speed() const override { return 9600; }
  QByteArray ReadAvailable() override { return std::exchange(answer_, {}); }
  bool IsLost() const override { return false; }
  void Close() override {}
  QString FailureReason() const override { return {}; }

 private:
  int id_;
  QByteArray answer_;
  QList<QByteArray> frames_;
};

/// Every wait is over at once.
class EagerTimer : public Brivon1::TickTimer {
 public:
  void Enable() override {}
  void Disable() override {}
  bool WaitForEvent() override {
    Tick();
    return true;
  }
  void ProcessEvents() override {}
};

class EagerClock : public Brivon1::MillisecondClock {
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

void MustBeFrame(const QByteArray& frame, int id, const QByteArray& source) {
  Must(frame.startsWith(AddressOf(id)), "a frame begins with the panel's address");
  Must(frame.endsWith("\r\n"), "a frame ends with CR LF");
  // A file's lines end at LF, so that none can stand within one; a CR can.
  Must(frame.count('\n') == 1, "a frame has one LF, at its end");
  Must(frame.count('\r') - 1 <= source.count('\r'),
       "a frame has no CR that the file did not bring");
}

QList<QByteArray> FramesOf(int id, qint16 colour_type,
                           const std::function<void(Brivon1::OpenLine& line)>& send) {
  AcknowledgingLink link(id);
  EagerTimer timer;
  EagerClock clock;
  Brivon1::Configuration configuration;
  configuration.panels[static_cast<std::size_t>(id)].colour_type = colour_type;
  Brivon1::OpenLine line{link, timer, clock, configuration, [](const QString&) {}};
  send(line);
  return link.Frames();
}

}  // namespace Fuzz
