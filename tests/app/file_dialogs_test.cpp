// The file dialogs of all windows.
#include "app/file_dialogs.h"

#include <QFileDialog>

#include <gtest/gtest.h>

#include "support/message_box_reader.h"
#include "support/program_folder.h"

namespace {

QString Text(const char* text) { return QString::fromUtf8(text); }

class FileDialogsTest : public testing::Test {
 protected:
  TemporaryProgramFolder folder_;
  QWidget window_;
};

TEST_F(FileDialogsTest, TitlesOfAllFileDialogsGoThroughTheMessageLookup) {
  folder_.UseLanguage(
      "[Message]\r\nmsgBrowse=Durchsuchen\r\n[frmMsgEditor]\r\nDialogTitleSaveAs=Sichern\r\n");
  QStringList titles;
  const ModalWindowDriver driver(Text("CMDialog1"), [&](QWidget* dialog) {
    titles.append(dialog->windowTitle());
    qobject_cast<QFileDialog*>(dialog)->reject();
  });
  EXPECT_EQ(ShowFileDialog(&window_, Text("Browse"), Text("All|*.*"), 1), QString());
  EXPECT_EQ(ShowSaveDialog(&window_, Text("Save As"), Text("All|*.*"), 1), QString());
  EXPECT_EQ(titles, QStringList({Text("Durchsuchen"), Text("Sichern")}));
}

TEST_F(FileDialogsTest, ANameToSaveUnderMayBeAsLongAsItsFieldAndNoLonger) {
  const QString fits = folder_.Path(Text("x")).leftJustified(100, QLatin1Char('x'));
  MessageBoxReader boxes;
  {
    const FileChooser chooser(fits);
    EXPECT_EQ(ShowSaveDialog(&window_, Text("Save As"), Text("All|*.*"), 1), fits);
  }
  EXPECT_TRUE(boxes.Seen().isEmpty());
  const FileChooser chooser(fits + QLatin1Char('x'));
  EXPECT_EQ(ShowSaveDialog(&window_, Text("Save As"), Text("All|*.*"), 1), QString());
  EXPECT_EQ(boxes.Texts(), QStringList(Text("Invalid path!")));
}

}  // namespace
