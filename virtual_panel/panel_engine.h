// The panels on one line: what they hold, show and answer. Bytes go in, answers come out; the
// engine knows no socket, no port, no window and no wall clock (the time is asked of a function
// passed in).
//
// How a panel behaves:
// - It obeys what carries its own address and acknowledges it with its own address prefix and CR
// LF, also
//   what it does not understand or has no use for. It obeys address 0 silently. It ignores the
//   rest.
// - The set-clock frame carries no address: every panel takes it. On a line with several panels
// only one
//   may answer it, or the answers would collide: the one of SetClockAnswer, by default the lowest
//   ID.
// - It shows its running page. While none has been run (or the running one has been deleted), it
// shows the
//   page of which it last received a row, so that something can be seen right after the first
//   sending.
#pragma once

#include <functional>
#include <map>
#include <optional>

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QObject>

#include "faults.h"
#include "frame.h"
#include "message_text.h"
#include "panel_description.h"

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

struct FrameRecord {
  QDateTime time;
  QString line;             // the name of the line it came by
  QByteArray bytes;         // as received, with its line end
  int addressee = kNobody;  // a panel's ID, kEveryPanel or kNobody
  Meaning meaning = Meaning::kNotUnderstood;
  int page = -1;
  int row = -1;
  bool obeyed = false;  // at least one panel did what it says
  QString description;  // what it meant and what became of it, in words
  QByteArray answer;    // every byte that is sent for it; empty: not answered
};

struct StoredRow {
  QByteArray
      text;  // as sent, from behind the page code to before CR LF, the closing blank included
  QList<Cell> cells;  // without the closing blank
};

using StoredPage = QMap<int, StoredRow>;  // by row, from 1

struct Panel {
  PanelDescription description;
  QMap<int, StoredPage> pages;      // by page number
  std::optional<int> running_page;  // may be a page that is not stored: an empty one
  std::optional<int> last_received_page;
  qint64 stored_bytes = 0;

  std::optional<int> ShownPage() const { return running_page ? running_page : last_received_page; }
};

class PanelEngine : public QObject {
  Q_OBJECT

 public:
  using TimeSource = std::function<QDateTime()>;

  // What is remembered of the traffic: the last frames, and no more bytes of them than this.
  static constexpr int kMostRememberedFrames = 10'000;
  static constexpr qint64 kMostRememberedBytes = 16'777'216;
  // A panel's memory: a row that does not fit is acknowledged and dropped.
  static constexpr int kMostPages = 1000;
  static constexpr qint64 kMostStoredBytes = 67'108'864;

  // Of several panels with the same ID the first is taken.
  explicit PanelEngine(
      const QList<PanelDescription>& panels,
      TimeSource now = [] { return QDateTime::currentDateTime(); }, QObject* parent = nullptr);

  // Takes bytes as they arrive on a connection that has `splitter` for its own, and returns what is
  // to be sent back on it. `line` names the line in the records.
  QList<Answer> Receive(FrameSplitter* splitter, QByteArrayView bytes, const QString& line);
  // The same for the one connection of a test.
  QList<Answer> Receive(QByteArrayView bytes);

  void SetFaults(const Faults& faults);  // counts anew
  const Faults& CurrentFaults() const { return faults_; }

  // The panel that acknowledges the set-clock frame, or none.
  void SetClockAnswer(std::optional<int> id) { clock_answer_ = id; }

  QList<int> PanelIds() const;                         // ascending
  const Panel* FindPanel(int id) const;                // null: no such panel
  QMap<int, QByteArray> Page(int id, int page) const;  // the rows' texts; empty: not stored
  std::optional<int> RunningPage(int id) const;
  std::optional<int> ShownPage(int id) const;
  StoredPage ShownRows(int id) const;
  // The panel's own date and time, a wall-clock reading held as UTC; invalid: no such panel.
  QDateTime Clock(int id) const;
  qint64 ClockOffset(int id) const;  // by how many ms it is ahead of the machine's
  QDateTime Now() const { return now_(); }

  const QList<FrameRecord>& Frames() const { return frames_; }
  qint64 FrameCount() const { return frame_count_; }  // also those that are no longer remembered

 Q_SIGNALS:
  void FrameReceived(const VirtualPanel::FrameRecord& record);
  void Changed();  // what a panel holds, shows or has for its clock

 private:
  struct Member {
    Panel panel;
    QDateTime clock_set_to;
    qint64 clock_set_at = 0;  // in the time source's milliseconds
  };

  QList<Answer> Handle(const ReceivedFrame& received, const QString& line);
  bool Obey(const Frame& frame, Member* member, QString* note);
  bool StoreRow(const Frame& frame, Panel* panel, QString* note);
  QList<Answer> AnswerWith(const QByteArray& acknowledgement);
  void Remember(const FrameRecord& record);
  const Member* FindMember(int id) const;

  TimeSource now_;
  std::map<int, Member> members_;
  std::optional<int> clock_answer_;
  FrameSplitter own_splitter_;
  Faults faults_;
  int answers_swallowed_ = 0;
  int frames_since_faults_ = 0;
  QList<FrameRecord> frames_;
  qint64 remembered_bytes_ = 0;
  qint64 frame_count_ = 0;
};

}  // namespace VirtualPanel
