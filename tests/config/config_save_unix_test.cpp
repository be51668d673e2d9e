// OK where the file or its folder may not be written.
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "config/config_dialog.h"
#include "support/as_nobody.h"

namespace {

TEST_F(ConfigDialogTest, AFolderWithoutPermissionIsReportedAndTheDialogStaysOpen) {
  Open(kTwoPanels);
  Click("opt9600");
  const QByteArray folder = QFile::encodeName(QFileInfo(folder_.Path(Text("x"))).path());
  ASSERT_EQ(chmod(folder.constData(), 0555), 0);
  // The superuser may write everywhere, so the save is done as somebody else.
  const bool is_superuser = geteuid() == 0;
  if (is_superuser) {
    ASSERT_EQ(seteuid(65534), 0);
  }
  Click("butOK");
  if (is_superuser) {
    ASSERT_EQ(seteuid(0), 0);
  }
  ASSERT_EQ(chmod(folder.constData(), 0755), 0);
  ExpectOneBox("Invalid path!");
  EXPECT_EQ(reader_.Seen().first().informative,
            folder_.Path(Text("brivon.ini")) +
                Text(": Permission denied\nMake sure that this file can be read and written, then "
                     "press \"OK\" again."));
  EXPECT_TRUE(window_->isVisible());
  EXPECT_TRUE(Option("opt9600")->isChecked());
  EXPECT_EQ(File(), kTwoPanels);
}

TEST_F(ConfigDialogTest, AFileThatMayNotBeWrittenIsReadAndTheRefusedSaveNamesIt) {
  folder_.Write(Text("brivon.ini"), kTwoPanels);
  const QString path = folder_.Path(Text("brivon.ini"));
  const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
  ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0444), 0);
  ASSERT_EQ(chmod(folder.constData(), 0777), 0);
  {
    const AsNobody nobody;
    Open();
    EXPECT_EQ(Lines(), (QStringList{Text(kLine1), Text(kLine12)}));
    Click("opt9600");
    Click("butOK");
  }
  ExpectOneBox("Invalid path!");
  EXPECT_EQ(reader_.Seen().first().informative,
            path + Text(": Permission denied\nMake sure that this file can be read and written, "
                        "then press \"OK\" again."));
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(File(), kTwoPanels);
  EXPECT_EQ(QDir(QFileInfo(path).path()).entryList(QDir::Files | QDir::Hidden),
            QStringList{Text("brivon.ini")});
}

}  // namespace
