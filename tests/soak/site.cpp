#include "soak/site.h"

#include <algorithm>

#include <QTimeZone>

#include "orders/transmitter.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

using BrivonCtl::Action;
using VirtualPanel::PanelDescription;

namespace {

constexpr int kLongestPause = 300;

const QDateTime kMorning(QDate(2024, 5, 6), QTime(8, 0), QTimeZone::utc());

Action ActionOf(WorkKind kind) {
  switch (kind) {
    case WorkKind::kPage:
      return Action::kSendPage;
    case WorkKind::kSchedule:
      return Action::kSendSchedule;
    case WorkKind::kScrolling:
      return Action::kSendScrolling;
    case WorkKind::kPoll:
      return Action::kPoll;
    case WorkKind::kSetClock:
      return Action::kSetClock;
    case WorkKind::kDeleteAll:
      return Action::kDeleteAll;
    case WorkKind::kDeletePage:
      return Action::kDeletePage;
    case WorkKind::kRunPage:
      return Action::kRunPage;
  }
  return Action::kPoll;
}

Told::End EndOf(BrivonCtl::Result result) {
  if (result == BrivonCtl::Result::kOk) return Told::End::kFinished;
  return result == BrivonCtl::Result::kStopped ? Told::End::kStopped : Told::End::kFailed;
}

QByteArray Entry(const PanelDescription& panel) {
  return "ID" + QByteArray::number(panel.id).rightJustified(3, '0') + '=' +
         QByteArray::number(panel.rows) + 'x' + QByteArray::number(panel.columns) +
         (panel.tri_colour ? ",Tri" : ",Mono") + ",127.0.0.1:2101\r\n";
}

/// The most milliseconds that `work` may take: every attempt with its time-out and its pauses, and
/// twice what its bytes need, five times each.
qint64 LongestTime(const Work& work, int speed) {
  constexpr qint64 kAttempt = 1100 + 300 + kLongestPause;
  constexpr qint64 kAroundIt = 500 + 5 * kLongestPause + 300 + 2 * 2000;
  qint64 bytes = 20;
  for (const QByteArray& frame : work.frames) bytes += frame.size();
  const auto frames = std::max<qint64>(work.frames.size(), 1);
  return 5 * frames * kAttempt + kAroundIt + 2 * 5 * bytes * 10'000 / speed;
}

}  // namespace

Site::Site(quint64 start)
    : random_(start),
      panels_(RandomPanels(random_)),
      engine_(panels_, [this] { return kMorning.addMSecs(time_.Now()); }),
      serial_(engine_, time_, u"serial"_s),
      tcp_(engine_, time_, u"tcp"_s) {
  QObject::connect(
      &engine_, &VirtualPanel::PanelEngine::FrameReceived,
      [this](const VirtualPanel::FrameRecord& record) { received_.append(record.bytes); });
}

void Site::Configure(bool over_tcp) {
  QByteArray ini = "[Dimension Config]\r\n";
  PanelDescription all = panels_.first();
  all.id = 0;
  ini += Entry(all);
  for (const PanelDescription& panel : panels_) ini += Entry(panel);
  const int speed = random_.OneOf<int>({300, 1200, 2400, 4800, 9600, 19200, 38400});
  ini += "[Communication]\r\nComPort=2\r\nBaudrate=" + QByteArray::number(speed) +
         "\r\nSendMode=" + (over_tcp ? "TCPIP" : "RS232") +
         "\r\nDelay Period=" + QByteArray::number(100 * random_.Below(4)) +
         "\r\n[Serial Ports]\r\nCom2=line\r\n";
  folder_.Configure(ini);
}

void Site::Prepare(const Hostility& hostility) {
  engine_.SetFaults(hostility.faults);
  serial_.PlugIn();
  tcp_.PlugIn();
  serial_.needs_time = hostility.is_slow;
  const auto is_lost = [this, loses = hostility.loses_frames] { return loses && random_.OneIn(3); };
  serial_.is_lost_on_its_way = is_lost;
  tcp_.is_lost_on_its_way = is_lost;
  const auto unplug = [this] {
    serial_.Unplug();
    tcp_.Unplug();
  };
  if (hostility.is_refused) unplug();
  if (hostility.unplugged_at >= 0) time_.Schedule(hostility.unplugged_at, unplug);
  timer_.stop = {};
  if (hostility.stopped_at >= 0) {
    time_.Schedule(hostility.stopped_at, [this] { timer_.stop.made = true; });
  }
}

Told Site::Send(const Work& work) {
  BrivonCtl::Assignment assignment;
  assignment.order = {ActionOf(work.kind), work.path, work.number};
  assignment.configuration = Brivon1::Store();
  assignment.now = [this] { return engine_.Now(); };
  Brivon1::PanelListEntry entry{work.panel.id, static_cast<qint16>(work.panel.rows),
                                static_cast<qint16>(work.panel.columns),
                                Brivon1::ReadEndpoint("127.0.0.1:2101")};
  Told told;
  const BrivonCtl::Tell tell = [&told](const BrivonCtl::Happening& happening) {
    if (const auto* transmission = std::get_if<BrivonCtl::Transmission>(&happening)) {
      told = {EndOf(transmission->result.result), transmission->result.reason};
    }
  };
  BrivonCtl::Transmitter(assignment, ports_, tell).Serve({entry});
  return told;
}

Site::Outcome Site::Transfer(qint64 serial) {
  const bool over_tcp = random_.OneIn(2);
  Configure(over_tcp);
  PanelDescription panel = random_.OneOf(panels_);
  if (random_.OneIn(20)) {
    panel = panels_.first();
    panel.id = 0;
  }
  const Work work = RandomWork(random_, panel, folder_, serial);
  const Hostility hostility = RandomHostility(random_, panel.id != 0);
  Prepare(hostility);
  received_.clear();
  const qint64 begin = time_.Now();
  const int cuts = serial_.Cuts();

  const Told told = Send(work);
  Outcome outcome{told.end, LeftOver(), received_.size(), serial_.Cuts() > cuts};
  if (outcome.wrong.isEmpty()) {
    outcome.wrong = Wrong(told, work, hostility, time_.Now() - begin);
  }
  LetItEnd();
  if (outcome.wrong.isEmpty() && time_.Pending() > 0) outcome.wrong = u"something goes on"_s;
  if (!outcome.wrong.isEmpty()) {
    outcome.wrong +=
        u"\n  "_s + Describe(work) + (over_tcp ? u", TCP"_s : u", serial"_s) +
        u", told: %1 %2\n  faults: %3%4%5, stop %6, unplugged %7"_s.arg(static_cast<int>(told.end))
            .arg(told.why, VirtualPanel::NamesOf(hostility.faults).join(u' '),
                 hostility.is_slow ? u" slow"_s : QString(),
                 hostility.loses_frames ? u" loses frames"_s : QString())
            .arg(hostility.stopped_at)
            .arg(hostility.unplugged_at);
    for (const QByteArray& frame : received_) {
      outcome.wrong += u"\n  "_s + QString::fromLatin1(frame.trimmed());
    }
  }
  return outcome;
}

void Site::LetItEnd() {
  constexpr qint64 kLongest = 60'000;
  const qint64 end = time_.Now() + kLongest;
  while (time_.Pending() > 0 && time_.Now() < end) time_.Advance(end - time_.Now());
}

QString Site::LeftOver() const {
  if (serial_.IsOpen() || tcp_.IsOpen()) return u"a line is open"_s;
  if (timer_.IsEnabled() || timer_.waiting) return u"the timer runs"_s;
  return {};
}

QString Site::Wrong(const Told& told, const Work& work, const Hostility& hostility,
                    qint64 milliseconds) const {
  const QString untruth = Untruth(told, work, engine_, received_);
  if (!untruth.isEmpty()) return u"what was told is not true: "_s + untruth;
  const Outlook outlook = OutlookOf(work, hostility);
  if (outlook == Outlook::kFinishes && told.end != Told::End::kFinished) return u"not finished"_s;
  if (outlook == Outlook::kFails && told.end != Told::End::kFailed) return u"not failed"_s;
  if (told.end == Told::End::kStopped && hostility.stopped_at < 0) return u"nobody stopped it"_s;
  const int speed = hostility.is_slow ? Brivon1::Store().baud_rate : 38400;
  if (milliseconds > LongestTime(work, speed)) {
    return u"it has taken %1 ms"_s.arg(milliseconds);
  }
  return hostility.is_slow ? QString() : WrongFrame(work, received_);
}
