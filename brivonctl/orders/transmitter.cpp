#include "orders/transmitter.h"

#include <map>
#include <utility>

#include "language/module_language.h"
#include "panel_line/transmission.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

using Brivon1::PanelListEntry;
using Brivon1::Progress;
using Brivon1::SendMode;

/// Counts what a transmission reports of itself.
class Count {
 public:
  Count(int panel, Transmission* transmission) : panel_(panel), transmission_(transmission) {}

  void TakeIn(const Progress& progress) {
    if (progress.milliseconds_left >= 0) return;
    // The next row, or the schedule behind the last one, is begun when a row has arrived.
    MoveTo(progress);
    ++transmission_->attempts;
  }

  /// `progress` is where it ended, reported or not.
  void TakeInEnd(const Progress& progress, bool succeeded) {
    MoveTo(progress);
    if (succeeded) AcknowledgeRow();
  }

 private:
  static std::pair<int, int> Place(const Progress& progress) {
    return {progress.file, progress.is_schedule ? 0 : progress.row};
  }

  void MoveTo(const Progress& progress) {
    if (place_ != Place(progress)) AcknowledgeRow();
    place_ = Place(progress);
  }

  void AcknowledgeRow() {
    const bool is_row = place_.second > 0;
    if (is_row && panel_ != 0) ++transmission_->acknowledged_rows;
  }

  int panel_;
  Transmission* transmission_;
  std::pair<int, int> place_;
};

/// What a stop ends may have come less far than the transmission before it: what that one brought
/// is on the panel all the same.
void TakeOver(const Transmission& previous, Transmission* stopped) {
  if (stopped->result.result != Result::kStopped) return;
  const bool is_begun = stopped->attempts > 0;
  if (is_begun && stopped->acknowledged_rows >= previous.acknowledged_rows) return;
  stopped->acknowledged_rows = previous.acknowledged_rows;
  stopped->result.reason = previous.result.text + u'\n' + previous.result.reason;
}

}  // namespace

QList<PanelsOfALine> ByLine(const QList<PanelListEntry>& panels, SendMode mode) {
  if (mode == SendMode::kSerial) return {panels};
  QList<PanelsOfALine> lines;
  std::map<std::pair<QByteArray, int>, qsizetype> places;
  for (const PanelListEntry& panel : panels) {
    const auto [place, is_new] =
        places.emplace(std::pair(panel.endpoint.host, panel.endpoint.port), lines.size());
    if (is_new) lines.append(PanelsOfALine());
    lines[place->second].append(panel);
  }
  return lines;
}

Transmitter::Transmitter(const Assignment& assignment, const Brivon1::PanelPorts& ports,
                         const Tell& tell)
    : assignment_(assignment),
      tell_(tell),
      mode_(ModeFor(assignment.order, assignment.configuration)),
      connection_(ports) {}

void Transmitter::Serve(const PanelsOfALine& panels) {
  std::deque<Turn> turns;
  for (const PanelListEntry& panel : panels) turns.push_back({panel, 1, {}});
  while (!turns.empty()) {
    const Turn turn = turns.front();
    turns.pop_front();
    Transmission transmission = Transmit(turn);
    if (turn.number > 1) TakeOver(turn.previous, &transmission);
    transmission.is_last = transmission.result.result != Result::kFailed ||
                           turn.number > assignment_.further_transmissions;
    if (!transmission.is_last) turns.push_back({turn.panel, turn.number + 1, transmission});
    // The serial port serves all panels, a connection one transmission.
    if (mode_ != SendMode::kSerial) Close();
    tell_(std::move(transmission));
  }
  Close();
}

Transmission Transmitter::Transmit(const Turn& turn) {
  Transmission transmission;
  transmission.begun = assignment_.now();
  transmission.number = turn.number;
  connection_.Timer().ProcessEvents();  // a stop may have been asked for
  if (connection_.Timer().stop.made) {
    transmission.result = NotBegun(turn.panel.id);
    return transmission;
  }
  transmission.digest = assignment_.order.Digest();
  if (OpenFor(turn.panel)) {
    transmission.result = TransmitOverLine(turn, &transmission);
  } else {
    transmission.result = NotOpened(connection_, mode_, turn.panel.id);
  }
  return transmission;
}

PanelResult Transmitter::TransmitOverLine(const Turn& turn, Transmission* transmission) {
  Count count(turn.panel.id, transmission);
  const auto show_progress = [&](const Progress& progress) {
    count.TakeIn(progress);
    if (assignment_.tells_steps) tell_(Step{turn.panel.id, progress});
  };
  Brivon1::OpenLine line{connection_.Link(),        connection_.Timer(),   connection_.Clock(),
                         assignment_.configuration, [](const QString&) {}, show_progress};
  const PanelResult result = CarryOut(line, assignment_.order, turn.panel, assignment_.now);
  count.TakeInEnd(line.progress, result.result == Result::kOk);
  return result;
}

bool Transmitter::OpenFor(const PanelListEntry& panel) {
  if (is_open_ && !connection_.Link().IsLost()) {
    // A late answer of the panel before is none of this one.
    Brivon1::DiscardInput(connection_.Link());
    return true;
  }
  Close();
  is_open_ = connection_.Open(mode_, assignment_.configuration, panel.endpoint);
  return is_open_;
}

void Transmitter::Close() {
  if (std::exchange(is_open_, false)) connection_.Close();
}

}  // namespace BrivonCtl
