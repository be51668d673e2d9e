// A file that has taken its place is there after a power failure, too: its folder is flushed behind
// it.
#include <cerrno>
#include <string>

#include "disk/faulty_disk.h"
#include "disk/saved_work.h"

namespace {

class FolderFlush : public testing::TestWithParam<bool> {
 protected:
  /// Saves a further version, and looks that it is saved. Gives the name of the last call before
  /// the folder was flushed.
  std::string Save(WayToSave way, int folder_error = 0) {
    const MessageBoxReader boxes;
    work_.Edit(++version_);
    std::string call;
    {
      const FaultyDisk disk(QFile::encodeName(work_.Folder().Path({})).constData(),
                            {.has_nameless_files = GetParam(), .folder_error = folder_error});
      work_.Save(way);
      EXPECT_GT(disk.CallBeforeFolderFlush(), 0);
      call = disk.Name(disk.CallBeforeFolderFlush());
    }
    EXPECT_EQ(boxes.Texts(), QStringList());
    EXPECT_FALSE(work_.SaysNotSaved());
    QFile file(way == WayToSave::kSave ? work_.Path() : work_.OtherPath());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), work_.Content(version_));
    return call;
  }

  SavedWork work_{kFileKinds[0]};
  int version_ = 0;
};

TEST_P(FolderFlush, ComesWhenTheFileHasTakenItsPlace) {
  EXPECT_EQ(Save(WayToSave::kSave), "rename");
  const bool is_linked = GetParam() && work_.HasNamelessFiles();
  EXPECT_EQ(Save(WayToSave::kSaveAsNewFile), is_linked ? "linkat" : "rename");
}

TEST_P(FolderFlush, ThatFailsIsNoFailedSave) {
  for (const int error : {EIO, ENOSPC, EINVAL, EACCES, ETIMEDOUT}) {
    SCOPED_TRACE(error);
    Save(WayToSave::kSave, error);
  }
}

INSTANTIATE_TEST_SUITE_P(Disks, FolderFlush, testing::Bool(), [](const auto& test) {
  return std::string(test.param ? "Nameless" : "Named");
});

}  // namespace
