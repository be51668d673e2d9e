#include "app/task_windows.h"

#include <QDateTime>

#include "command/frmCommand.h"
#include "config/frmConfig.h"
#include "page/frmMsgEditor.h"
#include "schedule/frmSchedule.h"
#include "scrolling/frmShiftMsg.h"

std::vector<TaskWindow> TaskWindows(const Brivon1::PanelPorts* ports) {
  const auto now = [] { return QDateTime::currentDateTime(); };
  return {{"butMsgEdit", [ports] { return std::make_unique<frmMsgEditor>(nullptr, ports); }},
          {"butShiftMsg", [=] { return std::make_unique<frmShiftMsg>(nullptr, now, ports); }},
          {"butSchEdit",
           [=] {
             return std::make_unique<frmSchedule>(nullptr, &Brivon1::IsMessageFileThere, now,
                                                  ports);
           }},
          {"butConfigEdit", [] { return std::make_unique<frmConfig>(nullptr); }},
          {"butCommand", [ports] { return std::make_unique<frmCommand>(nullptr, ports); }}};
}
