// Log-out and shutdown, asked for by a real session manager over the toolkit's own desktop plugin,
// while the program's real windows are open.
#include <QApplication>
#include <QDir>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "support/dropped_files.h"
#include "support/message_box_reader.h"
#include "support/panel_bench.h"
#include "support/program_folder.h"
#include "support/session_manager.h"
#include "support/text.h"

namespace {

constexpr const char* kQuestion = "File not saved. Save it now?";

SessionManager* session = nullptr;

class SessionEndTest : public testing::Test {
 protected:
  SessionEndTest() {
    folder_.Configure("[Dimension Config]\r\nID001=2x80,Tri,127.0.0.1:80\r\n");
    launcher_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&launcher_));
  }

  /// Presses a button of the launcher and runs `work` in the window that it opens; the window is
  /// closed afterwards, whatever it asks.
  void WorkIn(const char* window_name, const char* button, std::function<void(QWidget*)> work) {
    const ModalWindowDriver driver(Text(window_name), [&](QWidget* window) {
      work(window);
      MessageBoxReader boxes;
      boxes.Answer(QMessageBox::No);
      window->close();
    });
    QTest::mouseClick(launcher_.findChild<QPushButton*>(Text(button)), Qt::LeftButton);
    EXPECT_EQ(driver.Count(), 1);
  }

  void InScrollingEditor(std::function<void(QWidget*)> work) {
    WorkIn("frmShiftMsg", "butShiftMsg", std::move(work));
  }

  /// Types a character into the scrolling message.
  static void Type(QWidget* editor) {
    QTest::keyClicks(editor->findChild<QWidget*>(Text("Picture1")), Text("x"));
  }

  /// Presses New and chooses the one size that there is.
  static void New(QWidget* editor) {
    const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* dialog) {
      QTest::mouseClick(Button(dialog, "butOK"), Qt::LeftButton);
    });
    QTest::mouseClick(Button(editor, "butNew"), Qt::LeftButton);
  }

  /// Lets the session end after all; "Cancel" keeps the program.
  static void ExpectAQuestionAtTheEnd(QWidget* editor) {
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::Cancel);
    session->End();
    EXPECT_TRUE(QTest::qWaitFor([&boxes] { return !boxes.Seen().isEmpty(); }));
    EXPECT_EQ(boxes.Texts(), QStringList{Text(kQuestion)});
    EXPECT_TRUE(editor->isVisible());
  }

  static QPushButton* Button(QWidget* window, const char* name) {
    return window->findChild<QPushButton*>(Text(name));
  }

  TemporaryProgramFolder folder_;
  frmMain launcher_;
};

TEST_F(SessionEndTest, WithoutAWindowTheSessionEndsWithoutAQuestion) {
  EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "ready");
  session->GoOn();
}

TEST_F(SessionEndTest, WithoutUnsavedWorkItEndsWithoutAQuestion) {
  InScrollingEditor([](QWidget* editor) {
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "ready");
    EXPECT_TRUE(editor->isVisible());
    session->GoOn();
  });
}

TEST_F(SessionEndTest, UnsavedWorkIsAskedAboutAndCancelKeepsTheSession) {
  InScrollingEditor([](QWidget* editor) {
    Type(editor);
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::Cancel);
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "question cancelled failed");
    ASSERT_EQ(boxes.Texts(), QStringList{Text(kQuestion)});
    EXPECT_EQ(boxes.Seen()[0].parent, editor);
    EXPECT_TRUE(editor->isVisible());
  });
}

TEST_F(SessionEndTest, YesSavesAndLetsTheSessionEnd) {
  InScrollingEditor([](QWidget* editor) {
    Type(editor);
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::Yes);
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "question asked ready");
    session->GoOn();
  });
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), "*** Brivon Shift Message File ***\r\n<SA><CA>x\r\n");
}

TEST_F(SessionEndTest, ASaveThatFailsKeepsTheSession) {
  // A folder of the file's name.
  ASSERT_TRUE(QDir().mkdir(folder_.Path(Text("NEW.SRL"))));
  InScrollingEditor([](QWidget* editor) {
    Type(editor);
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::Yes);
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "question cancelled failed");
    EXPECT_EQ(boxes.Texts(), QStringList({Text(kQuestion), Text("Invalid path!")}));
  });
}

TEST_F(SessionEndTest, NoLetsItEndAndTheProgramGoesWithoutAskingAgain) {
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  boxes.Answer(QMessageBox::No);  // if it asked again
  const ModalWindowDriver driver(Text("frmShiftMsg"), [](QWidget* editor) {
    Type(editor);
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "question asked ready");
    EXPECT_TRUE(editor->isVisible());
    session->End();
  });
  QTimer::singleShot(0, &launcher_, [this] {
    QTest::mouseClick(Button(&launcher_, "butShiftMsg"), Qt::LeftButton);
  });
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_EQ(boxes.Texts(), QStringList{Text(kQuestion)});
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), "");
}

TEST_F(SessionEndTest, ASessionThatGoesOnLeavesTheWorkUnsavedAndItIsAskedAboutAgain) {
  InScrollingEditor([](QWidget* editor) {
    Type(editor);
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::No);
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "question asked ready");
    session->GoOn();
    boxes.Answer(QMessageBox::Cancel);
    editor->close();
    EXPECT_TRUE(editor->isVisible());
    boxes.Answer(QMessageBox::Cancel);
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "question cancelled failed");
    EXPECT_EQ(boxes.Texts().count(Text(kQuestion)), 3);
  });
}

TEST_F(SessionEndTest, WorkDoneAfterTheAnswerIsAskedAboutWhenTheSessionEnds) {
  InScrollingEditor([](QWidget* editor) {
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "ready");
    Type(editor);
    ExpectAQuestionAtTheEnd(editor);
  });
}

TEST_F(SessionEndTest, SoIsWhatAnInputMethodHasTyped) {
  InScrollingEditor([](QWidget* editor) {
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "ready");
    QInputMethodEvent typed;
    typed.setCommitString(Text("x"));
    QCoreApplication::sendEvent(editor->findChild<QWidget*>(Text("Picture1")), &typed);
    ExpectAQuestionAtTheEnd(editor);
  });
}

TEST_F(SessionEndTest, AndWhatWasDraggedThere) {
  WorkIn("frmSchedule", "butSchEdit", [](QWidget* editor) {
    New(editor);
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "ready");
    QMimeData hour;
    hour.setText(Text("7"));
    EXPECT_TRUE(Drop(*editor->findChild<QLineEdit*>(Text("txtHour")), hour));
    ExpectAQuestionAtTheEnd(editor);
  });
}

TEST_F(SessionEndTest, UnsavedWorkThatMayNotBeAskedAboutKeepsTheSession) {
  InScrollingEditor([](QWidget* editor) {
    Type(editor);
    const MessageBoxReader boxes;
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kNotAllowed), "failed");
    EXPECT_TRUE(boxes.Seen().isEmpty());
    session->GoOn();
  });
}

TEST_F(SessionEndTest, AQuestionThatIsOpenGivesWayToTheSessions) {
  InScrollingEditor([](QWidget* editor) {
    Type(editor);
    QByteArray answer;
    int boxes = 0;
    const ModalWindowDriver driver(QString(), [&](QWidget* box) {
      if (++boxes == 1) {
        answer = session->AskToEnd(SessionManager::Questions::kAllowed);
        EXPECT_FALSE(box->isVisible());
        box->close();
      } else {
        QTest::mouseClick(qobject_cast<QMessageBox*>(box)->button(QMessageBox::Yes),
                          Qt::LeftButton);
      }
    });
    QTest::mouseClick(Button(editor, "butExit"), Qt::LeftButton);
    EXPECT_EQ(boxes, 2);
    EXPECT_EQ(answer, "question asked ready");
    EXPECT_TRUE(editor->isVisible());  // its own question was cancelled
    session->GoOn();
  });
  EXPECT_NE(folder_.Read(Text("NEW.SRL")), "");
}

TEST_F(SessionEndTest, AnEndThatComesWhileAWindowIsBeingClosedAsksOnceMore) {
  InScrollingEditor([](QWidget* editor) {
    Type(editor);
    int boxes = 0;
    const ModalWindowDriver driver(QString(), [&](QWidget* box) {
      if (++boxes == 1) {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
        EXPECT_FALSE(quit.isAccepted());
        EXPECT_FALSE(box->isVisible());
        box->close();
      } else {
        QTest::mouseClick(qobject_cast<QMessageBox*>(box)->button(QMessageBox::Cancel),
                          Qt::LeftButton);
      }
    });
    editor->close();
    EXPECT_EQ(boxes, 2);
    EXPECT_TRUE(editor->isVisible());
  });
}

TEST_F(SessionEndTest, AnEndThatNobodyAskedAboutEndsTheProgramWhereNothingIsUnsaved) {
  QTimer::singleShot(0, &launcher_, [] {
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
  });
  EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(SessionEndTest, TheEditorBehindItsSendDialogAsks) {
  InScrollingEditor([](QWidget* editor) {
    Type(editor);
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::No);      // to Send
    boxes.Answer(QMessageBox::Cancel);  // to the session's end
    const ModalWindowDriver send(Text("frmSendShift"), [](QWidget* dialog) {
      EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed),
                "question cancelled failed");
      EXPECT_TRUE(dialog->isVisible());
      dialog->close();
    });
    QTest::mouseClick(Button(editor, "butSend"), Qt::LeftButton);
    EXPECT_EQ(send.Count(), 1);
    EXPECT_EQ(boxes.Texts(), QStringList({Text(kQuestion), Text(kQuestion)}));
  });
}

TEST_F(SessionEndTest, ThePageEditorAsks) {
  WorkIn("frmMsgEditor", "butMsgEdit", [](QWidget* editor) {
    New(editor);
    QTest::keyClicks(editor->findChild<QWidget*>(Text("Picture1(1)")), Text("x"));
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::Yes);
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "question asked ready");
    EXPECT_EQ(boxes.Texts(), QStringList{Text(kQuestion)});
    session->GoOn();
  });
  EXPECT_TRUE(folder_.Read(Text("NEW.MSG")).contains("<L01><SA><CA>x\r\n"));
}

TEST_F(SessionEndTest, TheScheduleEditorAsksAndAnEmptyScheduleKeepsTheSession) {
  WorkIn("frmSchedule", "butSchEdit", [](QWidget* editor) {
    New(editor);
    QTest::keyClicks(editor->findChild<QLineEdit*>(Text("txtHour")), Text("7"));
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::Yes);
    EXPECT_EQ(session->AskToEnd(SessionManager::Questions::kAllowed), "question cancelled failed");
    EXPECT_EQ(boxes.Texts(),
              QStringList({Text(kQuestion), Text("Empty schedule is not allowed!")}));
  });
}

TEST(SessionEndWhileSending, AWindowThatSendsKeepsTheSession) {
  PanelBench bench(LineKind::kTcp, {{1, 4, 96, true}});
  VirtualPanel::Faults silent;
  silent.silent = true;
  bench.Fail(silent);
  bench.Configure();
  frmMain launcher;
  launcher.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&launcher));
  const ModalWindowDriver driver(Text("frmCommand"), [&](QWidget* window) {
    QByteArray answer;
    const auto log_out = [&] {
      answer = session->AskToEnd(SessionManager::Questions::kAllowed);
      bench.Fail({});  // the next attempt is answered
    };
    QObject::connect(
        &bench.Engine(), &VirtualPanel::PanelEngine::FrameReceived, window, log_out,
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    const MessageBoxReader boxes;
    window->findChild<QListWidget*>(Text("ListCommand"))->setCurrentRow(0);
    QTest::mouseClick(window->findChild<QPushButton*>(Text("butSend")), Qt::LeftButton);
    EXPECT_EQ(answer, "question cancelled failed");
    EXPECT_EQ(boxes.Seen().size(), 1);
    window->close();
  });
  QTest::mouseClick(launcher.findChild<QPushButton*>(Text("butCommand")), Qt::LeftButton);
  EXPECT_EQ(driver.Count(), 1);
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const XServer server;
  SessionManager manager;
  session = &manager;
  qputenv("QT_QPA_PLATFORM", "xcb");
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
