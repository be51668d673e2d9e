// What a screen reader finds and hears of the rows in the two editors.
#include <string>

#include <QAccessible>
#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

#include "page/frmMsgEditor.h"
#include "scrolling/frmShiftMsg.h"
#include "support/accessible_events.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "support/shown_window.h"

using namespace Qt::StringLiterals;

namespace {

template <typename Window>
class Editor : public ShownWindow<Window> {
 public:
  Editor() { ActivateWindow(&this->window); }

  void Keys(const QString& text) { QTest::keyClicks(this->window.focusWidget(), text); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(this->window.focusWidget(), key, modifiers);
  }

  void Open(const QString& path) {
    const FileChooser chooser(path);
    this->Click("butOpen");
    ActivateWindow(&this->window);
  }

  QAccessibleInterface& Accessible(const char* name) {
    return *QAccessible::queryAccessibleInterface(this->template Find<QWidget>(name));
  }
  QAccessibleTextInterface& Text(const char* name) {
    EXPECT_NE(Accessible(name).textInterface(), nullptr);
    return *Accessible(name).textInterface();
  }
  QString Attributes(const char* name, int offset) {
    int start = 0;
    int end = 0;
    return Text(name).attributes(offset, &start, &end);
  }
};

QByteArray German() {
  QFile file(QStringLiteral(BRIVON_SAMPLES "/languages/deutsch/langSetting.INI"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return file.readAll();
}

class RowReading : public testing::Test {
 protected:
  QString Page(const QByteArray& rows) const {
    return folder_.Write(u"page.msg"_s,
                         "*** Brivon Message File ***\r\nRow = 2\r\nCol = 80\r\n" + rows);
  }

  QString ScrollingMessage(const QByteArray& line) const {
    return folder_.Write(u"line.srl"_s, "*** Brivon Shift Message File ***\r\n" + line + "\r\n");
  }

  TemporaryProgramFolder folder_;
  AccessibleEvents events_;
};

TEST_F(RowReading, AFileTellsEachOfItsRows) {
  Editor<frmMsgEditor> editor;
  editor.Open(Page("<L01><SG><CB>Hello\r\n<L02><SA>~A at\r\n"));
  EXPECT_EQ(events_.TakeAll(),
            "Row 1: insert 0 'Hello', cursor 5; Row 1: cursor 5; "
            "Row 2: insert 0 '~A at', cursor 5; Row 2: cursor 5");
  editor.Open(Page("<L01>Help\r\n<L02>~A at\r\n"));
  EXPECT_EQ(events_.TakeAll(), "Row 1: replace 3 'lo' by 'p', cursor 4; Row 1: cursor 4");
}

TEST_F(RowReading, TypingDeletingUndoAndRedoInAPageTellTheirRow) {
  Editor<frmMsgEditor> editor;
  editor.Open(Page("<L01>ab\r\n<L02>xyz\r\n"));
  events_.TakeAll();
  editor.Keys(u"c"_s);
  EXPECT_EQ(events_.TakeAll(), "Row 1: insert 2 'c', cursor 3; Row 1: cursor 3");
  editor.Key(Qt::Key_Down);
  EXPECT_EQ(events_.TakeAll(), "") << "the keyboard's way is told by the toolkit";
  editor.Key(Qt::Key_Backspace);
  EXPECT_EQ(events_.TakeAll(), "Row 2: remove 2 'z', cursor 2; Row 2: cursor 2");
  editor.Key(Qt::Key_Home);
  EXPECT_EQ(events_.TakeAll(), "Row 2: cursor 0");
  editor.Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(events_.TakeAll(), "Row 2: insert 2 'z', cursor 3; Row 2: cursor 3");
  editor.Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(events_.TakeAll(), "Row 1: remove 2 'c', cursor 2; Row 1: cursor 2");
  editor.Key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(events_.TakeAll(), "Row 1: insert 2 'c', cursor 3; Row 1: cursor 3");
  editor.Click("cmdAddTime");
  EXPECT_EQ(events_.TakeAll(), "Row 1: insert 3 'HH:MM', cursor 8; Row 1: cursor 8");
  EXPECT_EQ(editor.Accessible("Picture1(1)").text(QAccessible::Description), u"abc Time"_s);
}

TEST_F(RowReading, AReaderPutsCursorAndKeyboardIntoARow) {
  Editor<frmMsgEditor> editor;
  editor.Open(Page("<L01>ab\r\n<L02>xyz\r\n"));
  editor.Text("Picture1(2)").setCursorPosition(1);
  editor.Keys(u"!"_s);
  EXPECT_EQ(AccessibleText(editor.Find<QWidget>("Picture1(2)")), u"x!yz"_s);
  EXPECT_EQ(AccessibleText(editor.Find<QWidget>("Picture1(1)")), u"ab"_s);
  EXPECT_TRUE(editor.Accessible("Picture1(2)").state().focused);
}

TEST_F(RowReading, APageSpeaksTheLanguageOfItsWindow) {
  folder_.UseLanguage(German());
  Editor<frmMsgEditor> editor;
  editor.Open(Page("<L01><SG><CB>Hello\r\n<L02><SA><CJ>~A\r\n"));
  EXPECT_EQ(editor.Accessible("Picture1(1)").text(QAccessible::Name), u"Zeilen 1"_s);
  EXPECT_EQ(editor.Attributes("Picture1(1)", 0), u"font-family:Grün, Normal fett, Blinkend;"_s);
  EXPECT_EQ(editor.Attributes("Picture1(2)", 0), u"font-family:Rot auf Grün, Normal;"_s);
  EXPECT_EQ(editor.Accessible("Picture1(2)").text(QAccessible::Description), u"Symbol A"_s);
  editor.Open(Page("<L01>ab HH:MM\r\n<L02>DD MMM YYYY\r\n"));
  EXPECT_EQ(editor.Accessible("Picture1(1)").text(QAccessible::Description), u"ab Uhrzeit"_s);
  EXPECT_EQ(editor.Accessible("Picture1(2)").text(QAccessible::Description), u"Datum"_s);
}

TEST_F(RowReading, AScrollingMessageSpeaksTheLanguageOfItsWindow) {
  folder_.UseLanguage(German());
  Editor<frmShiftMsg> editor;
  editor.Open(ScrollingMessage("<SG><CB>Hello"));
  EXPECT_EQ(editor.Accessible("Picture1").text(QAccessible::Name), u"Meldung"_s);
  EXPECT_EQ(editor.Attributes("Picture1", 0), u"font-family:Grün, Normal fett, Blinkend;"_s);
}

TEST_F(RowReading, AScrollingMessageIsToldWholeAndAsItChanges) {
  Editor<frmShiftMsg> editor;
  editor.Open(ScrollingMessage("<SC><CP>" + QByteArray(50, 'a') + "<SE>HH:MM"));
  const std::string line = std::string(50, 'a') + "HH:MM";
  EXPECT_EQ(events_.TakeAll(), "Message: insert 0 '" + line + "', cursor 55; Message: cursor 55");
  editor.Keys(u"b"_s);
  EXPECT_EQ(events_.TakeAll(), "Message: insert 55 'b', cursor 56; Message: cursor 56");
  editor.Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(events_.TakeAll(), "Message: remove 55 'b', cursor 55; Message: cursor 55");
  EXPECT_EQ(editor.Attributes("Picture1", 3), u"font-family:Rainbow, Normal Bold;"_s);
  EXPECT_EQ(editor.Attributes("Picture1", 52), u"font-family:Rainbow, Normal, Blinking;"_s);
  EXPECT_EQ(editor.Accessible("Picture1").text(QAccessible::Description), QString());
  EXPECT_EQ(editor.Text("Picture1").characterRect(0), QRect()) << "out of sight";
  editor.Text("Picture1").setCursorPosition(3);
  EXPECT_EQ(editor.Text("Picture1").cursorPosition(), 3);
  EXPECT_NE(editor.Text("Picture1").characterRect(3), QRect()) << "the line follows the cursor";
}

}  // namespace
