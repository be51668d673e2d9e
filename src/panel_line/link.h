// What the rules need of the outside world: a serial port, a TCP socket, a 100 ms tick timer and a
// millisecond clock. The real ones are thin adapters over the toolkit; tests pass in scripted ones.
#pragma once

#include <QByteArray>
#include <QString>

namespace Brivon1 {

/// An open line to the panels. It carries bytes and knows nothing of frames.
class PanelLink {
 public:
  virtual ~PanelLink() = default;

  /// Sends `bytes` behind what was sent before, without waiting for them to leave: what the system
  /// has no room for follows as soon as it has, while events are handled. Nothing is written to a
  /// lost line.
  virtual void Write(const QByteArray& bytes) = 0;

  /// How many of the bytes written have not left this machine yet, as far as the system can tell;
  /// 0 once the line is lost or closed.
  virtual qint64 Unsent() const = 0;

  /// How fast what was written leaves, at the least, in bits per second; a byte is ten bits.
  virtual int Speed() const = 0;

  /// Gives up what has not left. Of a frame that has left in part only, the panel would take the
  /// next one for the rest: where it does not see the line closing, a line end follows, which is
  /// all that Unsent() counts then. Any other line is closed.
  virtual void GiveUp() { Close(); }

  /// Everything that has arrived at this machine since the last read, removed from the line. What a
  /// panel sends without end is handed over in bounded portions.
  virtual QByteArray ReadAvailable() = 0;

  /// True once the line is gone: unplugged, or closed by the other end. It stays so until the line
  /// is opened again.
  virtual bool IsLost() const = 0;

  /// Closes the line at once, if it is open. What has not left by then is given up.
  virtual void Close() = 0;

  /// Why the line could not be opened, in words for the operator; empty when nothing is known.
  virtual QString FailureReason() const = 0;
};

class SerialPort : public PanelLink {
 public:
  /// Opens the system's device `device` with `settings`, the baud rate followed by ",N,8,1".
  /// Returns false on any error; the port is closed then.
  virtual bool Open(const QString& device, const QByteArray& settings) = 0;

  /// Raises or drops a control line of the open port, which the system has raised at opening. A
  /// port that has no such line goes on without it.
  virtual void SetDtr(bool raised) = 0;
  virtual void SetRts(bool raised) = 0;
};

class TcpSocket : public PanelLink {
 public:
  /// Requests a connection from any free local port; returns at once. A socket that is in use is
  /// closed first.
  virtual void Connect(const QString& host, int port) = 0;

  virtual bool IsConnected() const = 0;
};

/// The operator's wish to end a transmission before its end. It holds until it is taken back.
struct StopRequest {
  bool made = false;
};

/// The timer of a window that sends, with the counters that its ticks advance.
class TickTimer {
 public:
  static constexpr qint16 kInterval = 100;  ///< Milliseconds.

  virtual ~TickTimer() = default;

  /// Starts the ticks; changes nothing while they run.
  virtual void Enable() = 0;
  virtual void Disable() = 0;

  /// Lets the window live, asleep, until something happened that a wait may be waiting for: a tick,
  /// bytes, a lost line. Returns false when the program is ending; every wait ends then.
  virtual bool WaitForEvent() = 0;

  /// Lets the window handle what is already due, without sleeping, unless it did so a moment ago.
  virtual void ProcessEvents() = 0;

  /// The tick handler: advances the counters by the interval, up to kLongestDelayPeriod.
  void Tick();

  qint16 ack_tick_counter = 0;   ///< Milliseconds since the acknowledgement wait began.
  qint16 wait_tick_counter = 0;  ///< Milliseconds since WaitTicks began.
  bool waiting = false;          ///< True while WaitTicks runs.
  qint16 last_ack_status = 0;    ///< 1 acknowledged, 0 a wrong answer, -1 no answer in time.
  bool program_ends = false;     ///< Set by the first wait that the program's end cut short.
  StopRequest stop;              ///< Made by the operator; whoever begins a transmission clears it.
};

class MillisecondClock {
 public:
  virtual ~MillisecondClock() = default;

  /// Milliseconds since some fixed moment; never runs backwards.
  virtual qint64 Milliseconds() const = 0;

  /// Lets the window live, asleep, until something happened or `at_most` milliseconds have passed.
  /// Returns false when the program is ending.
  virtual bool WaitForEvent(qint64 at_most) = 0;
};

}  // namespace Brivon1
