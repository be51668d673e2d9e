// Panels at the end of a pseudo-terminal: a serial line without any hardware. The other end opens
// the terminal (or a symbolic link that is made to it) like any serial port, as often as it likes.
#pragma once

#include <memory>

#include <QSocketNotifier>

#include "lines/conversation.h"
#include "lines/line_output.h"

namespace VirtualPanel {

class PtyLine : public QObject, private Outlet {
  Q_OBJECT

 public:
  // The engine must outlive the line.
  explicit PtyLine(PanelEngine* engine, QObject* parent = nullptr);
  ~PtyLine() override;

  // Makes a pseudo-terminal and, if `link` is not empty, a symbolic link of that name to it. A link
  // that an earlier pseudo-terminal left there is replaced, anything else is not. False, with the
  // reason in ErrorString, if it fails. After Unplug it can be opened again, under a new device
  // name.
  bool Open(const QString& link = QString());
  bool IsPlugged() const { return master_ >= 0; }
  // Somebody has the terminal open.
  bool IsInUse() const { return IsPlugged() && users_ != 0; }
  QString DeviceName() const { return device_; }  // such as /dev/pts/3; empty: not plugged
  QString LinkName() const { return link_; }
  QString ErrorString() const { return error_; }

  // Vanishes as an adapter does that is pulled: whoever has it open gets errors, the link is gone.
  void Unplug();

 Q_SIGNALS:
  void Unplugged();

 private:
  void Send(const QByteArray& bytes) override;
  qint64 Unsent() const override;
  void HangUp() override;

  // Bytes that the other end could read and has not.
  qint64 Unread() const;
  bool Fail(const QString& what);
  bool MakeLink(const QString& link);
  void TakeInOpenings();
  void Read();

  static constexpr int kUnknown = -1;

  Conversation conversation_;
  int master_ = -1;
  int slave_ = -1;     // held open, so that the terminal outlives whoever uses it
  int openings_ = -1;  // tells when somebody opens or closes the terminal
  int users_ = kUnknown;
  std::unique_ptr<QSocketNotifier> readable_;
  std::unique_ptr<QSocketNotifier> opened_;
  std::unique_ptr<LineOutput> output_;
  QString device_;
  QString link_;
  QString error_;
};

}  // namespace VirtualPanel
