// Disks that have no files without a name say so in their own ways, and are saved to all the same.
#include <cerrno>

#include "disk/faulty_disk.h"
#include "disk/saved_work.h"

namespace {

class NoNamelessFiles : public testing::TestWithParam<int> {};

TEST_P(NoNamelessFiles, AreNoFailureOfASave) {
  SavedWork work(kFileKinds[0]);
  const MessageBoxReader boxes;
  work.Edit(1);
  {
    const FaultyDisk disk(QFile::encodeName(work.Folder().Path({})).constData(),
                          {.has_nameless_files = false, .nameless_error = GetParam()});
    work.Save(WayToSave::kSave);
  }
  EXPECT_EQ(boxes.Texts(), QStringList());
  EXPECT_EQ(work.Folder().Read(QFileInfo(work.Path()).fileName()), work.Content(1));
}

// Linux before it knew them takes such a file for a folder that is written to.
INSTANTIATE_TEST_SUITE_P(Disks, NoNamelessFiles, testing::Values(EOPNOTSUPP, EISDIR, EINVAL),
                         [](const auto& test) {
                           switch (test.param) {
                             case EISDIR:
                               return "OfAnOldSystem";
                             case EINVAL:
                               return "WithoutTheFlag";
                             default:
                               return "WithoutTheOperation";
                           }
                         });

}  // namespace
