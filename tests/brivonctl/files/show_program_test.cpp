// "brivonctl show", run as a shell runs it.
#include "brivonctl/files/checked_files.h"
#include "brivonctl/files/ctl_process.h"

using namespace Qt::StringLiterals;

namespace {

class ShowProgram : public CheckedFiles {
 protected:
  void SetUp() override {
    folder_.Write(u"a.msg"_s, Page(1, "<L01><SA><CB>I\r\n").replace("96", "6"));
  }

  Ended Run(const QStringList& arguments) {
    return RunBrivonCtl(QStringList{u"show"_s} + arguments, folder_.Path(QString()));
  }

  void ExpectRefusal(const QStringList& arguments, int status, const std::string& errors) {
    const Ended ended = Run(arguments);
    EXPECT_EQ(ended.status, status);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors, errors);
  }
};

const std::string kGreenI = ".ggg..\n..g...\n..g...\n..g...\n..g...\n..g...\n.ggg..\n......\n";
const std::string kRedI = ".rrr..\n..r...\n..r...\n..r...\n..r...\n..r...\n.rrr..\n......\n";

TEST_F(ShowProgram, WithoutATerminalItIsLetters) {
  const Ended ended = Run({u"a.msg"_s});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output, kGreenI);
  EXPECT_EQ(ended.errors, "");
  EXPECT_EQ(Run({u"--mono"_s, u"a.msg"_s}).output, kRedI);
}

TEST_F(ShowProgram, AScheduleShowsItsPagesOneBelowTheOther) {
  folder_.Write(u"s.sch"_s,
                Schedule(2, Step("a.msg") + Step("a.msg", "7", "Fall")).replace("96", "6"));
  EXPECT_EQ(Run({u"s.sch"_s, u"--folder"_s, u"."_s}).output,
            "1: a.msg, 5 s, Flip\n" + kGreenI + "\n2: a.msg, 7 s, Fall\n" + kGreenI);
}

TEST_F(ShowProgram, APictureIsWrittenWithoutADisplay) {
  const Ended ended = Run({u"a.msg"_s, u"--output"_s, u"a.png"_s});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output + ended.errors, "");
  const QByteArray png = folder_.Read(u"a.png"_s);
  EXPECT_TRUE(png.startsWith("\x89PNG\r\n"));
  // Width and height stand big-endian behind the first chunk's name.
  EXPECT_EQ(png.mid(16, 8), QByteArray("\0\0\0\x3C\0\0\0\x48", 8));
  EXPECT_EQ(QByteArray::fromStdString(Run({u"a.msg"_s, u"--output"_s, u"-"_s}).output), png);
}

TEST_F(ShowProgram, AFileThatIsRefusedIsNotShown) {
  ExpectRefusal({u"gone.msg"_s}, 3,
                "brivonctl: gone.msg: there is no such file; check the name and its folder\n");
  folder_.Write(u"bad.msg"_s, Page(1, "<L02>\r\n"));
  ExpectRefusal(
      {u"bad.msg"_s}, 3,
      "brivonctl: bad.msg: line 4: the tag \"<L02>\" stands in row 1; expected was <L01>\n");
}

TEST_F(ShowProgram, AScheduleIsNoPicture) {
  folder_.Write(u"s.sch"_s, Schedule(1, Step("a.msg")).replace("96", "6"));
  ExpectRefusal(
      {u"s.sch"_s, u"--folder"_s, u"."_s, u"--output"_s, u"a.png"_s}, 3,
      "brivonctl: s.sch: a schedule has several pages and --output takes one; name one of "
      "its message files\n");
  EXPECT_EQ(folder_.Read(u"a.png"_s), "");
}

TEST_F(ShowProgram, AFileOfTheSystemIsNotReplacedByAPicture) {
  const QByteArray before = folder_.Read(u"a.msg"_s);
  ExpectRefusal({u"a.msg"_s, u"--output"_s, u"a.msg"_s}, 2,
                "brivonctl: --output: a.msg holds a page message and is not replaced; name another "
                "file\n");
  EXPECT_EQ(folder_.Read(u"a.msg"_s), before);
  folder_.Write(u"s.sch"_s, Schedule(1, Step("a.msg")));
  ExpectRefusal({u"a.msg"_s, u"--output"_s, u"s.sch"_s}, 2,
                "brivonctl: --output: s.sch holds a schedule and is not replaced; name another "
                "file\n");
  folder_.Write(u"a.srl"_s, "*** Brivon Shift Message File ***\r\n<SA><CA>Go\r\n");
  ExpectRefusal({u"a.msg"_s, u"--output"_s, u"a.srl"_s}, 2,
                "brivonctl: --output: a.srl holds a scrolling message and is not replaced; name "
                "another file\n");
}

TEST_F(ShowProgram, AFolderThatIsNoneIsRefused) {
  ExpectRefusal({u"a.msg"_s, u"--folder"_s, u"nowhere"_s}, 3,
                "brivonctl: --folder: nowhere is no folder; it must be the one that holds "
                "brivon.ini\n");
}

TEST_F(ShowProgram, APictureTakesThePlaceOfNothingButAPictureOrAnEmptyFile) {
  const QByteArray other = "[Dimension Config]\r\n";
  for (const QString& name : {u"brivon.ini"_s, u"other"_s}) {
    folder_.Write(name, other);
    ExpectRefusal({u"a.msg"_s, u"--output"_s, name}, 2,
                  "brivonctl: --output: " + name.toStdString() +
                      " is no picture (PNG) and is not replaced; name another file\n");
    EXPECT_EQ(folder_.Read(name), other);
  }
  folder_.Write(u"empty"_s, "");
  EXPECT_EQ(Run({u"a.msg"_s, u"--output"_s, u"empty"_s}).status, 0);
  const QByteArray png = folder_.Read(u"empty"_s);
  EXPECT_TRUE(png.startsWith("\x89PNG\r\n"));
  EXPECT_EQ(Run({u"--mono"_s, u"a.msg"_s, u"--output"_s, u"empty"_s}).status, 0);
  EXPECT_NE(folder_.Read(u"empty"_s), png);
}

TEST_F(ShowProgram, APictureThatCannotBeSavedIsRefused) {
  ExpectRefusal({u"a.msg"_s, u"--output"_s, u"none/a.png"_s}, 3,
                "brivonctl: --output: none/a.png: Invalid path! No such file or directory; name a "
                "file in a folder that you may write to\n");
  ExpectRefusal(
      {u"a.msg"_s, u"--output"_s, u"."_s}, 3,
      "brivonctl: --output: .: Invalid path! Is a directory; name a file in a folder that "
      "you may write to\n");
}

TEST_F(ShowProgram, WrongUseGivesTwo) {
  EXPECT_EQ(Run({}).status, 2);
  EXPECT_EQ(Run({u"a.msg"_s, u"b.msg"_s}).status, 2);
  EXPECT_EQ(Run({u"a.msg"_s, u"--output"_s}).status, 2);
  ExpectRefusal({u"a.msg"_s, u"--output"_s, QString()}, 2,
                "brivonctl: --output: the name is empty; name a file\n");
}

}  // namespace
