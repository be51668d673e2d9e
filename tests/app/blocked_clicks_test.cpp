// A click into the launcher while a task window is open.
#include <functional>
#include <memory>

#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "app/launcher.h"
#include "support/message_box_reader.h"

using namespace Qt::StringLiterals;

namespace {

class Task : public QDialog {
 public:
  Task() {
    setObjectName(u"task"_s);
    setGeometry(600, 300, 100, 100);
  }
};

class BlockedClicksTest : public MainWindowTest {
 protected:
  BlockedClicksTest() : launcher_({{"butMsgEdit", [] { return std::make_unique<Task>(); }}}) {
    launcher_.move(20, 20);
    launcher_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&launcher_));
  }

  /// Opens the task window and has `look` look at it.
  void WithTask(const std::function<void(QDialog&)>& look) {
    int looked = 0;
    QTimer::singleShot(0, &launcher_, [&] {
      auto* task = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(task, nullptr);
      look(*task);
      ++looked;
      task->close();
    });
    Button(launcher_, "butMsgEdit")->click();
    EXPECT_EQ(looked, 1);
  }

  /// Clicks as the window system does: through the launcher's own window.
  void ClickAt(const QPoint& place) {
    QCursor::setPos(launcher_.mapToGlobal(place));
    QTest::mousePress(launcher_.windowHandle(), Qt::LeftButton, {}, place);
    QApplication::processEvents();
    QTest::mouseRelease(launcher_.windowHandle(), Qt::LeftButton, {}, place);
    QApplication::processEvents();
  }

  frmMain launcher_;
};

TEST_F(BlockedClicksTest, AClickIntoTheLauncherBringsAMinimisedTaskWindowBack) {
  WithTask([this](QDialog& task) {
    task.showMinimized();
    QApplication::processEvents();
    ASSERT_TRUE(task.isMinimized());
    ClickAt({10, 10});
    EXPECT_FALSE(task.isMinimized());
    EXPECT_TRUE(task.isVisible());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&task));
  });
}

TEST_F(BlockedClicksTest, AClickIntoTheLauncherActivatesACoveredTaskWindow) {
  WithTask([this](QDialog& task) {
    launcher_.windowHandle()->requestActivate();
    QApplication::processEvents();
    ASSERT_FALSE(task.isActiveWindow());
    ClickAt({10, 10});
    EXPECT_TRUE(QTest::qWaitForWindowActive(&task));
  });
}

TEST_F(BlockedClicksTest, AMaximisedTaskWindowComesBackMaximised) {
  WithTask([this](QDialog& task) {
    task.setWindowState(Qt::WindowMaximized | Qt::WindowMinimized);
    QApplication::processEvents();
    ClickAt({10, 10});
    EXPECT_FALSE(task.isMinimized());
    EXPECT_TRUE(task.isMaximized());
  });
}

TEST_F(BlockedClicksTest, AWindowOverTheTaskWindowHasTheKeyboardAgain) {
  WithTask([this](QDialog& task) {
    QDialog question(&task);
    question.setGeometry(620, 320, 50, 50);
    question.open();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&question));
    launcher_.windowHandle()->requestActivate();
    QApplication::processEvents();
    ASSERT_FALSE(question.isActiveWindow());
    ClickAt({10, 10});
    EXPECT_TRUE(QTest::qWaitForWindowActive(&question));
  });
}

TEST_F(BlockedClicksTest, APressElsewhereLeavesAMinimisedTaskWindowAlone) {
  WithTask([this](QDialog& task) {
    task.showMinimized();
    QApplication::processEvents();
    ClickAt({launcher_.width() + 50, 10});
    EXPECT_TRUE(task.isMinimized());
  });
}

TEST_F(BlockedClicksTest, APressIntoAWindowOverTheLauncherIsNotOneIntoTheLauncher) {
  WithTask([this](QDialog& task) {
    QDialog question(&task);
    question.setGeometry(launcher_.geometry());
    question.open();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&question));
    task.showMinimized();
    QApplication::processEvents();
    ClickAt({30, 30});
    EXPECT_TRUE(task.isMinimized());
  });
}

TEST_F(BlockedClicksTest, WithoutATaskWindowAClickIsTheButtonsOwn) {
  const ModalWindowDriver driver(u"task"_s, [](QWidget* task) { task->close(); });
  CaptionButton* button = Button(launcher_, "butMsgEdit");
  ClickAt(button->geometry().center());
  EXPECT_EQ(driver.Count(), 1);
}

}  // namespace
