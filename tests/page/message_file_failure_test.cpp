// Why a message file is refused, and where.
#include "page/message_file_fixture.h"

using namespace Qt::StringLiterals;

using Brivon1::FileFault;

namespace {

class MessageFileFailure : public MessageFile {
 protected:
  /// Expects that the file is refused for `fault`, which stands in line `line`.
  void ExpectFailure(const QString& path, FileFault fault, int line, const char* found = "") {
    Brivon1::FileFailure why;
    EXPECT_FALSE(Brivon1::LoadMessageFile(path, &why));
    EXPECT_EQ(why.fault, fault);
    EXPECT_EQ(why.line, line);
    EXPECT_EQ(why.found.toStdString(), found);
  }

  QString Page(const QByteArray& below_header) {
    return Write("*** Brivon Message File ***\r\n" + below_header);
  }
};

TEST_F(MessageFileFailure, AFileThatIsNotThereOrIsAFolderIsNoFile) {
  ExpectFailure(Path(u"missing.msg"_s), FileFault::kNoFile, 0);
  ExpectFailure(folder_.path(), FileFault::kNoFile, 0);
  ExpectFailure(u"/dev/zero"_s, FileFault::kNoFile, 0);
}

TEST_F(MessageFileFailure, TheFirstLineSaysWhatKindOfFileItIs) {
  ExpectFailure(Write("*** Brivon Message File ***\r\n"), FileFault::kTooShort, 0);
  ExpectFailure(Write("*** brivon message file ***\r\nRow = 1\r\nCol = 80\r\n<L01>"),
                FileFault::kHeader, 1);
}

TEST_F(MessageFileFailure, ASizeThatIsNoneIsNamed) {
  ExpectFailure(Page("Row = 13\r\nCol = 80\r\n"), FileFault::kRows, 2, "13");
  ExpectFailure(Page("Row = -1\r\nCol = 80\r\n"), FileFault::kRows, 2, "-1");
  ExpectFailure(Page("Row = 4\r\nCol = -80\r\n"), FileFault::kColumns, 3, "-80");
  ExpectFailure(Page("Row = 0\r\nCol = 9\r\n"), FileFault::kRows, 2, "0");
}

TEST_F(MessageFileFailure, TheRowThatIsMissingIsToldByItsLine) {
  ExpectFailure(Page("Row = 3\r\nCol = 80\r\n<L01>a\r\n<L02>b\r\n"), FileFault::kEndsEarly, 6);
  ExpectFailure(Page("Row = 2\r\nCol = 80\r\n<L01>a\r\n" + QByteArray((1 << 20) + 1, 'x')),
                FileFault::kLongLine, 5);
}

TEST_F(MessageFileFailure, TheTagOfAnotherRowIsNamedWithItsLine) {
  ExpectFailure(Page("Row = 2\r\nCol = 80\r\n<L01>a\r\n<L03>b\r\n"), FileFault::kRowTag, 5,
                "<L03>");
  ExpectFailure(Page("Row = 2\r\nCol = 80\r\n<L01>a\r\n<L02>b<L1>\r\n"), FileFault::kRowTag, 5,
                "<L1>");
}

TEST_F(MessageFileFailure, AFileThatIsReadHasNone) {
  Brivon1::FileFailure why;
  EXPECT_TRUE(Brivon1::LoadMessageFile(Page("Row = 1\r\nCol = 80\r\n<L01>a\r\n"), &why));
  EXPECT_EQ(why.fault, FileFault::kNone);
}

}  // namespace
