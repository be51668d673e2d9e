// The end of a line: waits until the last bytes have gone, without holding the program up.
#pragma once

#include <functional>

#include <QObject>
#include <QTimer>

namespace VirtualPanel {

class LastBytes : public QObject {
  Q_OBJECT

 public:
  // `are_gone` says whether nothing is on its way any more.
  explicit LastBytes(std::function<bool()> are_gone, QObject* parent = nullptr);

  // Emits Finished once they are gone, at the latest after two seconds.
  void Await();
  void Stop() { timer_.stop(); }

 Q_SIGNALS:
  void Finished();

 private:
  void Look();

  std::function<bool()> are_gone_;
  QTimer timer_;
  int looks_ = 0;
};

}  // namespace VirtualPanel
