#include "records/kept_file.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "support/full_disk.h"
#include "support/pipe_file.h"
#include "support/wait_until.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

class KeptFileTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(root_.isValid());
    ASSERT_TRUE(QDir().mkdir(folder_));
  }

  // What is said of a file from now on.
  void Listen(const KeptFile& file) {
    QObject::connect(&file, &KeptFile::Said,
                     [this](const QString& sentence) { said_.append(sentence); });
  }

  QStringList TakeSaid() { return std::exchange(said_, {}); }

  void RemoveFolder() { ASSERT_TRUE(QDir(folder_).removeRecursively()); }
  void MakeFolder() { ASSERT_TRUE(QDir().mkdir(folder_)); }

  QByteArray Contents() const {
    QFile file(path_);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }

  QTemporaryDir root_;
  QString folder_ = root_.filePath(u"folder"_s);
  QString path_ = folder_ + u"/file"_s;
  QStringList said_;
};

// ---- the log ------------------------------------------------------------------------------------

class LogFileTest : public KeptFileTest {
 protected:
  void SetUp() override {
    KeptFileTest::SetUp();
    Listen(log_);
    ASSERT_TRUE(log_.Open());
  }

  LogFile log_{u"log"_s, path_};
};

TEST_F(LogFileTest, GrowsLineByLine) {
  log_.Append("one\n");
  EXPECT_EQ(Contents(), "one\n");
  log_.Append("two\n");
  EXPECT_EQ(Contents(), "one\ntwo\n");
  EXPECT_EQ(TakeSaid(), QStringList());
}

TEST_F(LogFileTest, SaysOnceThatTheDiskIsFull) {
  LogFile log(u"log"_s, u"/dev/full"_s);
  Listen(log);
  ASSERT_TRUE(log.Open());
  for (int i = 0; i < 3; ++i) log.Append("line\n");
  EXPECT_EQ(TakeSaid(),
            QStringList{u"the log /dev/full cannot be written: No space left on device"_s});
  EXPECT_EQ(log.Trouble(), u"No space left on device"_s);
}

TEST_F(LogFileTest, FinishesTheLineInWhichTheDiskWasFull) {
  log_.Append("first\n");
  {
    const FullDisk full_disk(8);
    log_.Append("second\n");
    log_.Append("lost\n");
    log_.Append("lost\n");
    EXPECT_EQ(TakeSaid().size(), 1);
    EXPECT_EQ(Contents(), "first\nse");
  }
  log_.Append("last\n");
  EXPECT_EQ(Contents(), "first\nsecond\nlast\n");
  EXPECT_EQ(TakeSaid(), QStringList{u"the log %1 is written again; 2 lines are lost"_s.arg(path_)});
  EXPECT_EQ(log_.Trouble(), QString());
  log_.Append("more\n");
  EXPECT_EQ(TakeSaid(), QStringList());
}

TEST_F(LogFileTest, SaysThatItsFolderIsGoneAndWhenItIsBack) {
  log_.Append("old\n");
  RemoveFolder();
  log_.Append("lost\n");
  log_.Append("lost\n");
  EXPECT_EQ(TakeSaid(),
            QStringList{u"the log %1 cannot be written: No such file or directory"_s.arg(path_)});
  MakeFolder();
  log_.Append("new\n");
  EXPECT_EQ(Contents(), "new\n");
  EXPECT_EQ(TakeSaid(), QStringList{u"the log %1 is written again; 2 lines are lost"_s.arg(path_)});
}

TEST_F(LogFileTest, TheRestOfALineDoesNotGoIntoAnotherFile) {
  {
    const FullDisk full_disk(3);
    log_.Append("halved\n");
  }
  ASSERT_TRUE(QFile::rename(path_, path_ + u".1"_s));
  TakeSaid();
  log_.Append("new\n");
  EXPECT_EQ(Contents(), "new\n");
  EXPECT_EQ(TakeSaid(), QStringList{u"the log %1 is written again; 1 line is lost"_s.arg(path_)});
}

TEST_F(LogFileTest, GoesOnUnderItsNameWhenItIsMovedAway) {
  log_.Append("old\n");
  ASSERT_TRUE(QFile::rename(path_, path_ + u".1"_s));
  log_.Append("new\n");
  EXPECT_EQ(Contents(), "new\n");
  EXPECT_EQ(TakeSaid(), QStringList());
}

TEST_F(LogFileTest, SaysThatItCannotBeOpened) {
  LogFile log(u"log"_s, folder_);
  Listen(log);
  EXPECT_FALSE(log.Open());
  EXPECT_EQ(log.TroubleText(), u"the log %1 cannot be written: %2"_s.arg(folder_, log.Trouble()));
  EXPECT_FALSE(log.Trouble().isEmpty());
}

// ---- a file that is replaced --------------------------------------------------------------------

class WholeFileTest : public KeptFileTest {
 protected:
  void SetUp() override {
    KeptFileTest::SetUp();
    Listen(file_);
    ASSERT_TRUE(file_.Write());
  }

  bool WaitForRecovery() {
    return WaitUntil([this] { return file_.Trouble().isEmpty(); });
  }

  QByteArray contents_{"first"};
  WholeFile file_{u"state"_s, path_, [this] { return contents_; }};
};

TEST_F(WholeFileTest, HoldsWhatItWasLastGiven) {
  EXPECT_EQ(Contents(), "first");
  contents_ = "second";
  EXPECT_TRUE(file_.Write());
  EXPECT_EQ(Contents(), "second");
  EXPECT_EQ(TakeSaid(), QStringList());
}

TEST_F(WholeFileTest, SaysOnceThatTheDiskIsFullAndIsWrittenAsSoonAsThereIsRoom) {
  {
    const FullDisk full_disk(3);
    contents_ = "second";
    for (int i = 0; i < 3; ++i) EXPECT_FALSE(file_.Write());
    EXPECT_EQ(TakeSaid(),
              QStringList{u"the state %1 cannot be written: File too large"_s.arg(path_)});
    EXPECT_EQ(Contents(), "first");
  }
  EXPECT_TRUE(WaitForRecovery());
  EXPECT_EQ(Contents(), "second");
  EXPECT_EQ(TakeSaid(), QStringList{u"the state %1 is written again"_s.arg(path_)});
}

TEST_F(WholeFileTest, SaysThatItsFolderIsGoneAndWhenItIsBack) {
  RemoveFolder();
  EXPECT_FALSE(file_.Write());
  EXPECT_FALSE(file_.Write());
  EXPECT_EQ(TakeSaid(),
            QStringList{u"the state %1 cannot be written: No such file or directory"_s.arg(path_)});
  MakeFolder();
  EXPECT_TRUE(WaitForRecovery());
  EXPECT_EQ(Contents(), "first");
  EXPECT_EQ(TakeSaid(), QStringList{u"the state %1 is written again"_s.arg(path_)});
}

TEST_F(WholeFileTest, SaysNothingMoreWhereTheReasonBecomesAnotherOne) {
  RemoveFolder();
  EXPECT_FALSE(file_.Write());
  TakeSaid();
  MakeFolder();
  ASSERT_TRUE(QDir().mkdir(path_));
  EXPECT_FALSE(file_.Write());
  EXPECT_EQ(TakeSaid(), QStringList());
  EXPECT_EQ(file_.TroubleText(),
            u"the state %1 cannot be written: It is no ordinary file"_s.arg(path_));
  ASSERT_TRUE(QDir().rmdir(path_));
  EXPECT_TRUE(file_.Write());
  EXPECT_EQ(TakeSaid(), QStringList{u"the state %1 is written again"_s.arg(path_)});
  EXPECT_EQ(file_.TroubleText(), QString());
}

TEST_F(WholeFileTest, NeverReplacesWhatIsNoOrdinaryFile) {
  const QString pipe = folder_ + u"/pipe"_s;
  ASSERT_TRUE(MakePipe(pipe));
  WholeFile file(u"state"_s, pipe, [] { return QByteArray("text"); });
  EXPECT_FALSE(file.Write());
  EXPECT_EQ(file.TroubleText(),
            u"the state %1 cannot be written: It is no ordinary file"_s.arg(pipe));
  EXPECT_TRUE(IsPipe(pipe));
}

}  // namespace
}  // namespace VirtualPanel
