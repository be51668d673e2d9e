// The serial port of a window that sends: the rules' SerialPort over a port of the system.
#pragma once

#include <memory>

#include <QObject>

#include "panel_line/link.h"
#include "ports/port.h"

namespace Brivon1 {

class SerialLink : public QObject, public SerialPort {
  Q_OBJECT

 public:
  /// The port object becomes a child named "Comm1".
  explicit SerialLink(QObject* parent, std::unique_ptr<Ports::Port> port = Ports::MakePort());

  bool Open(const QString& device, const QByteArray& settings) override;
  void SetDtr(bool raised) override { port_->SetDtr(raised); }
  void SetRts(bool raised) override { port_->SetRts(raised); }
  void Write(const QByteArray& bytes) override;
  qint64 Unsent() const override { return port_->Unsent(); }
  int Speed() const override { return baud_rate_; }
  void GiveUp() override;
  QByteArray ReadAvailable() override;
  bool IsLost() const override { return port_->IsLost(); }
  void Close() override { port_->Close(); }
  QString FailureReason() const override { return failure_reason_; }

 Q_SIGNALS:
  /// Bytes have arrived, the last ones that waited were handed to the system, or the line was lost.
  void Happened();

 private:
  void TakeInLeaving();

  Ports::Port* port_;
  int baud_rate_ = 9600;
  bool has_had_to_wait_ = false;  // bytes have been written that the system had no room for
  bool answer_is_due_ = false;    // a frame has been written and nothing read since
  QString failure_reason_;
};

}  // namespace Brivon1
