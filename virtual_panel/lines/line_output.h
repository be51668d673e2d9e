// The way out through a descriptor that does not block. A write takes what the system has room for,
// the rest waits in the event loop: a full buffer is no error.
#pragma once

#include <functional>

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QTimer>

#include "lines/last_bytes.h"

namespace VirtualPanel {

class LineOutput : public QObject {
  Q_OBJECT

 public:
  // `on_its_way` says how many bytes the system still holds of those that were written.
  LineOutput(int descriptor, std::function<qint64()> on_its_way, QObject* parent = nullptr);

  void Send(const QByteArray& bytes);
  // Bytes that were sent and that the system has not taken yet.
  qint64 Unsent() const { return unsent_.size(); }
  void Clear() { unsent_.clear(); }
  // Emits Finished once everything that was sent has gone, at the latest after two seconds.
  void Finish() { last_bytes_.Await(); }
  // Lets go of the descriptor and says nothing any more.
  void Close();

 Q_SIGNALS:
  void BytesHaveLeft();
  // The descriptor itself is lost.
  void Failed(const QString& reason);
  void Finished();

 private:
  void Write();

  int descriptor_;
  QSocketNotifier writable_;
  QTimer again_;
  LastBytes last_bytes_;
  QByteArray unsent_;
};

}  // namespace VirtualPanel
