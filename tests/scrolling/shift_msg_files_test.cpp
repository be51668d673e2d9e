// The files of the scrolling message editor, and what it leaves modified.
#include <QComboBox>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include "scrolling/shift_msg.h"

namespace {

TEST_F(ShiftMsg, NewEmptiesTheMessageAndGoesBackToTheDefaultName) {
  Open(Write("a.srl", QByteArray(100, 'a')));
  Find<QComboBox>("ComboColor")->setCurrentIndex(2);
  Press("butNew");
  EXPECT_EQ(Position(), Text("0 of 0"));
  EXPECT_EQ(CursorCell(), 0);
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SRL")));
  EXPECT_EQ(window_.focusWidget(), Picture());
  EXPECT_FALSE(Asks());
  Keys("x");
  EXPECT_EQ(Body(), "<SA><CC>x\r\n");
}

TEST_F(ShiftMsg, AfterOpenTheCursorStandsBehindTheLastCharacterTheSpanAsEndSetsIt) {
  const QString path = Write("a.srl", QByteArray(100, 'a'));
  Open(path);
  EXPECT_EQ(FileName(), path);
  EXPECT_EQ(Position(), Text("100 of 100"));
  EXPECT_EQ(CursorCell(), 30);
  EXPECT_EQ(window_.focusWidget(), Picture());
  EXPECT_FALSE(Asks());
}

TEST_F(ShiftMsg, SaveOnTheUntouchedDefaultNameWritesAnEmptyMessage) {
  Press("butSave");
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), kHeader + "\r\n");
}

TEST_F(ShiftMsg, EveryEditSetsTheModifiedFlag) {
  Open(Write("a.srl", "abc"));
  Key(Qt::Key_Backspace);
  EXPECT_TRUE(Asks());
  Press("butSave");
  EXPECT_FALSE(Asks());
  Key(Qt::Key_Home);
  Key(Qt::Key_Delete);
  EXPECT_TRUE(Asks());
  Press("butSave");
  Key(Qt::Key_Return);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(folder_.Read(Text("a.srl")), kHeader + "<SA><CA>b\r\n");
}

TEST_F(ShiftMsg, YesToTheSaveQuestionSavesClearsTheModifiedFlagAndContinues) {
  Keys("x");
  QString given;
  const ModalWindowDriver send(Text("frmSendShift"), [&](QWidget* dialog) {
    given = dialog->findChild<QLabel*>(Text("lblFileName"))->text();
    dialog->close();
  });
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::Yes);
  Press("butSend");
  EXPECT_EQ(send.Count(), 1);
  EXPECT_EQ(given, folder_.Path(Text("NEW.SRL")));
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), kHeader + "<SA><CA>x\r\n");
  EXPECT_FALSE(Asks());
}

TEST_F(ShiftMsg, NoContinuesWithoutSaving) {
  Keys("x");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Press("butNew");
  EXPECT_EQ(Position(), Text("0 of 0"));
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), "");
  EXPECT_FALSE(Asks());
}

TEST_F(ShiftMsg, ARefusedFileLeavesTheNameToSaveUnder) {
  Keys("old");
  Press("butSave");
  for (const EditorKind::RefusedFile& file : kind_.refused_files) {
    const MessageBoxReader boxes;
    Open(folder_.Write(Text("hostile.srl"), file.content));
    EXPECT_EQ(boxes.Seen().size(), 1);
    EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SRL")));
    EXPECT_EQ(Position(), Text("3 of 3"));
  }
  Keys("er");
  Press("butSave");
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), kHeader + "<SA><CA>older\r\n");
}

TEST_F(ShiftMsg, AnyBytesBehindTheHeaderAreShownAndSavedAsTheyAre) {
  QByteArray body = "<SA><CA>";
  for (int value = 0; value < 256; ++value) {
    if (value != '\n' && value != '\r') body.append(static_cast<char>(value));
  }
  Open(Write("any.srl", body));
  EXPECT_EQ(Position(), Text("254 of 254"));
  Key(Qt::Key_Home);
  for (int step = 0; step < 254; ++step) {
    Key(Qt::Key_Right);
    Image();
  }
  EXPECT_EQ(Body(), body + "\r\n");
}

TEST_F(ShiftMsg, MessagesAndDialogTitlesAreLookedUpInTheLanguageFile) {
  folder_.UseLanguage(
      "[Message]\r\nmsgErrOpen=Fehler\r\nmsgSave=Speichern?\r\n"
      "[frmMsgEditor]\r\nfrmMsgEditor.butOpen=Meldung suchen\r\nDialogTitleSaveAs=Sichern als\r\n");
  Keys("x");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Open(folder_.Write(Text("bad.srl"), "bad"));
  EXPECT_EQ(boxes.Texts(), QStringList({Text("Speichern?"), Text("Fehler!")}));
  EXPECT_EQ(dialog_.title, Text("Meldung suchen"));
  Choose("butSaveAs", QString());
  EXPECT_EQ(dialog_.title, Text("Sichern als"));
  Press("butNew");
  boxes.Answer(QMessageBox::No);
  Open(folder_.Write(Text("torn.srl"), kHeader));
  EXPECT_EQ(boxes.Texts().last(), Text("Error in Opening file!")) << "is in no language file";
}

}  // namespace
