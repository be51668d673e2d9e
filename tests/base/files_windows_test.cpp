// What only Windows has of files: devices among the names, attributes, programs that share no file.
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <qt_windows.h>

#include <gtest/gtest.h>

#include "base/files.h"
#include "base/folder_of_files.h"
#include "base/windows_names.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

class WindowsFiles : public FolderOfFiles {
 protected:
  std::wstring Wide(const char* name) const { return WidePath(Path(name).toUtf8()); }

  /// A file that another program has open and lets nobody else open.
  HANDLE Hold(const char* name) const {
    HANDLE file =
        CreateFileW(Wide(name).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    return file;
  }

  /// A file that was last changed `minutes` ago.
  void WriteOld(const char* name, int minutes = 6) const {
    QFile file(Write(name, "ne"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTimeUtc().addSecs(-60 * minutes),
                                 QFileDevice::FileModificationTime));
  }
};

TEST_F(WindowsFiles, WhatIsSavedUnderTheNameOfADeviceWouldBeLost) {
  for (const char* name : {"NUL", "nul.msg", "con.msg", "COM1.msg", "lpt9.msg"}) {
    EXPECT_FALSE(FileExists(Path(name))) << name;
    EXPECT_EQ(SaveWholeFile(Path(name), "x"), SaveResult::kInvalidPath) << name;
  }
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(WindowsFiles, AStreamWithinAFileIsNoFile) {
  Write("a.msg", "old");
  EXPECT_EQ(SaveWholeFile(Path("a.msg:b.msg"), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(Read(Path("a.msg")), "old");
  EXPECT_EQ(Names(), QStringList{u"a.msg"_s});
}

TEST_F(WindowsFiles, ANameWithACharacterThatNoFileHasIsAnInvalidPath) {
  for (const char* name : {"a?.msg", "a*.msg", "a|.msg", "a<.msg", "a\".msg"}) {
    EXPECT_EQ(SaveWholeFile(Path(name), "x"), SaveResult::kInvalidPath) << name;
  }
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(WindowsFiles, AFileThatAnotherProgramHoldsStaysAsItIs) {
  Write("a.msg", "old");
  HANDLE held = Hold("a.msg");
  QString reason;
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), "new", &reason), SaveResult::kInvalidPath);
  CloseHandle(held);
  EXPECT_EQ(reason, u"Permission denied"_s);
  EXPECT_EQ(Read(Path("a.msg")), "old");
  EXPECT_EQ(Names(), QStringList{u"a.msg"_s});
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), "new"), SaveResult::kSaved);
  EXPECT_EQ(Read(Path("a.msg")), "new");
}

TEST_F(WindowsFiles, AReadOnlyFileIsNotReplaced) {
  Write("a.msg", "old");
  ASSERT_NE(SetFileAttributesW(Wide("a.msg").c_str(), FILE_ATTRIBUTE_READONLY), 0);
  QString reason;
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), "new", &reason), SaveResult::kInvalidPath);
  EXPECT_EQ(reason, u"Permission denied"_s);
  EXPECT_EQ(Read(Path("a.msg")), "old");
  ASSERT_NE(SetFileAttributesW(Wide("a.msg").c_str(), FILE_ATTRIBUTE_NORMAL), 0);
}

TEST_F(WindowsFiles, AReplacedFileKeepsItsAttributes) {
  Write("a.msg", "old");
  ASSERT_NE(SetFileAttributesW(Wide("a.msg").c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), "new"), SaveResult::kSaved);
  EXPECT_EQ(GetFileAttributesW(Wide("a.msg").c_str()) & FILE_ATTRIBUTE_HIDDEN,
            DWORD{FILE_ATTRIBUTE_HIDDEN});
  EXPECT_EQ(Read(Path("a.msg")), "new");
}

TEST_F(WindowsFiles, APathLongerThanWindowsUsuallyTakesIsSaved) {
  const QString folder = Path("") + QString(100, u'a') + u'/' + QString(100, u'b');
  ASSERT_TRUE(QDir().mkpath(folder));
  const QString file = folder + u'/' + QString(100, u'c') + u".msg"_s;
  EXPECT_EQ(SaveWholeFile(file, "old"), SaveResult::kSaved);
  EXPECT_EQ(SaveWholeFile(file, "new"), SaveResult::kSaved);
  EXPECT_EQ(Read(file), "new");
}

TEST_F(WindowsFiles, WhatKilledSavesHaveLeftIsRemovedByTheNextSave) {
  Write("a.msg", "old");
  WriteOld("a.msg.~brivon-QxAdPk~");
  WriteOld("a.msg.~brivon-zzzZzZ~", 4);
  WriteOld("b.msg.~brivon-QxAdPk~");
  WriteOld("a.msg.~brivon-QxAdP1~");
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), "new"), SaveResult::kSaved);
  EXPECT_EQ(Names(), (QStringList{u"a.msg"_s, u"a.msg.~brivon-QxAdP1~"_s,
                                  u"a.msg.~brivon-zzzZzZ~"_s, u"b.msg.~brivon-QxAdPk~"_s}));
}

TEST_F(WindowsFiles, WhatALivingProgramIsSavingStays) {
  WriteOld("a.msg.~brivon-QxAdPk~");
  HANDLE held = Hold("a.msg.~brivon-QxAdPk~");
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), "new"), SaveResult::kSaved);
  EXPECT_EQ(Names(), (QStringList{u"a.msg"_s, u"a.msg.~brivon-QxAdPk~"_s}));
  CloseHandle(held);
}

}  // namespace
}  // namespace Brivon1
