#include "app/task_windows.h"

#include "command/frmCommand.h"
#include "config/frmConfig.h"
#include "page/frmMsgEditor.h"
#include "schedule/frmSchedule.h"
#include "scrolling/frmShiftMsg.h"

namespace {

// The entry that opens a window of class `Window`, whose constructor takes its owner.
template <typename Window>
TaskWindow Opens(const char* button) {
  return {button, [] { return std::make_unique<Window>(nullptr); }};
}

}  // namespace

std::vector<TaskWindow> TaskWindows() {
  return {Opens<frmMsgEditor>("butMsgEdit"), Opens<frmShiftMsg>("butShiftMsg"),
          Opens<frmSchedule>("butSchEdit"), Opens<frmConfig>("butConfigEdit"),
          Opens<frmCommand>("butCommand")};
}
