// Which window each button of the launcher opens.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QDialog>

struct TaskWindow {
  const char* button;                                ///< The button's name.
  std::function<std::unique_ptr<QDialog>()> create;  ///< Makes the window, without an owner.
};

/// The task windows of the program. A button without one is disabled.
std::vector<TaskWindow> TaskWindows();
