// What the launcher says about the program itself.
#include <QAction>
#include <QCoreApplication>
#include <QDir>

#include "app/launcher.h"
#include "store/program_folder.h"
#include "support/message_box_reader.h"

using namespace Qt::StringLiterals;

namespace {

QString ShownFolder() { return QDir::toNativeSeparators(Brivon1::ProgramFolder()); }

TEST_F(MainWindowTest, TheToolTipNamesTheProgramFolder) {
  const frmMain window;
  EXPECT_EQ(window.toolTip(), u"Program folder: "_s + ShownFolder());
}

TEST_F(MainWindowTest, AboutSaysTheVersionTheFolderAndTheLicences) {
  QCoreApplication::setApplicationVersion(u"9.87"_s);
  frmMain window;
  ASSERT_EQ(window.contextMenuPolicy(), Qt::ActionsContextMenu);
  ASSERT_EQ(window.actions().size(), 1);
  EXPECT_EQ(window.actions().first()->text(), u"About"_s);
  window.show();
  MessageBoxReader reader;
  window.actions().first()->trigger();
  QCoreApplication::processEvents();
  QCoreApplication::setApplicationVersion({});
  ASSERT_EQ(reader.Seen().size(), 1);
  EXPECT_EQ(reader.Seen().first().title, u"About"_s);
  EXPECT_EQ(reader.Seen().first().text, u"Brivon 9.87"_s);
  const QStringList lines = reader.Seen().first().informative.split(u'\n');
  ASSERT_EQ(lines.size(), 2);
  EXPECT_EQ(lines[0], u"Program folder: "_s + ShownFolder());
  EXPECT_TRUE(lines[1].startsWith(u"Brivon is under the MIT license, the toolkit Qt 6."_s));
}

TEST_F(MainWindowTest, AboutSpeaksTheLanguageOfTheFile) {
  Language("2");
  folder_.Write(Text("langSetting.INI"),
                "[Texts]\r\ntxtAbout=\xDC"
                "ber\r\ntxtProgramFolder=Ordner: %1\r\n");
  const frmMain window;
  EXPECT_EQ(window.actions().first()->text(), u"Über"_s);
  EXPECT_EQ(window.toolTip(), u"Ordner: "_s + ShownFolder());
}

}  // namespace
