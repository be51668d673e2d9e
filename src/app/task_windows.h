// Which window each button of the launcher opens.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QDialog>

#include "panel_line/panel_connection.h"

struct TaskWindow {
  const char* button;                                ///< The button's name.
  std::function<std::unique_ptr<QDialog>()> create;  ///< Makes the window, without an owner.
};

/// The task windows of the program. A button without one is disabled. `ports` are those of the
/// windows that send, as SendingSession takes them.
std::vector<TaskWindow> TaskWindows(const Brivon1::PanelPorts* ports = nullptr);
