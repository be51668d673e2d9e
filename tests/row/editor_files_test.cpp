// How every editor of rows opens and saves its files, and when it asks about unsaved work.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

#include "row/editor_driver.h"
#include "support/full_disk.h"
#include "support/pipe_file.h"

namespace {

TEST_P(RowEditor, TheSaveQuestionHasAQuestionIconYesNoCancelAndTheWindowsCaptionAsTitle) {
  Keys("x");
  const MessageBoxReader boxes;
  Press("butExit");
  ASSERT_EQ(boxes.Texts(), QStringList(Text(kQuestion)));
  EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::Question);
  EXPECT_EQ(boxes.Seen()[0].title, Text(kind_.title));
  EXPECT_EQ(boxes.Seen()[0].buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  EXPECT_EQ(boxes.Seen()[0].default_button, QMessageBox::Yes);
  EXPECT_EQ(boxes.Seen()[0].escape_button, QMessageBox::Cancel);
  EXPECT_EQ(boxes.Seen()[0].parent, &window_);
}

TEST_P(RowEditor, CancelStopsNewOpenSendAndExit) {
  Keys("x");
  const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver open(Text("CMDialog1"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver send(Text(kind_.send_dialog), [](QWidget* w) { w->close(); });
  const MessageBoxReader boxes;
  for (const char* name : {"butNew", "butOpen", "butSend", "butExit"}) Press(name);
  EXPECT_EQ(boxes.Seen().size(), 4);
  EXPECT_EQ(dimension.Count() + open.Count() + send.Count(), 0);
  EXPECT_TRUE(window_.isVisible());
  ExpectCursor(1, 1);
}

TEST_P(RowEditor, ExitClosesAndNoDropsTheChanges) {
  Keys("x");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Press("butExit");
  EXPECT_FALSE(window_.isVisible());
  EXPECT_EQ(folder_.Read(Text(kind_.new_file)), "");
}

TEST_P(RowEditor, TheCloseBoxAndEscapeAskLikeExit) {
  Keys("x");
  MessageBoxReader boxes;
  EXPECT_FALSE(window_.close());
  EXPECT_TRUE(window_.isVisible());
  Key(Qt::Key_Escape);
  EXPECT_TRUE(window_.isVisible());
  EXPECT_EQ(boxes.Texts(), QStringList({Text(kQuestion), Text(kQuestion)}));
  boxes.Answer(QMessageBox::Yes);
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
  EXPECT_EQ(folder_.Read(Text(kind_.new_file)), FileOf("<SA><CA>x"));
}

TEST_P(RowEditor, WithoutChangesTheWindowClosesWithoutAQuestion) {
  const MessageBoxReader boxes;
  EXPECT_TRUE(window_.close());
  EXPECT_TRUE(boxes.Seen().isEmpty());
}

TEST_P(RowEditor, WorkThatIsNotSavedIsMarkedBesideItsName) {
  const auto* mark = Find<QLabel>("lblNotSaved");
  EXPECT_FALSE(mark->isVisible());
  Keys("x");
  EXPECT_TRUE(mark->isVisible());
  EXPECT_EQ(mark->text(), Text("not saved"));
  EXPECT_EQ(window_.windowTitle(), Text(kind_.title));
  EXPECT_EQ(FileName(), folder_.Path(Text(kind_.new_file)));
  Press("butSave");
  EXPECT_FALSE(mark->isVisible());
  Key(Qt::Key_Backspace);
  EXPECT_TRUE(mark->isVisible());
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Open(WriteWork("a", "<SA><CA>y"));
  EXPECT_FALSE(mark->isVisible());
  Keys("z");
  const ModalWindowDriver send(Text(kind_.send_dialog), [](QWidget* w) { w->close(); });
  boxes.Answer(QMessageBox::Yes);
  Press("butSend");
  EXPECT_EQ(send.Count(), 1);
  EXPECT_FALSE(mark->isVisible());
}

TEST_P(RowEditor, TheSaveQuestionSaysWhatYesWritesAndWhatItReplaces) {
  Keys("x");
  const MessageBoxReader boxes;
  Press("butExit");
  const QString where = Text("It will be saved as \"%1\".").arg(folder_.Path(Text(kind_.new_file)));
  EXPECT_EQ(boxes.Seen()[0].informative, where);
  folder_.Write(Text(kind_.new_file), "of yesterday");
  Press("butExit");
  EXPECT_EQ(boxes.Seen()[1].informative,
            where + Text("\nAn older file of this name will be replaced."));
  Press("butSave");
  Activate();
  Surface()->setFocus();
  Keys("y");
  Press("butExit");
  ASSERT_EQ(boxes.Seen().size(), 3);
  EXPECT_EQ(boxes.Seen()[2].informative, where);
}

TEST_P(RowEditor, CtrlReturnSendsAsTheButtonDoes) {
  const ModalWindowDriver send(Text(kind_.send_dialog), [](QWidget* w) { w->close(); });
  Key(Qt::Key_Return, Qt::ControlModifier);
  Activate();
  Key(Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
  Activate();
  EXPECT_EQ(send.Count(), 2);
  EXPECT_EQ(Button("butSend")->toolTip(), Text("Ctrl+Return"));
  // It types nothing.
  ExpectCursor(0, 0);
  Keys("x");
  const MessageBoxReader boxes;  // answers with Cancel
  Key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(boxes.Texts(), QStringList(Text(kQuestion)));
  EXPECT_EQ(send.Count(), 2);
}

TEST_P(RowEditor, CtrlReturnThatIsHeldTooLongOpensNothing) {
  const ModalWindowDriver send(Text(kind_.send_dialog), [](QWidget* w) { w->close(); });
  const auto press = [&](bool is_repeated) {
    QTest::simulateEvent(Surface(), true, Qt::Key_Return, Qt::ControlModifier, Text("\r"),
                         is_repeated);
  };
  press(true);
  EXPECT_EQ(send.Count(), 0);
  press(false);
  EXPECT_EQ(send.Count(), 1);
}

TEST_P(RowEditor, SaveWritesUnderTheShownNameAndClearsTheModifiedFlag) {
  Keys("x");
  const ModalWindowDriver file(Text("CMDialog1"), [](QWidget* w) { w->close(); });
  Press("butSave");
  EXPECT_EQ(file.Count(), 0);
  EXPECT_EQ(FileName(), folder_.Path(Text(kind_.new_file)));
  EXPECT_EQ(folder_.Read(Text(kind_.new_file)), FileOf("<SA><CA>x"));
  EXPECT_FALSE(Asks());
}

TEST_P(RowEditor, SaveAsWritesUnderTheChosenNameWhichIsTheFilesNameFromThenOn) {
  Keys("x");
  const QString path = folder_.Write(Text("there"), "replaced without a question");
  const MessageBoxReader boxes;
  EXPECT_EQ(SavedAs(path), FileOf("<SA><CA>x"));
  EXPECT_EQ(FileName(), path);
  EXPECT_FALSE(Asks());
  Keys("y");
  Press("butSave");
  EXPECT_EQ(folder_.Read(Text("there")), FileOf("<SA><CA>xy"));
  EXPECT_EQ(folder_.Read(Text(kind_.new_file)), "");
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_FALSE(Asks());
}

TEST_P(RowEditor, AFileDialogThatIsCancelledChangesNothing) {
  Keys("x");
  Choose("butSaveAs", QString());
  EXPECT_EQ(FileName(), folder_.Path(Text(kind_.new_file)));
  EXPECT_TRUE(Asks());
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Open(QString());
  EXPECT_EQ(dialogs_, 2);
  EXPECT_EQ(FileName(), folder_.Path(Text(kind_.new_file)));
  EXPECT_TRUE(Asks());
  EXPECT_EQ(Saved(), FileOf("<SA><CA>x"));
}

TEST_P(RowEditor, APathLongerThanItsFieldIsRefusedWhenItIsChosen) {
  Keys("x");
  const MessageBoxReader boxes;
  Choose("butSaveAs", folder_.Path(QString(100, QLatin1Char('n'))));
  EXPECT_EQ(boxes.Texts(), QStringList(Text("Invalid path!")));
  EXPECT_EQ(FileName(), folder_.Path(Text(kind_.new_file)));
  EXPECT_TRUE(Asks());
}

TEST_P(RowEditor, AFileMayHaveANameInAnyScript) {
  Keys("x");
  const QString path = Path("Fußgänger 中文 100%1 & <b>");
  EXPECT_NE(SavedAs(path), "no file");
  EXPECT_EQ(FileName(), path);
  EXPECT_FALSE(Asks());
  kind_.begin(*this);
  Open(path);
  EXPECT_EQ(FileName(), path);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>x"));
}

TEST_P(RowEditor, TheFileDialogsHaveTheirTitlesAndFiltersAndNoPresetName) {
  const QString folder = QFileInfo(folder_.Path(Text("x"))).absolutePath();
  Open(QString());
  EXPECT_EQ(dialogs_, 1);
  EXPECT_EQ(dialog_.title, Text("Open Message"));
  EXPECT_EQ(dialog_.filters, kind_.open_filters);
  EXPECT_EQ(dialog_.filter, kind_.open_filters[1]);
  EXPECT_EQ(dialog_.folder, folder);
  Choose("butSaveAs", QString());
  EXPECT_EQ(dialogs_, 2);
  EXPECT_EQ(dialog_.title, Text("Save As"));
  EXPECT_EQ(dialog_.filters, kind_.save_filters);
  EXPECT_EQ(dialog_.filter, kind_.save_filters[1]);
  EXPECT_EQ(dialog_.folder, folder);
  EXPECT_EQ(dialog_.name, QString());
}

TEST_P(RowEditor, AFileThatIsNotThereGivesTheMessageAndNothingElseChanges) {
  const MessageBoxReader boxes;
  Open(Path("missing"));
  EXPECT_EQ(boxes.Texts(), QStringList(Text("File not found!")));
  EXPECT_EQ(FileName(), folder_.Path(Text(kind_.new_file)));
}

TEST_P(RowEditor, APipeGivesTheMessageAndNothingElseChanges) {
  const MessageBoxReader boxes;
  const QString pipe = Path("pipe");
  ASSERT_TRUE(MakePipe(pipe));
  Open(pipe);  // nobody writes: opening it would wait for ever
  EXPECT_EQ(boxes.Texts(), QStringList(Text("File not found!")));
  EXPECT_EQ(FileName(), folder_.Path(Text(kind_.new_file)));
}

TEST_P(RowEditor, ARefusedFileGivesItsMessageAndLeavesTheWorkOnScreen) {
  Keys("old");
  Press("butSave");
  for (const EditorKind::RefusedFile& file : kind_.refused_files) {
    const MessageBoxReader boxes;
    Open(folder_.Write(Text("hostile"), file.content));
    ASSERT_EQ(boxes.Texts(), QStringList(Text(file.message)));
    EXPECT_EQ(boxes.Seen()[0].title, Text(kind_.title));
    EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::NoIcon);
    EXPECT_EQ(boxes.Seen()[0].parent, &window_);
    ExpectCursor(3, 3);
  }
  QFile huge(folder_.Write(Text("hostile"), kind_.start));
  ASSERT_TRUE(huge.resize(100 * 1024 * 1024));
  const MessageBoxReader boxes;
  Open(huge.fileName());
  EXPECT_EQ(boxes.Texts(), QStringList(Text("Error in Opening file!")));
  EXPECT_FALSE(Asks());
  EXPECT_EQ(Saved(), FileOf("<SA><CA>old"));
}

TEST_P(RowEditor, ASaveOntoAFullDiskLeavesTheOldFileTheNameAndTheModifiedFlag) {
  folder_.Write(Text(kind_.new_file), "the old file");
  Keys("x");
  const MessageBoxReader boxes;
  {
    const FullDisk full_disk(20);
    Press("butSave");
    Choose("butSaveAs", Path("other"));
  }
  EXPECT_EQ(boxes.Texts(),
            QStringList({Text("Drive not available!"), Text("Drive not available!")}));
  EXPECT_EQ(boxes.Seen()[0].title, Text(kind_.title));
  EXPECT_EQ(folder_.Read(Text(kind_.new_file)), "the old file");
  EXPECT_EQ(FileName(), folder_.Path(Text(kind_.new_file)));
  EXPECT_TRUE(Asks());
  EXPECT_EQ(Saved(), FileOf("<SA><CA>x"));
}

TEST_P(RowEditor, AnOperationThatWasToFollowAFailedSaveDoesNotHappen) {
  // A folder in place of the file.
  ASSERT_TRUE(QDir().mkdir(folder_.Path(Text(kind_.new_file))));
  Keys("x");
  const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver open(Text("CMDialog1"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver send(Text(kind_.send_dialog), [](QWidget* w) { w->close(); });
  for (const char* name : {"butNew", "butOpen", "butSend", "butExit"}) {
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::Yes);
    Press(name);
    EXPECT_EQ(boxes.Texts(), QStringList({Text(kQuestion), Text("Invalid path!")})) << name;
  }
  EXPECT_EQ(dimension.Count() + open.Count() + send.Count(), 0);
  EXPECT_TRUE(window_.isVisible());
  ExpectCursor(1, 1);
  EXPECT_TRUE(Asks());
}

TEST_P(RowEditor, AFileThatIsDroppedIsOpened) {
  const QString path = WriteWork("Grüße", "<SA><CA>ab");
  EXPECT_TRUE(Drop({path}));
  EXPECT_EQ(FileName(), path);
  EXPECT_FALSE(Asks());
  ExpectCursor(2, 2);
  const MessageBoxReader boxes;
  EXPECT_TRUE(Drop({folder_.Write(Text("hostile"), kind_.refused_files[0].content)}));
  EXPECT_EQ(boxes.Texts(), QStringList(Text(kind_.refused_files[0].message)));
  EXPECT_EQ(Saved(), FileOf("<SA><CA>ab"));
}

TEST_P(RowEditor, ADroppedFileAsksAboutUnsavedWork) {
  const QString path = WriteWork("a", "<SA><CA>ab");
  Keys("x");
  MessageBoxReader boxes;  // answers with Cancel
  EXPECT_TRUE(Drop({path}));
  EXPECT_EQ(boxes.Texts(), QStringList(Text(kQuestion)));
  EXPECT_EQ(FileName(), folder_.Path(Text(kind_.new_file)));
  ExpectCursor(1, 1);
  boxes.Answer(QMessageBox::Yes);
  EXPECT_TRUE(Drop({path}));
  EXPECT_EQ(folder_.Read(Text(kind_.new_file)), FileOf("<SA><CA>x"));
  EXPECT_EQ(FileName(), path);
  ExpectCursor(2, 2);
}

TEST_P(RowEditor, AnythingButOneFileIsNotTakenAsADrop) {
  const QString path = WriteWork("a", "<SA><CA>ab");
  const QString before = FileName();
  Keys("x");
  const MessageBoxReader boxes;
  EXPECT_FALSE(Drop({path, WriteWork("b", "<SA><CA>b")}));
  EXPECT_FALSE(Drop({Path("missing")}));
  EXPECT_FALSE(Drop({QFileInfo(path).absolutePath()}));
  QMimeData data;
  data.setText(Text("text"));
  EXPECT_FALSE(::Drop(window_, data));
  data.setUrls({QUrl(Text("http://example.org/a"))});
  EXPECT_FALSE(::Drop(window_, data));
  data.setUrls({QUrl::fromLocalFile(path)});
  EXPECT_FALSE(::Drop(window_, data, Qt::MoveAction)) << "the file stays where it is";
  EXPECT_FALSE(Surface()->acceptDrops());
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_EQ(FileName(), before);
  ExpectCursor(1, 1);
}

TEST_P(RowEditor, ADropThatADialogOvertakesOpensNothing) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(WriteWork("a", "<SA><CA>ab"))});
  ASSERT_TRUE(BeginDrop(window_, data));
  const ModalWindowDriver open(Text("CMDialog1"), [](QWidget* dialog) {
    QCoreApplication::processEvents();
    dialog->close();
  });
  Press("butOpen");
  EXPECT_EQ(open.Count(), 1);
  EXPECT_EQ(FileName(), folder_.Path(Text(kind_.new_file)));
}

TEST_P(RowEditor, BehindADialogNothingIsTakenAsADrop) {
  const QString path = WriteWork("a", "<SA><CA>ab");
  bool is_taken = true;
  const ModalWindowDriver open(Text("CMDialog1"), [&](QWidget* dialog) {
    is_taken = Drop({path});
    dialog->close();
  });
  Press("butOpen");
  EXPECT_EQ(open.Count(), 1);
  EXPECT_FALSE(is_taken);
  EXPECT_EQ(FileName(), folder_.Path(Text(kind_.new_file)));
}

TEST_P(RowEditor, SendGivesTheCurrentFileToTheSendDialog) {
  const QString path = WriteWork("sent", "ab");
  Open(path);
  QString given;
  const ModalWindowDriver send(Text(kind_.send_dialog), [&](QWidget* dialog) {
    given = dialog->findChild<QLabel*>(Text("lblFileName"))->text();
    dialog->close();
  });
  Press("butSend");
  EXPECT_EQ(send.Count(), 1);
  EXPECT_EQ(given, path);
}

}  // namespace
