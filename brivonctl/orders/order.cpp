#include "orders/order.h"

#include <QCryptographicHash>
#include <QFile>

#include "base/code_page.h"
#include "base/files.h"
#include "base/text.h"
#include "schedule/schedule_file.h"
#include "schedule/schedule_reader.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {

QString ActionName(Action action) {
  switch (action) {
    case Action::kSendPage:
      return u"send page"_s;
    case Action::kSendSchedule:
      return u"send schedule"_s;
    case Action::kSendScrolling:
      return u"send scrolling"_s;
    case Action::kPoll:
      return u"poll"_s;
    case Action::kRunPage:
      return u"run"_s;
    case Action::kDeletePage:
      return u"delete"_s;
    case Action::kDeleteAll:
      return u"delete-all"_s;
    case Action::kSetClock:
      return u"clock"_s;
  }
  return {};
}

QString NumberName(Action action) {
  switch (action) {
    case Action::kSendPage:
    case Action::kRunPage:
    case Action::kDeletePage:
      return u"page"_s;
    case Action::kSendSchedule:
      return u"letter"_s;
    case Action::kSendScrolling:
      return u"line"_s;
    case Action::kPoll:
    case Action::kDeleteAll:
    case Action::kSetClock:
      break;
  }
  return {};
}

bool SendsFile(Action action) { return !CommandOf(action).has_value(); }

std::optional<Brivon1::PanelCommand> CommandOf(Action action) {
  switch (action) {
    case Action::kPoll:
      return Brivon1::PanelCommand::kPolling;
    case Action::kRunPage:
      return Brivon1::PanelCommand::kRunPage;
    case Action::kDeletePage:
      return Brivon1::PanelCommand::kDeletePage;
    case Action::kDeleteAll:
      return Brivon1::PanelCommand::kDeleteAll;
    case Action::kSetClock:
      return Brivon1::PanelCommand::kSetClock;
    case Action::kSendPage:
    case Action::kSendSchedule:
    case Action::kSendScrolling:
      break;
  }
  return std::nullopt;
}

QByteArray FileDigest(const QString& path) {
  QFile file(path);
  QCryptographicHash hash(QCryptographicHash::Sha256);
  if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) return {};
  return hash.result().toHex();
}

QByteArray ContentDigest(const Order& order) {
  if (!SendsFile(order.action)) return {};
  QCryptographicHash hash(QCryptographicHash::Sha256);
  hash.addData(FileDigest(order.path));
  if (order.action == Action::kSendSchedule) {
    Brivon1::ScheduleReader schedule(order.path);
    const int steps = schedule.Head() ? schedule.Head()->sequences : 0;
    for (int step = 0; step < steps; ++step) {
      const auto path = schedule.NextPath();
      if (!path || !schedule.NextDetails()) break;
      const QString name = Brivon1::CodePage::System().ToText(
          Brivon1::TrimBlanks(*path).left(Brivon1::kLongestPath));
      hash.addData(FileDigest(Brivon1::FindFile(Brivon1::InProgramFolder(name))));
    }
  }
  return hash.result();
}

}  // namespace BrivonCtl
