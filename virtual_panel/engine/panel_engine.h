// The panels on one line. Bytes go in, answers come out; the engine knows no socket, no port, no
// window and no wall clock (the time is asked of a function passed in).
//
// Who answers: a panel obeys what carries its own address and acknowledges it with its own address
// prefix and CR LF, also what it does not understand or has no use for. It obeys address 0
// silently. It ignores the rest. The set-clock frame carries no address: every panel takes it. On
// a line with several panels only one may answer it, or the answers would collide: the one of
// SetClockAnswer, by default the lowest ID.
#pragma once

#include <functional>
#include <map>
#include <optional>

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QObject>

#include "engine/answering.h"
#include "engine/frame.h"
#include "engine/panel.h"
#include "engine/panel_description.h"
#include "engine/traffic_record.h"

namespace VirtualPanel {

class PanelEngine : public QObject {
  Q_OBJECT

 public:
  using TimeSource = std::function<QDateTime()>;

  // Of several panels with the same ID the first is taken.
  explicit PanelEngine(
      const QList<PanelDescription>& panels,
      TimeSource now = [] { return QDateTime::currentDateTime(); }, QObject* parent = nullptr);

  // Takes bytes as they arrive on a connection that has `splitter` for its own, and returns what is
  // to be sent back on it. `line` names the line in the records.
  QList<Answer> Receive(FrameSplitter* splitter, QByteArrayView bytes, const QString& line);
  // The same for the one connection of a test.
  QList<Answer> Receive(QByteArrayView bytes);

  void SetFaults(const Faults& faults);  // those that count begin anew
  const Faults& CurrentFaults() const { return answering_.CurrentFaults(); }

  // The panel that acknowledges the set-clock frame, or none.
  void SetClockAnswer(std::optional<int> id) { clock_answer_ = id; }

  // As Panel::Play and Panel::Run; also false: there is no such panel.
  bool Play(int id, char letter);
  bool Run(int id, int page);
  // Plays the schedule of this letter as soon as it arrives, due or not.
  void SetPlayOnArrival(std::optional<char> letter) { play_on_arrival_ = letter; }

  QList<int> PanelIds() const;                         // ascending
  const Panel* FindPanel(int id) const;                // null: no such panel
  QMap<int, QByteArray> Page(int id, int page) const;  // the rows' texts; empty: not stored
  QDateTime Now() const { return now_(); }

  // What Panel says under the same name; of a panel that is not there nothing, and 0.
  std::optional<Playing> PlayingAt(int id, const QDateTime& now) const;
  std::optional<int> RunningPage(int id, const QDateTime& now) const;
  std::optional<int> ShownPage(int id, const QDateTime& now) const;
  StoredPage ShownRows(int id, const QDateTime& now) const;
  std::optional<PageEntrance> LastEntrance(int id, const QDateTime& now) const;
  QDateTime Clock(int id, const QDateTime& now) const;
  std::optional<QDateTime> NextChange(int id, const QDateTime& now) const;
  qint64 ClockOffset(int id) const;
  // The first change of all panels.
  std::optional<QDateTime> NextChange(const QDateTime& now) const;

  // The same, now.
  std::optional<int> RunningPage(int id) const { return RunningPage(id, now_()); }
  std::optional<int> ShownPage(int id) const { return ShownPage(id, now_()); }
  StoredPage ShownRows(int id) const { return ShownRows(id, now_()); }
  QDateTime Clock(int id) const { return Clock(id, now_()); }

  const QList<FrameRecord>& Frames() const { return traffic_.Frames(); }
  qint64 FrameCount() const { return traffic_.Count(); }

 Q_SIGNALS:
  void FrameReceived(const VirtualPanel::FrameRecord& record);
  // What a panel holds, shows or has for its clock, by a frame, by Play or by Run; not by the time
  // alone.
  void Changed();
  void FaultsChanged();

 private:
  // What became of a frame.
  struct Outcome {
    bool obeyed = false;
    QByteArray acknowledgement;  // empty: none
    QStringList notes;
  };

  QList<Answer> Handle(const ReceivedFrame& received, const QString& line);
  Outcome Obey(const Frame& frame);

  TimeSource now_;
  std::map<int, Panel> panels_;
  std::optional<int> clock_answer_;
  std::optional<char> play_on_arrival_;
  FrameSplitter own_splitter_;
  Answering answering_;
  TrafficRecord traffic_;
};

}  // namespace VirtualPanel
