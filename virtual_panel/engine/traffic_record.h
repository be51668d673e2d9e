// What has gone over the lines: every frame with what it meant and what was answered, the last ones
// of them remembered.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include "engine/frame.h"

namespace VirtualPanel {

struct FrameRecord {
  QDateTime time;
  QString line;             // the name of the line it came by
  QByteArray bytes;         // as received, with its line end
  int addressee = kNobody;  // a panel's ID, kEveryPanel or kNobody
  Meaning meaning = Meaning::kNotUnderstood;
  int page = -1;
  int row = -1;
  bool obeyed = false;      // at least one panel did what it says
  QString description;      // what it meant and what became of it, in words
  QByteArray answer;        // every byte that is sent for it; empty: not answered
  int answer_after_ms = 0;  // when its first byte is sent, counted from `time`
};

class TrafficRecord {
 public:
  // The last frames, and no more bytes of them than this.
  static constexpr int kMostFrames = 10'000;
  static constexpr qint64 kMostBytes = 16'777'216;

  void Remember(const FrameRecord& record);
  const QList<FrameRecord>& Frames() const { return frames_; }
  qint64 Count() const { return count_; }  // also those that are no longer remembered

 private:
  QList<FrameRecord> frames_;
  qint64 bytes_ = 0;
  qint64 count_ = 0;
};

}  // namespace VirtualPanel
