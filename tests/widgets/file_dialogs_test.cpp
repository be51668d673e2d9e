// The file dialogs and the save question of all windows.
#include "widgets/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QTest>

#include <gtest/gtest.h>

#include "store/configuration_store.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "widgets/message_boxes.h"

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

TEST_F(FileDialogsTest, BothAreTheToolkitsOwnAndStartInTheProgramsFolder) {
  int seen = 0;
  const ModalWindowDriver driver(Text("CMDialog1"), [&](QWidget* window) {
    auto* dialog = qobject_cast<QFileDialog*>(window);
    EXPECT_TRUE(dialog->testOption(QFileDialog::DontUseNativeDialog));
    EXPECT_EQ(dialog->directory().absolutePath(), Brivon1::ProgramFolder());
    EXPECT_EQ(dialog->fileMode(), QFileDialog::AnyFile);
    EXPECT_EQ(dialog->acceptMode(),
              seen++ == 0 ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    EXPECT_EQ(dialog->nameFilters(), QStringList({Text("All (*)"), Text("Message File (*.msg)")}));
    EXPECT_EQ(dialog->selectedNameFilter(), Text("Message File (*.msg)"));
    EXPECT_EQ(dialog->parentWidget(), &window_);
    dialog->reject();
  });
  const QString filter = Text("All|*.*|Message File|*.msg");
  EXPECT_EQ(ShowFileDialog(&window_, Text("Open"), filter, 2), QString());
  EXPECT_EQ(ShowSaveDialog(&window_, Text("Save As"), filter, 2), QString());
  EXPECT_EQ(seen, 2);
}

TEST_F(FileDialogsTest, AFileIsOpenedUnderItsFullPath) {
  const QString path = folder_.Write(Text("a.msg"), "x");
  const FileChooser chooser(Text("a.msg"));
  EXPECT_EQ(ShowFileDialog(&window_, Text("Open"), Text("All|*.*"), 1), path);
}

TEST_F(FileDialogsTest, AChosenFileThatDoesNotExistGivesTheMessageAndNothingElse) {
  const MessageBoxReader boxes;
  const FileChooser chooser(folder_.Path(Text("gone.msg")));
  EXPECT_EQ(ShowFileDialog(&window_, Text("Open"), Text("All|*.*"), 1), QString());
  EXPECT_EQ(boxes.Texts(), QStringList{Text("File not found!")});
}

TEST_F(FileDialogsTest, AWindowMayGiveItsDialogANameAndItsMessageAnotherEnd) {
  folder_.UseLanguage("[Message]\r\nmsgNotFound=Datei fehlt\r\n");
  const MessageBoxReader boxes;
  const FileChooser chooser(folder_.Path(Text("gone.sch")), Text("DialogBrowse"));
  EXPECT_EQ(ShowFileDialog(&window_, Text("Browse"), Text("All|*.*"), 1,
                           {Text("DialogBrowse"), QString()}),
            QString());
  EXPECT_EQ(chooser.Count(), 1);
  EXPECT_EQ(boxes.Texts(), QStringList{Text("Datei fehlt")});
}

TEST_F(FileDialogsTest, ASaveGoesUnderExactlyTheEnteredNameWithoutTheOverwriteQuestion) {
  const MessageBoxReader boxes;
  for (const char* name : {"old.msg", "no suffix", "two.dots.msg"}) {
    const QString path = folder_.Write(Text(name), "old");
    const FileChooser chooser(path);
    EXPECT_EQ(ShowSaveDialog(&window_, Text("Save As"), Text("Message File|*.msg"), 1), path);
  }
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_EQ(folder_.Read(Text("old.msg")), "old");
}

TEST_F(FileDialogsTest, APathLongerThanIts100CharacterFieldIsRefusedWhenItIsChosen) {
  const qsizetype before = folder_.Path(Text("a")).size() - 1;
  const QString fits = folder_.Path(QString(100 - before, u'a'));
  ASSERT_EQ(fits.size(), 100);
  const MessageBoxReader boxes;
  {
    const FileChooser chooser(fits);
    EXPECT_EQ(ShowSaveDialog(&window_, Text("Save As"), Text("All|*.*"), 1), fits);
  }
  EXPECT_TRUE(boxes.Seen().isEmpty());
  const FileChooser chooser(fits + u'a');
  EXPECT_EQ(ShowSaveDialog(&window_, Text("Save As"), Text("All|*.*"), 1), QString());
  EXPECT_EQ(boxes.Texts(), QStringList{Text("Invalid path!")});
}

TEST_F(FileDialogsTest, NothingInAMessageBoxIsTakenForMarkup) {
  QStringList shown;
  const ModalWindowDriver driver(QString(), [&](QWidget* box) {
    shown = ShownTexts(*box);
    QTest::keyClick(box, Qt::Key_Return);
  });
  MessageBoxStyle style;
  style.informative = Text("/home/<b>x</b>/brivon.ini");
  ShowMessage(&window_, Text("<i>Invalid path!</i>"), style);
  EXPECT_EQ(driver.Count(), 1);
  EXPECT_TRUE(shown.contains(Text("<i>Invalid path!</i>")));
  EXPECT_TRUE(shown.contains(Text("/home/<b>x</b>/brivon.ini"))) << shown.join(u'|').toStdString();
}

TEST_F(FileDialogsTest, TheSaveQuestionHasItsIconItsButtonsAndTheWindowsCaption) {
  folder_.UseLanguage("[Message]\r\nmsgSave=Sichern?\r\n");
  window_.setWindowTitle(Text("Editor"));
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::Yes);
  boxes.Answer(QMessageBox::No);
  boxes.Answer(QMessageBox::Cancel);
  EXPECT_EQ(AskToSave(&window_), SaveAnswer::kYes);
  EXPECT_EQ(AskToSave(&window_), SaveAnswer::kNo);
  EXPECT_EQ(AskToSave(&window_), SaveAnswer::kCancel);
  ASSERT_EQ(boxes.Seen().size(), 3);
  EXPECT_EQ(boxes.Seen()[0].text, Text("Sichern?"));
  EXPECT_EQ(boxes.Seen()[0].title, Text("Editor"));
  EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::Question);
  EXPECT_EQ(boxes.Seen()[0].buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
}

TEST_F(FileDialogsTest, EscapeAtTheSaveQuestionMeansCancel) {
  const ModalWindowDriver driver(QString(),
                                 [](QWidget* box) { QTest::keyClick(box, Qt::Key_Escape); });
  EXPECT_EQ(AskToSave(&window_), SaveAnswer::kCancel);
  EXPECT_EQ(driver.Count(), 1);
}

}  // namespace
