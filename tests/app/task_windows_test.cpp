// What the launcher's buttons open, one window at a time, and its end.
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QTest>
#include <QTimer>

#include "app/launcher.h"
#include "support/message_box_reader.h"

using namespace Qt::StringLiterals;

namespace {

// A task window of the test's own, which counts how often it is made and destroyed.
class Task : public QDialog {
 public:
  Task() {
    setObjectName(u"task"_s);
    ++made_;
  }
  ~Task() override { ++destroyed_; }

  static inline int made_ = 0;
  static inline int destroyed_ = 0;
};

class TaskWindowTest : public MainWindowTest {
 protected:
  TaskWindowTest() { Task::made_ = Task::destroyed_ = 0; }

  static std::vector<TaskWindow> Tasks() {
    std::vector<TaskWindow> tasks;
    for (const char* button : {"butMsgEdit", "butCommand"}) {
      tasks.push_back({button, [] { return std::make_unique<Task>(); }});
    }
    return tasks;
  }
};

TEST_F(TaskWindowTest, PressingButEndWhileNothingIsSavedEndsTheProgramWithoutAsking) {
  // A window that would refuse to be closed, as one with unsaved work does.
  class Stubborn : public QWidget {
   public:
    void closeEvent(QCloseEvent* event) override {
      ++asked_;
      event->ignore();
    }
    int asked_ = 0;
  };
  Stubborn unsaved;
  unsaved.show();
  frmMain window;
  window.show();
  MessageBoxReader reader;
  QTimer::singleShot(0, &window,
                     [&] { QTest::mouseClick(Button(window, "butEnd"), Qt::LeftButton); });
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_EQ(unsaved.asked_, 0);
  EXPECT_TRUE(reader.Seen().isEmpty());
}

TEST_F(TaskWindowTest, AButtonWithoutAWindowIsDisabled) {
  const frmMain window(Tasks());
  EXPECT_TRUE(Button(window, "butMsgEdit")->isEnabled());
  EXPECT_TRUE(Button(window, "butCommand")->isEnabled());
  EXPECT_TRUE(Button(window, "butEnd")->isEnabled());
  EXPECT_FALSE(Button(window, "butShiftMsg")->isEnabled());
  EXPECT_FALSE(Button(window, "butSchEdit")->isEnabled());
  EXPECT_FALSE(Button(window, "butConfigEdit")->isEnabled());
}

TEST_F(TaskWindowTest, TheProgramsOwnTaskWindowsHaveAButton) {
  const frmMain window;
  for (const TaskWindow& task : TaskWindows()) {
    ASSERT_NE(Button(window, task.button), nullptr) << task.button;
    EXPECT_TRUE(Button(window, task.button)->isEnabled());
  }
}

TEST_F(TaskWindowTest, TheScrollingMessageButtonOpensItsEditorModalAndWithoutAnOwner) {
  frmMain window;
  window.show();
  QString title;
  const ModalWindowDriver driver(Text("frmShiftMsg"), [&](QWidget* task) {
    if (task->windowModality() == Qt::ApplicationModal && task->parentWidget() == nullptr) {
      title = task->windowTitle();
    }
    task->close();
  });
  QTest::mouseClick(Button(window, "butShiftMsg"), Qt::LeftButton);
  EXPECT_EQ(driver.Count(), 1);
  EXPECT_EQ(title, Text("Scrolling Message"));
}

TEST_F(TaskWindowTest, TheScheduleButtonOpensTheScheduleEditor) {
  frmMain window;
  window.show();
  const ModalWindowDriver driver(Text("frmSchedule"), [](QWidget* task) { task->close(); });
  QTest::mouseClick(Button(window, "butSchEdit"), Qt::LeftButton);
  EXPECT_EQ(driver.Count(), 1);
}

TEST_F(TaskWindowTest, ATaskWindowIsModalToTheApplicationWithoutAnOwner) {
  frmMain window(Tasks());
  window.show();
  bool modal = false;
  bool owned = true;
  const ModalWindowDriver driver(Text("task"), [&](QWidget* task) {
    modal =
        QApplication::activeModalWidget() == task && task->windowModality() == Qt::ApplicationModal;
    owned = task->parentWidget() != nullptr;
    task->close();
  });
  QTest::mouseClick(Button(window, "butMsgEdit"), Qt::LeftButton);
  EXPECT_EQ(driver.Count(), 1);
  EXPECT_TRUE(modal);
  EXPECT_FALSE(owned);
}

TEST_F(TaskWindowTest, TheClickReturnsWhenTheWindowIsClosedAndAClosedWindowIsCreatedAfresh) {
  frmMain window(Tasks());
  window.show();
  const ModalWindowDriver driver(Text("task"), [](QWidget* task) {
    EXPECT_EQ(Task::made_, Task::destroyed_ + 1);
    qobject_cast<QDialog*>(task)->accept();
  });
  Button(window, "butMsgEdit")->click();
  EXPECT_EQ(Task::made_, 1);
  EXPECT_EQ(Task::destroyed_, 1);
  Button(window, "butCommand")->click();
  Button(window, "butMsgEdit")->click();
  EXPECT_EQ(Task::made_, 3);
  EXPECT_EQ(Task::destroyed_, 3);
}

TEST_F(TaskWindowTest, NoTwoTaskWindowsAreEverOpenAtOnce) {
  frmMain window(Tasks());
  window.show();
  const ModalWindowDriver driver(Text("task"), [&](QWidget* task) {
    Button(window, "butCommand")->click();
    QTest::mouseClick(Button(window, "butMsgEdit"), Qt::LeftButton);
    EXPECT_EQ(Task::made_, 1);
    task->close();
  });
  Button(window, "butMsgEdit")->click();
  EXPECT_EQ(driver.Count(), 1);
}

TEST_F(TaskWindowTest, AMinimisedTaskWindowIsStillOpen) {
  frmMain window(Tasks());
  window.show();
  bool is_open = false;
  const ModalWindowDriver driver(Text("task"), [&](QWidget* task) {
    task->showMinimized();
    QTimer::singleShot(0, task, [&is_open, task] {
      is_open = task->isMinimized();
      task->close();
    });
  });
  Button(window, "butMsgEdit")->click();
  EXPECT_TRUE(is_open);
  EXPECT_EQ(Task::destroyed_, 1);
}

TEST_F(TaskWindowTest, TheProgramCanBeEndedWhileATaskWindowIsOpen) {
  frmMain window(Tasks());
  window.show();
  const ModalWindowDriver driver(Text("task"), [](QWidget*) { QCoreApplication::exit(); });
  QTimer::singleShot(0, &window, [&] { Button(window, "butMsgEdit")->click(); });
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_EQ(Task::destroyed_, 1);
}

TEST_F(TaskWindowTest, EnterPressesTheFocusedButton) {
  frmMain window(Tasks());
  window.show();
  const ModalWindowDriver driver(Text("task"), [](QWidget* task) { task->close(); });
  QTest::keyClick(Button(window, "butCommand"), Qt::Key_Return);
  QTest::keyClick(Button(window, "butCommand"), Qt::Key_Enter);
  EXPECT_EQ(driver.Count(), 2);
}

TEST_F(TaskWindowTest, EscapeDoesNothing) {
  frmMain window(Tasks());
  window.show();
  QTest::keyClick(Button(window, "butCommand"), Qt::Key_Escape);
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(Task::made_, 0);
}

TEST_F(TaskWindowTest, TabAndArrowKeysGoThroughTheButtonsInTheirOrder) {
  std::vector<TaskWindow> all;
  const char* order[] = {"butMsgEdit", "butShiftMsg", "butSchEdit", "butConfigEdit", "butCommand"};
  for (const char* button : order) all.push_back({button, [] { return std::make_unique<Task>(); }});
  frmMain window(all);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  for (const int key : {Qt::Key_Tab, Qt::Key_Right, Qt::Key_Down}) {
    Button(window, "butMsgEdit")->setFocus();
    for (const char* name : order) {
      ASSERT_EQ(window.focusWidget()->objectName(), Text(name));
      QTest::keyClick(window.focusWidget(), static_cast<Qt::Key>(key));
    }
    EXPECT_EQ(window.focusWidget()->objectName(), Text("butEnd"));
  }
}

}  // namespace
