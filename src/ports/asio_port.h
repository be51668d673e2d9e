// A serial port carried by Boost.Asio: the adapter where the toolkit's own module is not to be had.
// On Linux it knows the standard speeds alone, and refuses the others.
#pragma once

#include "ports/async_port.h"
#include "ports/port.h"

namespace Ports {

class AsioPort final : public Port {
 public:
  AsioPort();

  bool Open(const QString& name, int baud_rate) override;
  bool IsOpen() const override { return port_.IsOpen(); }
  bool IsLost() const override { return is_lost_ || port_.IsLost(); }
  QString ErrorString() const override { return error_; }
  void SetDtr(bool raised) override { port_.SetDtr(raised); }
  void SetRts(bool raised) override { port_.SetRts(raised); }
  void Write(const QByteArray& bytes) override;
  qint64 Waiting() const override;
  qint64 Unsent() const override;
  void Discard() override { port_.Discard(); }
  QByteArray Read(int wait) override;
  void Close() override;

 private:
  void TakeInNews();
  void Lose();

  bool is_lost_ = false;
  QByteArray saved_;  // what had arrived when the port was lost
  QString error_;
  AsyncPort port_;
};

}  // namespace Ports
