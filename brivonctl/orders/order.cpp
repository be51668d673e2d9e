#include "orders/order.h"

#include "schedule/schedule_transmission.h"

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

const Brivon1::FileSource& Order::Files() const {
  return copies ? static_cast<const Brivon1::FileSource&>(*copies) : Brivon1::Disk();
}

QString Order::SentPath() const {
  return action == Action::kSendSchedule ? Brivon1::SentSchedulePath(path) : path;
}

}  // namespace BrivonCtl
