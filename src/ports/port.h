// A serial port of this machine as the programs use it: opened with all of its settings at once,
// written to without waiting, heard of when something happened. What carries it, the toolkit's own
// module or Boost's, is decided where the programs are built.
#pragma once

#include <memory>

#include <QByteArray>
#include <QObject>
#include <QString>

namespace Ports {

/// Lives in one thread with an event loop, and tells it what happened by signals.
class Port : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// Opens the system's port `name` for this program alone: `baud_rate`, 8 data bits, no parity, 1
  /// stop bit, no flow control, both control lines raised. A port that is open is closed first.
  /// False, with the system's reason in ErrorString(), if it fails.
  virtual bool Open(const QString& name, int baud_rate) = 0;

  /// False also a moment after the port was lost.
  virtual bool IsOpen() const = 0;

  /// True once the port is gone, until it is opened again.
  virtual bool IsLost() const = 0;

  /// Why the port could not be opened or was lost, in the system's words.
  virtual QString ErrorString() const = 0;

  /// Raise or drop a control line; a port that has no such line goes on without it.
  virtual void SetDtr(bool raised) = 0;
  virtual void SetRts(bool raised) = 0;

  /// Sends `bytes` behind what was sent before. What the system has no room for follows as soon as
  /// it has, while events are handled. Nothing is written to a port that is lost or closed.
  virtual void Write(const QByteArray& bytes) = 0;

  /// How many of the bytes written the system has not taken yet.
  virtual qint64 Waiting() const = 0;

  /// How many have not left this machine, those that wait among them, as far as the system can
  /// tell; 0 once the port is lost or closed.
  virtual qint64 Unsent() const = 0;

  /// Gives up what has not left.
  virtual void Discard() = 0;

  /// Everything that has arrived, also before the port was lost, removed from it. Where nothing has
  /// it waits up to `wait` milliseconds for the first byte, asleep. What arrives without end is
  /// handed over in bounded portions.
  virtual QByteArray Read(int wait = 0) = 0;

  /// Closes the port at once. What has not left by then is given up.
  virtual void Close() = 0;

 Q_SIGNALS:
  /// Bytes have arrived that nobody has read.
  void Arrived();
  /// The system has taken some of the bytes that waited.
  void BytesHaveLeft();
  /// The port is gone: said once, until it is opened again.
  void Lost();
};

/// The port that this program was built with.
std::unique_ptr<Port> MakePort();

}  // namespace Ports
