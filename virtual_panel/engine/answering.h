// What is sent back for a frame, and when: the acknowledgement as the faults leave it.
#pragma once

#include <QByteArray>
#include <QList>

#include "engine/faults.h"

namespace VirtualPanel {

// One step of an answer. The steps of an answer come in the order of their time.
struct Answer {
  enum class Step {
    kSend,   // send `bytes`
    kClose,  // cut the connection; what was sent before still arrives
    kFlood,  // send bytes without end, as fast as the other end takes them
  };

  Step step = Step::kSend;
  QByteArray bytes;
  int after_ms = 0;  // counted from the arrival of the frame

  friend bool operator==(const Answer&, const Answer&) = default;
};

class Answering {
 public:
  void SetFaults(const Faults& faults);  // those that count begin anew
  const Faults& CurrentFaults() const { return faults_; }

  // The answer to the next frame, which a sound panel would answer with `acknowledgement`, or not
  // at all if that is empty.
  QList<Answer> AnswerWith(const QByteArray& acknowledgement);

 private:
  bool IsSwallowed();
  QByteArray Spoiled(QByteArray acknowledgement) const;

  Faults faults_;
  int answers_swallowed_ = 0;
  int frames_since_faults_ = 0;
};

}  // namespace VirtualPanel
