// The schedule editor over a drive that does not answer: the look for missing message files is made
// beside the window, which goes on, and can be closed, while it hangs.
#include <cstdlib>
#include <memory>

#include <QApplication>
#include <QLineEdit>
#include <QMutex>
#include <QPushButton>
#include <QSemaphore>
#include <QTest>

#include <gtest/gtest.h>

#include "schedule/file_look.h"
#include "schedule/frmSchedule.h"
#include "schedule/sequence_table.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "support/shown_window.h"

namespace {

QString Text(const char* text) { return QString::fromUtf8(text); }

template <typename Condition>
void Await(const Condition& condition) {
  ASSERT_TRUE(QTest::qWaitFor(condition, 60000));
}

/// A drive that does not answer until it is told to. A look may outlive the test, and the drive
/// with it.
class Drive {
 public:
  ~Drive() {
    AnswerAtOnce(false);
    AnswerHanging(false);
  }

  Brivon1::FileLook::IsThere Look() {
    return [state = state_](const QString& /*path*/) { return state->Ask(); };
  }

  /// Whoever asks from now on waits.
  void Hang() {
    const QMutexLocker lock(&state_->mutex);
    state_->hangs = true;
  }

  /// Whoever asks from now on hears at once that the file is there, or not.
  void AnswerAtOnce(bool is_there) {
    const QMutexLocker lock(&state_->mutex);
    state_->hangs = false;
    state_->is_there = is_there;
  }

  /// Those who wait hear it now.
  void AnswerHanging(bool is_there) {
    const QMutexLocker lock(&state_->mutex);
    state_->late_is_there = is_there;
    state_->answers.release(state_->hanging);
    state_->hanging = 0;
  }

  /// How many files have been looked for, and how many of those who look wait for an answer.
  int Asked() const {
    const QMutexLocker lock(&state_->mutex);
    return state_->asked;
  }
  int Hanging() const {
    const QMutexLocker lock(&state_->mutex);
    return state_->hanging;
  }

  /// How many still hold what they need to ask: a window, and each look that has not ended.
  long Holders() const { return state_.use_count() - 1; }

 private:
  struct State {
    bool Ask() {
      QMutexLocker lock(&mutex);
      ++asked;
      if (!hangs) return is_there;
      ++hanging;
      lock.unlock();
      answers.acquire();
      lock.relock();
      return late_is_there;
    }

    QMutex mutex;
    bool hangs = true;
    bool is_there = false;
    bool late_is_there = false;
    int asked = 0;
    int hanging = 0;
    QSemaphore answers;
  };

  std::shared_ptr<State> state_ = std::make_shared<State>();
};

class FileLookTest : public testing::Test {
 protected:
  void Begin(const QStringList& paths) { look_->Begin(paths, is_there_); }

  void AwaitEndOfLooks() {
    Await([this] { return drive_.Holders() == 1; });
    QCoreApplication::processEvents();
  }

  Drive drive_;
  Brivon1::FileLook::IsThere is_there_ = drive_.Look();
  QStringList reported_;
  std::unique_ptr<Brivon1::FileLook> look_ =
      std::make_unique<Brivon1::FileLook>([this](const QString& path, bool is_there) {
        reported_.append(path + (is_there ? Text(" is there") : Text(" is missing")));
      });
};

TEST_F(FileLookTest, AFileOnADriveThatAnswersDoesNotWaitForOneOnADriveThatDoesNot) {
  look_->Begin({Text("a"), Text("b")},
               [dead = is_there_](const QString& path) { return path == Text("b") || dead(path); });
  is_there_ = {};
  Await([this] { return drive_.Hanging() == 1 && !reported_.isEmpty(); });
  EXPECT_EQ(reported_, QStringList{Text("b is there")});
  drive_.AnswerHanging(false);
  Await([this] { return drive_.Holders() == 0; });
  QCoreApplication::processEvents();
  EXPECT_EQ(reported_, (QStringList{Text("b is there"), Text("a is missing")}));
}

TEST_F(FileLookTest, AnEarlierLookReportsNothingAnyMore) {
  Begin({Text("a"), Text("b"), Text("c")});
  Await([this] { return drive_.Hanging() == 3; });
  drive_.AnswerAtOnce(true);
  Begin({Text("d")});
  Await([this] { return !reported_.isEmpty(); });
  drive_.AnswerHanging(true);
  AwaitEndOfLooks();
  EXPECT_EQ(reported_, QStringList{Text("d is there")});
  EXPECT_EQ(drive_.Asked(), 4);
}

TEST_F(FileLookTest, WhoIsGoneIsToldNothing) {
  Begin({Text("a"), Text("b")});
  Await([this] { return drive_.Hanging() == 2; });
  look_.reset();
  EXPECT_EQ(drive_.Hanging(), 2) << "the end has not waited for the answer";
  drive_.AnswerHanging(true);
  AwaitEndOfLooks();
  EXPECT_EQ(reported_, QStringList());
}

TEST_F(FileLookTest, OfAnyNumberOfLooksSixtyFourHangAtTheMostAndTheLastIsReported) {
  for (int i = 0; i < 100; ++i) {
    Begin({QString::number(i)});
    if (i < 64) Await([&] { return drive_.Hanging() == i + 1; });
  }
  EXPECT_EQ(drive_.Hanging(), 64);
  drive_.AnswerAtOnce(true);
  drive_.AnswerHanging(false);
  AwaitEndOfLooks();
  EXPECT_EQ(reported_, QStringList{Text("99 is there")});
  EXPECT_EQ(drive_.Asked(), 65);
}

class MissingFiles : public testing::Test {
 protected:
  /// Opens a schedule of files of these names.
  void Open(const QList<QByteArray>& names) {
    QByteArray content =
        "*** Brivon Schedule File ***\r\nWeek =0\r\nHour =**\r\nMin =**\r\nRow =2\r\nCol =80\r\n"
        "No of Sequence =" +
        QByteArray::number(names.size()) + "\r\n";
    for (const QByteArray& name : names) {
      content +=
          name.leftJustified(100) + "\r\n1\r\n" + QByteArray("Flip").leftJustified(20) + "\r\n";
    }
    const FileChooser chooser(folder_.Write(Text("a.sch"), content));
    window_->show();
    Press("butOpen");
    ASSERT_EQ(chooser.Count(), 1);
    ASSERT_EQ(Table()->model()->rowCount(), names.size() + 1);
    AwaitHangingLooks();
  }

  /// Until every look that has not ended waits for the drive.
  void AwaitHangingLooks() {
    Await([this] { return drive_.Holders() == kTheWindow + drive_.Hanging(); });
    QCoreApplication::processEvents();
  }

  void Press(const char* name) {
    QTest::mouseClick(window_->findChild<QPushButton*>(Text(name)), Qt::LeftButton);
  }

  SequenceTable* Table() { return window_->findChild<SequenceTable*>(Text("GridSeqTable")); }

  /// The message file's cell of the sequence at `position`, from 1.
  QModelIndex Cell(int position) { return Table()->model()->index(position - 1, 1); }

  /// Whether the file at `position` is shown as a missing one.
  bool IsMissing(int position) { return Cell(position).data(Qt::FontRole).value<QFont>().italic(); }

  /// Another window comes to the front, and then this one again.
  void ComeToTheFront() {
    QWidget other;
    other.show();
    ActivateWindow(&other);
    ActivateWindow(window_.get());
  }

  static constexpr int kTheWindow = 1;  // holds the drive too

  TemporaryProgramFolder folder_;
  Drive drive_;
  std::unique_ptr<frmSchedule> window_ = std::make_unique<frmSchedule>(nullptr, drive_.Look());
};

TEST_F(MissingFiles, TheWindowAnswersWhileTheDriveDoesNot) {
  Open({"a.msg", "b.msg"});
  auto* hour = window_->findChild<QLineEdit*>(Text("txtHour"));
  hour->selectAll();
  QTest::keyClicks(hour, Text("12"));
  EXPECT_EQ(hour->text(), Text("12"));
  Press("butDelete");
  ASSERT_EQ(Table()->model()->rowCount(), 2);
  EXPECT_EQ(Cell(1).data().toString(), Text("b.msg"));
  EXPECT_GT(drive_.Hanging(), 0) << "there was no answer all this while";
}

TEST_F(MissingFiles, AFileIsMarkedOnceItIsKnownToBeMissing) {
  Open({"a.msg", "b.msg"});
  EXPECT_FALSE(IsMissing(1) || IsMissing(2) || IsMissing(3));
  drive_.AnswerHanging(false);
  Await([this] { return IsMissing(1) && IsMissing(2); });
  EXPECT_FALSE(IsMissing(3)) << "\"End\" names no file";
}

TEST_F(MissingFiles, WhatIsKnownOfAFileHoldsUntilTheNextAnswer) {
  drive_.AnswerAtOnce(false);
  Open({"a.msg", "b.msg"});
  Await([this] { return IsMissing(2); });
  AwaitHangingLooks();
  drive_.Hang();
  Press("butDelete");
  ASSERT_EQ(Cell(1).data().toString(), Text("b.msg"));
  EXPECT_TRUE(IsMissing(1));
  EXPECT_FALSE(IsMissing(2));
  AwaitHangingLooks();
  drive_.AnswerHanging(true);
  Await([this] { return !IsMissing(1); });
}

TEST_F(MissingFiles, ALateAnswerToAnOlderLookIsNotTakenForANewerOne) {
  for (const bool is_there : {true, false}) {
    drive_.Hang();
    Open({"a.msg"});
    EXPECT_GT(drive_.Hanging(), 0);
    const int asked = drive_.Asked();
    drive_.AnswerAtOnce(is_there);
    ComeToTheFront();
    AwaitHangingLooks();
    EXPECT_GT(drive_.Asked(), asked);
    EXPECT_EQ(IsMissing(1), !is_there);
    drive_.AnswerHanging(!is_there);
    AwaitHangingLooks();
    EXPECT_EQ(IsMissing(1), !is_there);
  }
}

TEST_F(MissingFiles, TheWindowIsClosedWithoutWaitingForTheDrive) {
  Open({"a.msg", "b.msg"});
  const int asked = drive_.Asked();
  QTest::keyClick(window_.get(), Qt::Key_Escape);
  EXPECT_FALSE(window_->isVisible());
  window_.reset();
  EXPECT_GT(drive_.Hanging(), 0);
  drive_.AnswerHanging(false);
  Await([this] { return drive_.Holders() == 0; });
  QCoreApplication::processEvents();
  EXPECT_EQ(drive_.Asked(), asked) << "nobody wants to know any more";
}

using MissingFilesDeathTest = MissingFiles;

TEST_F(MissingFilesDeathTest, TheProgramEndsWithoutWaitingForTheDrive) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        Open({"a.msg"});
        window_.reset();
        std::exit(drive_.Hanging() > 0 ? 7 : 1);
      },
      testing::ExitedWithCode(7), "");
}

}  // namespace
