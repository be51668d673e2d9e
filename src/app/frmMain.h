// The launcher: the program's first window, which starts the program up and then opens one task
// window at a time.
#pragma once

#include <memory>
#include <vector>

#include <QDialog>
#include <QPointer>
#include <QWidget>

#include "app/task_windows.h"

namespace Ui {
class frmMain;
}

class frmMain : public QWidget {
  Q_OBJECT

 public:
  /// Loads the configuration, decides from "brivon.ini" whether the texts of the language file are
  /// in use, and takes its own from there if they are.
  explicit frmMain(std::vector<TaskWindow> windows = TaskWindows());
  ~frmMain() override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetUpButtons();
  void LayOut();

  /// Shows a window modal to the application and returns when it is closed.
  void Open(const TaskWindow& task);

  const std::unique_ptr<Ui::frmMain> ui_;
  const std::vector<TaskWindow> windows_;
  QPointer<QDialog> open_window_;
};
