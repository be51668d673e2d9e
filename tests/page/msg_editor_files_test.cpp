// The files of the page editor, and what it leaves modified.
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include "page/msg_editor.h"

namespace {

TEST_F(MsgEditor, OpenReadsAFileAndClearsTheModifiedFlag) {
  New(4, 96);
  Keys("x");
  const QString path = WriteMessage("two.msg", "<L01><SG><CD>Hello\r\n<L02><SA>~A\r\n");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Open(path);
  EXPECT_EQ(FileName(), path);
  EXPECT_EQ(Find<QLabel>("lblRow")->text(), Text("2"));
  EXPECT_EQ(Find<QLabel>("lblCol")->text(), Text("80"));
  EXPECT_TRUE(Row(2)->isVisible());
  EXPECT_FALSE(Row(3)->isVisible());
  EXPECT_EQ(ReadOut(Row(1)), Text("Hello"));
  EXPECT_FALSE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SG><CD>Hello\r\n<L02><SA><CD>~A\r\n");
}

TEST_F(MsgEditor, APageBegunForAPanelOfSixteenRowsHasTwelve) {
  folder_.Configure("[Dimension Config]\r\nID001=16x128,Tri,127.0.0.1:80\r\n");
  const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* dialog) {
    QTest::mouseClick(dialog->findChild<QPushButton*>(Text("butOK")), Qt::LeftButton);
  });
  Press("butNew");
  ASSERT_EQ(dimension.Count(), 1);
  Activate();
  Keys("a");
  for (int row = 0; row < 20; ++row) Key(Qt::Key_Down);
  Keys("z");
  QByteArray lines = "<L01><SA><CA>a\r\n";
  for (const char* tag : {"02", "03", "04", "05", "06", "07", "08", "09", "10", "11"}) {
    lines += QByteArray("<L") + tag + ">\r\n";
  }
  EXPECT_EQ(Saved(), "*** Brivon Message File ***\r\nRow = 12\r\nCol = 128\r\n" + lines +
                         "<L12><SA><CA>z\r\n");
}

TEST_F(MsgEditor, AFileOfSixteenRowsIsRefusedAndLeavesThePage) {
  New(2, 80);
  Keys("kept");
  const QString path =
      folder_.Write(Text("16.msg"), "*** Brivon Message File ***\r\nRow = 16\r\nCol = 128\r\n" +
                                        QByteArray("<L01>x\r\n").repeated(16));
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Open(path);
  EXPECT_EQ(boxes.Texts().last(), Text("Error in Opening file!"));
  EXPECT_EQ(RowLines(), "<L01><SA><CA>kept\r\n<L02>\r\n");
}

TEST_F(MsgEditor, DeleteMarksThePageAsNotSavedAlsoWhereItIsNotAskedAbout) {
  Open(WriteMessage("two.msg", "<L01>ab\r\n<L02>\r\n"));
  const auto* mark = Find<QLabel>("lblNotSaved");
  Key(Qt::Key_Home);
  EXPECT_FALSE(mark->isVisible());
  Key(Qt::Key_Delete);
  EXPECT_TRUE(mark->isVisible());
  EXPECT_FALSE(Asks());
  Press("butSave");
  EXPECT_FALSE(mark->isVisible());
  Activate();
  Surface()->setFocus();
  // After "Yes" the page counts as modified on, and nothing is left to be saved until an edit.
  Keys("x");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::Yes);
  const ModalWindowDriver send(Text("frmSendMsg"), [](QWidget* w) { w->close(); });
  Press("butSend");
  EXPECT_FALSE(mark->isVisible());
  Activate();
  Surface()->setFocus();
  Key(Qt::Key_Delete);
  EXPECT_TRUE(mark->isVisible());
  EXPECT_TRUE(Asks());
}

TEST_F(MsgEditor, SaveAfterOpenWritesTheOpenedFileWithoutAskingForAName) {
  const MessageBoxReader boxes;
  Open(folder_.Write(Text("bad.msg"), "bad"));  // refused: forgotten with the next file
  const QString path = WriteMessage("two.msg", "<L01>ab\r\n<L02>\r\n");
  Open(path);
  Keys("c");
  const ModalWindowDriver file(Text("CMDialog1"), [](QWidget* w) { w->close(); });
  Press("butSave");
  EXPECT_EQ(file.Count(), 0);
  EXPECT_EQ(boxes.Texts(), QStringList(Text("Error in opening file!")));
  EXPECT_EQ(FileName(), path);
  EXPECT_EQ(folder_.Read(Text("two.msg")),
            "*** Brivon Message File ***\r\nRow = 2\r\nCol = 80\r\n<L01><SA><CA>abc\r\n<L02>\r\n");
  EXPECT_FALSE(Asks());
}

TEST_F(MsgEditor, OpeningAFileWhoseHeaderIsBadLeavesTheOldPageOnScreenWithTheNewNameInTheLabel) {
  New(2, 80);
  Keys("old");
  RowLines();
  const QString bad = folder_.Write(Text("bad.msg"), "*** Some Other Kind Of File ***\r\n");
  const MessageBoxReader boxes;
  Open(bad);
  ASSERT_EQ(boxes.Texts(), QStringList(Text("Error in opening file!")));
  EXPECT_EQ(boxes.Seen()[0].title, Text("Message Editor"));
  EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::NoIcon);
  EXPECT_EQ(boxes.Seen()[0].parent, &window_);
  EXPECT_EQ(FileName(), bad);
  EXPECT_EQ(Find<QLabel>("lblRow")->text(), Text("2"));
  EXPECT_EQ(RowLines(), "<L01><SA><CA>old\r\n<L02>\r\n");
}

TEST_F(MsgEditor, AFileThatFailsBehindItsHeaderGivesTheOtherMessageAndLeavesThePageWhole) {
  New(2, 80);
  Keys("old");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Open(WriteMessage("torn.msg", "<L01>new\r\n<L05>wrong\r\n"));
  EXPECT_EQ(boxes.Texts(), QStringList({Text(kQuestion), Text("Error in Opening file!")}));
  EXPECT_EQ(FileName(), folder_.Path(Text("torn.msg")));
  EXPECT_EQ(Find<QLabel>("lblRow")->text(), Text("2"));
  EXPECT_EQ(Find<QLabel>("lblCol")->text(), Text("80"));
  EXPECT_TRUE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SA><CA>old\r\n<L02>\r\n");
}

TEST_F(MsgEditor, AfterAFileThatTheEditorRefusesSaveAsksForAName) {
  New(1, 80);
  Keys("old");
  const QByteArray content = "*** Some Other Kind Of File ***\r\n";
  const QString bad = folder_.Write(Text("bad.msg"), content);
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Open(bad);
  // Cancelled, by the button and from the question: nothing is written, nothing follows.
  Choose("butSave", QString());
  boxes.Answer(QMessageBox::Yes);
  Choose("butExit", QString());
  EXPECT_EQ(dialogs_, 3);
  EXPECT_TRUE(window_.isVisible());
  EXPECT_EQ(folder_.Read(Text("bad.msg")), content);
  EXPECT_TRUE(Asks());
  // Given: it is the page's name from then on.
  const QString good = folder_.Path(Text("good.msg"));
  Choose("butSave", good);
  EXPECT_EQ(dialogs_, 4);
  EXPECT_EQ(FileName(), good);
  EXPECT_FALSE(Asks());
  Row(1)->setFocus();
  Keys("er");
  Press("butSave");
  EXPECT_EQ(folder_.Read(Text("good.msg")),
            "*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01><SA><CA>older\r\n");
  EXPECT_EQ(folder_.Read(Text("bad.msg")), content);
}

TEST_F(MsgEditor, AfterNewAnsweredNoToTheSavePromptTheModifiedFlagIsStillSet) {
  New(2, 80);
  Keys("x");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  New(4, 80);
  EXPECT_EQ(boxes.Texts(), QStringList(Text(kQuestion)));
  EXPECT_TRUE(Asks());
}

TEST_F(MsgEditor, YesToTheSaveQuestionSavesAndDoesNotClearTheModifiedFlag) {
  New(1, 80);
  Keys("x");
  const ModalWindowDriver send(Text("frmSendMsg"), [](QWidget* w) { w->close(); });
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::Yes);
  Press("butSend");
  EXPECT_EQ(send.Count(), 1);
  EXPECT_EQ(folder_.Read(Text("NEW.MSG")),
            "*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01><SA><CA>x\r\n");
  EXPECT_TRUE(Asks());
}

TEST_F(MsgEditor, SendWithoutAPageOpensTheSendDialog) {
  const ModalWindowDriver send(Text("frmSendMsg"), [](QWidget* w) { w->close(); });
  const MessageBoxReader boxes;
  Press("butSend");
  EXPECT_EQ(send.Count(), 1);
}

TEST_F(MsgEditor, APageOfNoRowsCanBeOpenedAndSaved) {
  const QString path =
      folder_.Write(Text("none.msg"), "*** Brivon Message File ***\r\nRow = 0\r\nCol = 10\r\n");
  Open(path);
  EXPECT_EQ(Find<QLabel>("lblRow")->text(), Text("0"));
  for (int row = 1; row <= 12; ++row) EXPECT_FALSE(Row(row)->isVisible());
  for (const char* name : {"butSave", "butSaveAs", "cmdAddDate", "cmdAddTime", "ComboGraphic"}) {
    EXPECT_TRUE(Find<QWidget>(name)->isEnabled()) << name;
  }
  Press("cmdAddDate");
  EXPECT_TRUE(Asks());
  EXPECT_EQ(SavedAs(path), "*** Brivon Message File ***\r\nRow = 0\r\nCol = 10\r\n");
}

TEST_F(MsgEditor, MessagesAreLookedUpInTheLanguageFile) {
  folder_.UseLanguage(
      "[Message]\r\nmsgErrOpen=Fehler\r\nmsgSave=Speichern?\r\nmsgSchF=Plan\r\n"
      "[frmSchedule]\r\nTableTag1=Nachricht\r\n");
  New(1, 80);
  Keys("x");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Open(folder_.Write(Text("bad.msg"), "bad"));
  EXPECT_EQ(boxes.Texts(), QStringList({Text("Speichern?"), Text("Fehler!")}));
  EXPECT_EQ(dialog_.filters.value(1), Text("Nachricht(*.msg)"));
  EXPECT_EQ(dialog_.filters.value(2), Text("Plan(*.sch)"));
}

TEST_F(MsgEditor, TheTitlesOfItsFileDialogsAreThoseOfTheLanguageFile) {
  folder_.UseLanguage(
      "[frmMsgEditor]\r\nfrmMsgEditor.butOpen=Auf\r\nDialogTitleOpenMsg=Meldung suchen\r\n"
      "DialogTitleSaveAs=Sichern als\r\n");
  const frmMsgEditor loaded;
  Open(QString());
  EXPECT_EQ(dialog_.title, Text("Meldung suchen"));
  New(1, 80);
  Choose("butSaveAs", QString());
  EXPECT_EQ(dialog_.title, Text("Sichern als"));
}

}  // namespace
