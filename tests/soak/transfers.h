// Transfers of random work to random panels that misbehave at random, one after the other, in
// virtual time: after each, what was told of it is compared with what the panels hold, and nothing
// may be left over.
#pragma once

#include <vector>

#include <QByteArray>
#include <QString>
#include <QStringList>

struct TransferCount {
  qint64 transfers = 0;
  qint64 finished = 0;
  qint64 failed = 0;
  qint64 stopped = 0;
  qint64 frames = 0;
  qint64 cut = 0;           ///< Ended while bytes had not left a slow line.
  qint64 milliseconds = 0;  ///< Of virtual time.
};

class Transfers {
 public:
  /// Each transfer leaves `leak` bytes behind: what counts memory is to find that.
  Transfers(quint64 start, int leak) : start_(start), leak_(leak) {}

  static constexpr int kOfASite = 100;

  /// Sets up the next site, other panels than the last one's, carries out kOfASite transfers there
  /// and takes it down.
  void RunSite();

  const TransferCount& Count() const { return count_; }

  /// What was wrong, with what makes the same transfer happen again.
  const QStringList& Faults() const { return faults_; }

 private:
  quint64 start_;
  int leak_;
  int sites_ = 0;
  TransferCount count_;
  QStringList faults_;
  std::vector<QByteArray> leaked_;
};
