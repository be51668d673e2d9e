// A first start at which the program's own files could not be laid out.
#include "app/first_start.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include "app/launcher.h"
#include "store/program_folder.h"
#include "support/message_box_reader.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::LayOutFailure;
using Brivon1::SaveResult;

TEST_F(MainWindowTest, AFirstStartThatCouldNotLayItsFilesOutSaysWhereAndWhy) {
  frmMain window;
  window.show();
  const MessageBoxReader reader;
  TellLayOutFailure(&window,
                    {SaveResult::kInvalidPath, u"/sealed/brivon"_s, u"Permission denied"_s});
  QCoreApplication::processEvents();
  ASSERT_EQ(reader.Texts(), QStringList{u"Invalid path!"_s});
  EXPECT_EQ(reader.Seen().first().parent, &window);
  EXPECT_EQ(reader.Seen().first().title, u"Brivon V.M.2.41M"_s);
  EXPECT_EQ(reader.Seen().first().icon, QMessageBox::NoIcon);
  EXPECT_EQ(reader.Seen().first().informative,
            QDir::toNativeSeparators(u"/sealed/brivon"_s) +
                u": Permission denied\nBrivon keeps its files in "_s +
                QDir::toNativeSeparators(Brivon1::ProgramFolder()) +
                u". Make sure that it can write there, then start it again."_s);
}

TEST_F(MainWindowTest, AFirstStartOnAFullDiskSaysSo) {
  frmMain window;
  window.show();
  const MessageBoxReader reader;
  TellLayOutFailure(&window, {SaveResult::kDriveNotAvailable, u"/full/brivon/messages/a.msg"_s,
                              u"No space left on device"_s});
  QCoreApplication::processEvents();
  EXPECT_EQ(reader.Texts(), QStringList{u"Drive not available!"_s});
}

TEST_F(MainWindowTest, AFirstStartWhileAnotherProgramSavesNamesItsLock) {
  frmMain window;
  window.show();
  const MessageBoxReader reader;
  TellLayOutFailure(&window, {SaveResult::kLocked, u"/shared/brivon/brivon.ini"_s,
                              u"Another program is saving it."_s});
  QCoreApplication::processEvents();
  ASSERT_EQ(reader.Texts(), QStringList{u"Drive not available!"_s});
  const QString configuration = u"/shared/brivon/brivon.ini"_s;
  // A path without a drive's letter stands on the program's.
  const QString lock = QFileInfo(configuration).absoluteFilePath() + u".lock"_s;
  EXPECT_EQ(reader.Seen().first().informative,
            QDir::toNativeSeparators(configuration) +
                u": Another program is saving it.\n"
                u"Start Brivon again. If no other program is saving it, delete "_s +
                QDir::toNativeSeparators(lock) + u" first."_s);
}

TEST_F(MainWindowTest, AnyOtherStartSaysNothing) {
  frmMain window;
  window.show();
  const MessageBoxReader reader;
  TellLayOutFailure(&window, {});
  QCoreApplication::processEvents();
  EXPECT_EQ(reader.Texts(), QStringList());
}

}  // namespace
