#include "app/task_windows.h"

namespace {

// The entry that opens a window of class `Window`, such as
// Opens<frmCommand>("butCommand") for one whose constructor takes its owner.
template <typename Window>
[[maybe_unused]] TaskWindow Opens(const char* button) {
  return {button, [] { return std::make_unique<Window>(nullptr); }};
}

}  // namespace

std::vector<TaskWindow> TaskWindows() { return {}; }
