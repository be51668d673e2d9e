// Every call that the lock of "brivon.ini" makes fails, in every way that a disk knows: the save is
// none the worse for it.
#include <cerrno>

#include <QDir>
#include <QFileInfo>

#include "disk/faulty_disk.h"
#include "disk/saved_work.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kErrors[] = {ENOSPC, EIO, EACCES, ENOLCK};

class DiskFaultsOfLock : public testing::Test {
 protected:
  /// Saves a further version on a disk that lets calls of the lock fail, and looks that it is
  /// saved.
  int Save(DiskFault fault) {
    fault.is_lock = true;
    const MessageBoxReader boxes;
    work_.Edit(++version_);
    int calls = 0;
    {
      const FaultyDisk disk(QFile::encodeName(work_.Folder().Path({})).constData(), fault);
      work_.Save(WayToSave::kSave);
      calls = disk.Calls();
    }
    EXPECT_EQ(boxes.Texts(), QStringList());
    EXPECT_TRUE(work_.IsLeft());
    EXPECT_EQ(work_.Folder().Read(QFileInfo(work_.Path()).fileName()).toStdString(),
              work_.Content(version_).toStdString());
    return calls;
  }

  QStringList Names() const {
    return QDir(work_.Folder().Path({}))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  }

  SavedWork work_{kFileKinds[3]};
  int version_ = 0;
};

TEST_F(DiskFaultsOfLock, AreNoneOfTheSaveAndTheNextOneRemovesWhatIsLeft) {
  const QStringList names = Names();
  const int calls = Save({});
  ASSERT_GT(calls, 0);
  for (int call = 1; call <= calls && !HasFailure(); ++call) {
    for (const int error : kErrors) {
      for (const bool stays : {false, true}) {
        SCOPED_TRACE(testing::Message()
                     << "call " << call << ", error " << error << (stays ? ", from then on" : ""));
        Save({.call = call, .error = error, .stays = stays});
        work_.AgeLeftOvers();
        Save({});
        EXPECT_EQ(Names(), names);
      }
    }
  }
}

}  // namespace
