// Panels on a serial port of this machine: 8 data bits, no parity, 1 stop bit.
#pragma once

#include <memory>

#include "lines/conversation.h"
#include "lines/last_bytes.h"
#include "ports/port.h"

namespace VirtualPanel {

class SerialLine : public QObject, private Outlet {
  Q_OBJECT

 public:
  static constexpr qint32 kUsualBaudRate = 9600;

  // The engine must outlive the line.
  explicit SerialLine(PanelEngine* engine, QObject* parent = nullptr,
                      std::unique_ptr<Ports::Port> port = Ports::MakePort());
  ~SerialLine() override;

  // `device` is a name such as ttyS0 or a path. False, with the reason in ErrorString, if it fails.
  bool Open(const QString& device, qint32 baud_rate = kUsualBaudRate);
  bool IsOpen() const { return is_open_; }
  QString ErrorString() const { return error_; }
  // Takes the panels off the line.
  void Unplug();

 Q_SIGNALS:
  void Unplugged(const QString& reason);

 private:
  void Send(const QByteArray& bytes) override;
  qint64 Unsent() const override;
  void HangUp() override;
  void Close();
  void Lose(const QString& reason);

  std::unique_ptr<Ports::Port> port_;
  Conversation conversation_;
  LastBytes last_bytes_;
  bool is_open_ = false;
  QString error_;
};

}  // namespace VirtualPanel
