// A save through a link replaces the file that the system finds there, wherever the link stands and
// whatever bytes it holds.
#include <unistd.h>

#include <array>
#include <cstdio>

#include "base/files.h"
#include "base/folder_of_files.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

class SavesThroughLinks : public FolderOfFiles {
 protected:
  /// A link at `path` that says `target`.
  void Link(const char* target, const char* path) const {
    ASSERT_EQ(symlink(target, QFile::encodeName(Path(path)).constData()), 0);
  }

  QByteArray LinkAt(const char* path) const {
    std::array<char, 1000> text;
    const ssize_t size =
        readlink(QFile::encodeName(Path(path)).constData(), text.data(), text.size());
    return size < 0 ? QByteArray() : QByteArray(text.data(), size);
  }

  void MakeFolder(const char* path) const { ASSERT_TRUE(QDir().mkpath(Path(path))); }

  void Save(const char* path) const {
    EXPECT_EQ(SaveWholeFile(Path(path), "new"), SaveResult::kSaved);
  }
};

TEST_F(SavesThroughLinks, ARelativeLinkInALinkedFolderLeadsOnFromWhereTheFolderIs) {
  MakeFolder("real/sub");
  Link("real/sub", "link");
  Link("../x.msg", "real/sub/p.msg");
  Write("real/x.msg", "old");
  Write("x.msg", "not to be touched");
  Save("link/p.msg");
  EXPECT_EQ(Read(Path("real/x.msg")), "new");
  EXPECT_EQ(Read(Path("x.msg")), "not to be touched");
  EXPECT_EQ(LinkAt("real/sub/p.msg"), "../x.msg");
}

TEST_F(SavesThroughLinks, ToNothingInALinkedFolderMakeTheFileWhereTheSystemLooksForIt) {
  MakeFolder("real/sub");
  Link("real/sub", "link");
  Link("../x.msg", "real/sub/p.msg");
  Save("link/p.msg");
  EXPECT_EQ(Read(Path("real/x.msg")), "new");
  EXPECT_FALSE(QFile::exists(Path("x.msg")));
}

TEST_F(SavesThroughLinks, ByItsNameAloneAreOfTheFolderThatTheProgramWorksIn) {
  MakeFolder("real");
  Link("real/x.msg", "a.msg");
  Write("real/x.msg", "old");
  const QString before = QDir::currentPath();
  ASSERT_TRUE(QDir::setCurrent(folder_.path()));
  EXPECT_EQ(SaveWholeFile(u"a.msg"_s, "new"), SaveResult::kSaved);
  ASSERT_TRUE(QDir::setCurrent(before));
  EXPECT_EQ(Read(Path("real/x.msg")), "new");
  EXPECT_EQ(LinkAt("a.msg"), "real/x.msg");
}

TEST_F(SavesThroughLinks, OverSeveralLinksReachTheLast) {
  MakeFolder("real");
  Link("second", "first");
  Link("real/third", "second");
  Link("../x.msg", "real/third");
  Write("x.msg", "old");
  Save("first");
  EXPECT_EQ(Read(Path("x.msg")), "new");
  EXPECT_EQ(LinkAt("first"), "second");
  EXPECT_EQ(LinkAt("second"), "real/third");
  EXPECT_EQ(LinkAt("real/third"), "../x.msg");
}

TEST_F(SavesThroughLinks, ReachATargetWhoseNameIsNoUtf8) {
  const QByteArray target = "caf\xE9.msg";
  const QByteArray path = QFile::encodeName(folder_.path()) + '/' + target;
  FILE* file = std::fopen(path.constData(), "w");
  if (file == nullptr) GTEST_SKIP() << "the disk has no such names";
  std::fclose(file);
  Link(target.constData(), "a.msg");
  for (const char* of : {"there", "not there"}) {
    SCOPED_TRACE(of);
    Save("a.msg");
    EXPECT_EQ(Read(Path("a.msg")), "new");
    EXPECT_EQ(LinkAt("a.msg"), target);
    // The toolkit would not find it, nor remove it with its folder.
    EXPECT_EQ(unlink(path.constData()), 0);
  }
  EXPECT_EQ(Names(), QStringList{u"a.msg"_s});
}

TEST_F(SavesThroughLinks, ThatLeadToEachOtherReplaceTheFirst) {
  Link("b.msg", "a.msg");
  Link("a.msg", "b.msg");
  Save("a.msg");
  EXPECT_EQ(Read(Path("a.msg")), "new");
  EXPECT_EQ(LinkAt("a.msg"), "");
  EXPECT_EQ(LinkAt("b.msg"), "a.msg");
}

}  // namespace
}  // namespace Brivon1
