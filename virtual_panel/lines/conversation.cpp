#include "lines/conversation.h"

#include <utility>

namespace VirtualPanel {
namespace {

// A flood keeps this much on its way: enough to be without a gap, little enough to be stopped at
// once.
constexpr qint64 kFloodAhead = 16'384;
constexpr qsizetype kFloodPiece = 4096;
constexpr char kFloodByte = 'U';
// After so much it rests for a moment, which the other end does not notice: on Windows whoever
// always has something to write would keep all others from their turn.
constexpr qint64 kFloodTurn = 1'048'576;
constexpr int kFloodRestMs = 1;

}  // namespace

Conversation::Conversation(PanelEngine* engine, QString line, Outlet* outlet, QObject* parent)
    : QObject(parent), engine_(engine), line_(std::move(line)), outlet_(outlet) {
  clock_.start();
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &Conversation::Play);
  flood_rest_.setSingleShot(true);
  flood_rest_.setTimerType(Qt::PreciseTimer);
  connect(&flood_rest_, &QTimer::timeout, this, &Conversation::BytesHaveLeft);
}

void Conversation::Receive(QByteArrayView bytes) {
  if (hung_up_) return;
  const QList<Answer> answers = engine_->Receive(&splitter_, bytes, line_);
  const qint64 arrival = clock_.elapsed();
  for (const Answer& answer : answers) {
    if (steps_.size() >= kMostWaitingSteps) break;
    // A line keeps its order: nothing overtakes what came before it.
    const qint64 earliest = steps_.isEmpty() ? 0 : steps_.last().due;
    steps_.enqueue({answer, qMax(earliest, arrival + answer.after_ms)});
  }
  Play();
}

void Conversation::BytesHaveLeft() {
  if (flooding_ && !flood_rest_.isActive()) Flood();
}

qint64 Conversation::Held() const {
  // A step, with the bytes that it sends on the heap.
  constexpr qsizetype kStepSize = sizeof(Step) + 64;
  return splitter_.Held() + steps_.size() * kStepSize + outlet_->Unsent();
}

void Conversation::Reset() {
  splitter_ = FrameSplitter();
  steps_.clear();
  timer_.stop();
  flood_rest_.stop();
  flooding_ = false;
  flooded_ = 0;
  hung_up_ = false;
}

void Conversation::Play() {
  while (!hung_up_ && !steps_.isEmpty()) {
    const qint64 wait = steps_.head().due - clock_.elapsed();
    if (wait > 0) {
      timer_.start(static_cast<int>(wait));
      return;
    }
    Answer answer = steps_.dequeue().answer;
    switch (answer.step) {
      case Answer::Step::kSend:
        // Else the answer might be read before the flood has begun.
        if (IsFloodNext()) {
          answer.bytes.append(kFloodPiece, kFloodByte);
          flooded_ += kFloodPiece;
        }
        if (outlet_->Unsent() + answer.bytes.size() <= kMostUnsent) outlet_->Send(answer.bytes);
        break;
      case Answer::Step::kFlood:
        flooding_ = true;
        if (!flood_rest_.isActive()) Flood();
        break;
      case Answer::Step::kClose:
        hung_up_ = true;
        flooding_ = false;
        steps_.clear();
        outlet_->HangUp();
        break;
    }
  }
}

bool Conversation::IsFloodNext() const {
  return engine_->CurrentFaults().flood && !steps_.isEmpty() &&
         steps_.head().answer.step == Answer::Step::kFlood;
}

void Conversation::Flood() {
  if (!engine_->CurrentFaults().flood) {
    flooding_ = false;
    return;
  }
  while (outlet_->Unsent() < kFloodAhead) {
    if (flooded_ >= kFloodTurn) {
      flooded_ = 0;
      flood_rest_.start(kFloodRestMs);
      return;
    }
    flooded_ += kFloodPiece;
    const qint64 before = outlet_->Unsent();
    outlet_->Send(QByteArray(kFloodPiece, kFloodByte));
    // An outlet that passes everything on at once is fed again when the event loop comes round.
    if (outlet_->Unsent() <= before) {
      QTimer::singleShot(0, this, &Conversation::BytesHaveLeft);
      return;
    }
  }
}

}  // namespace VirtualPanel
