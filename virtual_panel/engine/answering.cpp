#include "engine/answering.h"

namespace VirtualPanel {
namespace {

constexpr char kGarbage[] = "#?#?#?#?";
constexpr char kStrayByte = '\xFF';

QByteArray LowerCaseDigits(QByteArray acknowledgement) {
  // "<IDhh>": only the digits change their case.
  for (const qsizetype at : {3, 4}) {
    const char digit = acknowledgement[at];
    if (digit >= 'A') acknowledgement[at] = static_cast<char>(digit - 'A' + 'a');
  }
  return acknowledgement;
}

}  // namespace

void Answering::SetFaults(const Faults& faults) {
  faults_ = faults;
  answers_swallowed_ = 0;
  frames_since_faults_ = 0;
}

QList<Answer> Answering::AnswerWith(const QByteArray& acknowledgement) {
  QList<Answer> answers;
  int time = faults_.late_ms;
  if (!acknowledgement.isEmpty() && !IsSwallowed()) {
    const QByteArray bytes = Spoiled(acknowledgement);
    const qsizetype pieces = qBound(qsizetype{1}, qsizetype{faults_.pieces}, bytes.size());
    for (qsizetype piece = 0; piece < pieces; ++piece) {
      const qsizetype begin = bytes.size() * piece / pieces;
      const qsizetype end = bytes.size() * (piece + 1) / pieces;
      if (piece > 0) time += faults_.piece_pause_ms;
      answers.append({Answer::Step::kSend, bytes.sliced(begin, end - begin), time});
    }
  }
  if (faults_.flood) answers.append({Answer::Step::kFlood, {}, time});

  ++frames_since_faults_;
  if (faults_.close_after_frame > 0 && frames_since_faults_ == faults_.close_after_frame) {
    answers.append({Answer::Step::kClose, {}, time});
  }
  return answers;
}

bool Answering::IsSwallowed() {
  if (faults_.silent) return true;
  if (answers_swallowed_ >= faults_.silent_answers) return false;
  ++answers_swallowed_;
  return true;
}

QByteArray Answering::Spoiled(QByteArray acknowledgement) const {
  if (faults_.garbage) {
    acknowledgement = kGarbage;
  } else if (faults_.lower_case) {
    acknowledgement = LowerCaseDigits(acknowledgement);
  }
  if (faults_.stray_byte) acknowledgement.prepend(kStrayByte);
  return acknowledgement;
}

}  // namespace VirtualPanel
