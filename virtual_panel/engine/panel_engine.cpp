#include "engine/panel_engine.h"

#include <type_traits>
#include <utility>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

// What a panel answers; an empty answer where there is no panel.
template <typename Question>
std::invoke_result_t<Question, const Panel&> Ask(const Panel* panel, const Question& question) {
  if (panel == nullptr) return {};
  return question(*panel);
}

}  // namespace

PanelEngine::PanelEngine(const QList<PanelDescription>& panels, TimeSource now, QObject* parent)
    : QObject(parent), now_(std::move(now)) {
  const QDateTime start = now_();
  for (const PanelDescription& description : panels) {
    panels_.try_emplace(description.id, description, start);
  }
  if (!panels_.empty()) clock_answer_ = panels_.begin()->first;
}

QList<Answer> PanelEngine::Receive(FrameSplitter* splitter, QByteArrayView bytes,
                                   const QString& line) {
  QList<Answer> answers;
  const QList<ReceivedFrame> frames = splitter->Feed(bytes);
  for (const ReceivedFrame& frame : frames) answers += Handle(frame, line);
  return answers;
}

QList<Answer> PanelEngine::Receive(QByteArrayView bytes) {
  return Receive(&own_splitter_, bytes, QString());
}

void PanelEngine::SetFaults(const Faults& faults) {
  answering_.SetFaults(faults);
  Q_EMIT FaultsChanged();
}

bool PanelEngine::Play(int id, char letter) {
  const auto panel = panels_.find(id);
  if (panel == panels_.end() || !panel->second.Play(letter, now_())) return false;
  Q_EMIT Changed();
  return true;
}

bool PanelEngine::Run(int id, int page) {
  const auto panel = panels_.find(id);
  if (panel == panels_.end() || !panel->second.Run(page, now_())) return false;
  Q_EMIT Changed();
  return true;
}

QList<Answer> PanelEngine::Handle(const ReceivedFrame& received, const QString& line) {
  Frame frame = ParseFrame(received.bytes);
  if (received.too_long) {
    // It was dropped on its way in: no panel has it, so none answers.
    frame = Frame{};
    frame.meaning = Meaning::kTooLong;
  }
  const Outcome outcome = Obey(frame);
  QList<Answer> answers = answering_.AnswerWith(outcome.acknowledgement);

  FrameRecord record;
  record.time = now_();
  record.line = line;
  record.bytes = received.bytes;
  record.addressee = frame.addressee;
  record.meaning = frame.meaning;
  record.page = frame.page;
  record.row = frame.row;
  record.obeyed = outcome.obeyed;
  record.description = Describe(frame);
  if (!outcome.notes.isEmpty()) {
    record.description += u": "_s + outcome.notes.join(u"; "_s);
  }
  for (const Answer& answer : std::as_const(answers)) {
    if (record.answer.isEmpty()) record.answer_after_ms = answer.after_ms;
    record.answer += answer.bytes;
  }
  traffic_.Remember(record);

  Q_EMIT FrameReceived(record);
  if (outcome.obeyed && frame.meaning != Meaning::kPoll) Q_EMIT Changed();
  return answers;
}

PanelEngine::Outcome PanelEngine::Obey(const Frame& frame) {
  Outcome outcome;
  const bool is_for_all = frame.addressee == kEveryPanel || frame.meaning == Meaning::kSetClock;
  for (auto& [id, panel] : panels_) {
    if (!is_for_all && frame.addressee != id) continue;
    QString note;
    if (panel.Obey(frame, now_(), play_on_arrival_, &note)) outcome.obeyed = true;
    if (!note.isEmpty() && !outcome.notes.contains(note)) outcome.notes.append(note);
    if (frame.addressee == id || (frame.meaning == Meaning::kSetClock && clock_answer_ == id)) {
      outcome.acknowledgement = AddressPrefix(id) + "\r\n";
    }
  }
  if (frame.addressee > 0 && FindPanel(frame.addressee) == nullptr) {
    outcome.notes.append(u"no panel %1 on this line"_s.arg(frame.addressee));
  }
  return outcome;
}

// ---- what the panels are asked ------------------------------------------------------------------

QList<int> PanelEngine::PanelIds() const {
  QList<int> ids;
  for (const auto& [id, panel] : panels_) ids.append(id);
  return ids;
}

const Panel* PanelEngine::FindPanel(int id) const {
  const auto found = panels_.find(id);
  return found == panels_.end() ? nullptr : &found->second;
}

QMap<int, QByteArray> PanelEngine::Page(int id, int page) const {
  return Ask(FindPanel(id), [page](const Panel& panel) {
    QMap<int, QByteArray> texts;
    const StoredPage rows = panel.Memory().Pages().value(page);
    for (auto row = rows.cbegin(); row != rows.cend(); ++row) texts.insert(row.key(), row->text);
    return texts;
  });
}

std::optional<Playing> PanelEngine::PlayingAt(int id, const QDateTime& now) const {
  return Ask(FindPanel(id), [&](const Panel& panel) { return panel.PlayingAt(now); });
}

std::optional<int> PanelEngine::RunningPage(int id, const QDateTime& now) const {
  return Ask(FindPanel(id), [&](const Panel& panel) { return panel.RunningPage(now); });
}

std::optional<int> PanelEngine::ShownPage(int id, const QDateTime& now) const {
  return Ask(FindPanel(id), [&](const Panel& panel) { return panel.ShownPage(now); });
}

StoredPage PanelEngine::ShownRows(int id, const QDateTime& now) const {
  return Ask(FindPanel(id), [&](const Panel& panel) { return panel.ShownRows(now); });
}

std::optional<PageEntrance> PanelEngine::LastEntrance(int id, const QDateTime& now) const {
  return Ask(FindPanel(id), [&](const Panel& panel) { return panel.LastEntrance(now); });
}

QDateTime PanelEngine::Clock(int id, const QDateTime& now) const {
  return Ask(FindPanel(id), [&](const Panel& panel) { return panel.Clock(now); });
}

std::optional<QDateTime> PanelEngine::NextChange(int id, const QDateTime& now) const {
  return Ask(FindPanel(id), [&](const Panel& panel) { return panel.NextChange(now); });
}

qint64 PanelEngine::ClockOffset(int id) const {
  return Ask(FindPanel(id), [now = now_()](const Panel& panel) { return panel.ClockOffset(now); });
}

std::optional<QDateTime> PanelEngine::NextChange(const QDateTime& now) const {
  std::optional<QDateTime> first;
  for (const auto& [id, panel] : panels_) {
    const auto next = panel.NextChange(now);
    if (next && (!first || *next < *first)) first = next;
  }
  return first;
}

}  // namespace VirtualPanel
