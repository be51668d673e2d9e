#include <sys/stat.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QLabel>
#include <QMenu>
#include <QPaintEvent>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include <gtest/gtest.h>

#include "language/module_language.h"
#include "page/dialog_results.h"
#include "page/frmMsgEditor.h"
#include "support/accessible_events.h"
#include "support/full_disk.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "support/shown_window.h"
#include "support/wheel.h"
#include "support/window_keys.h"
#include "widgets/caption_button.h"
#include "widgets/fitted_text.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kQuestion = "File not saved. Save it now?";

QString Text(const char* text) { return QString::fromUtf8(text); }

class MsgEditor : public testing::Test {
 protected:
  MsgEditor() {
    folder_.Configure("[Dimension Config]\r\nID001=4x80,Tri,127.0.0.1:80\r\n");
    window_.show();
    Activate();
  }

  ~MsgEditor() override { QGuiApplication::clipboard()->clear(); }

  template <typename Widget>
  Widget* Find(const char* name) {
    auto* widget = window_.findChild<Widget*>(Text(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }

  QPushButton* Button(const char* name) { return Find<QPushButton>(name); }
  void Press(const char* name) { QTest::mouseClick(Button(name), Qt::LeftButton); }
  QWidget* Row(int number) { return window_.findChild<QWidget*>(u"Picture1(%1)"_s.arg(number)); }
  QString FileName() { return Find<QLabel>("lblFileName")->text(); }

  void Keys(const char* text) { QTest::keyClicks(window_.focusWidget(), Text(text)); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window_.focusWidget(), key, modifiers);
  }

  /// Presses New and answers its dialog.
  void New(qint16 rows, qint16 columns, bool accepted = true) {
    const ModalWindowDriver dimension(Text("frmDimension"), [=](QWidget* dialog) {
      // The answer travels through the shared values; how the dialog comes to it is its own matter.
      static_cast<QDialog*>(dialog)->done(0);
      Brivon1::DialogAccepted = accepted;
      Brivon1::SelectedRows = rows;
      Brivon1::SelectedCols = columns;
    });
    Press("butNew");
    EXPECT_EQ(dimension.Count(), 1);
    Activate();
  }

  /// The window becomes the active one again, as a desktop makes it when a dialog closes.
  void Activate() { ActivateWindow(&window_); }

  /// Presses a button and enters a name into the file dialog that it opens; an empty one cancels.
  void Choose(const char* button, const QString& path) {
    const FileChooser chooser(path);
    Press(button);
    dialogs_ += chooser.Count();
    dialog_ = chooser.Seen();
    Activate();
  }

  void Open(const QString& path) { Choose("butOpen", path); }

  /// The file that Save writes of the page as it is; the modified flag is clear afterwards.
  QByteArray SavedAs(const QString& path) {
    Choose("butSaveAs", path);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "no file";
  }

  /// The row lines of the page on screen, without their tags' line ends.
  QByteArray RowLines() {
    const QByteArray content = SavedAs(folder_.Path(Text("rows.msg")));
    const qsizetype first = content.indexOf("<L01>");
    return first < 0 ? QByteArray() : content.sliced(first);
  }

  /// Whether the editor asks about unsaved work when it is to be left; it stays open.
  bool Asks() {
    const MessageBoxReader boxes;  // answers with Cancel
    const ModalWindowDriver send(Text("frmSendMsg"), [](QWidget* dialog) { dialog->close(); });
    Press("butSend");
    const bool asked = boxes.Texts().contains(Text(kQuestion));
    EXPECT_EQ(send.Count(), asked ? 0 : 1);
    return asked;
  }

  QImage Picture(int row) { return Row(row)->grab().toImage(); }

  static bool IsLine(const QImage& image, int x, const QColor& colour) {
    for (int y = 0; y < 20; ++y) {
      if (image.pixelColor(x, y) != colour) return false;
    }
    return true;
  }

  /// The column in front of which a row shows the white cursor line; -1 where it shows none.
  int Cursor(int row) {
    const QImage image = Picture(row);
    for (int x = 0; x < image.width(); x += 12) {
      if (IsLine(image, x, Qt::white)) return x / 12;
    }
    return -1;
  }

  QString WriteMessage(const char* name, const QByteArray& rows) {
    return folder_.Write(Text(name),
                         "*** Brivon Message File ***\r\nRow = 2\r\nCol = 80\r\n" + rows);
  }

  TemporaryProgramFolder folder_;
  frmMsgEditor window_;
  SeenFileDialog dialog_;  // the file dialog that Choose() answered last
  int dialogs_ = 0;        // and how many it has answered
};

TEST_F(MsgEditor, OpensWithItsCaptionsListsAndStates) {
  EXPECT_EQ(window_.objectName(), Text("frmMsgEditor"));
  EXPECT_EQ(window_.windowTitle(), Text("Message Editor"));
  EXPECT_TRUE(window_.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
  struct ButtonState {
    const char* name;
    const char* caption;
    bool enabled;
  };
  const ButtonState buttons[] = {
      {"butNew", "New", true},           {"butOpen", "Open", true},
      {"butSave", "Save", false},        {"butSaveAs", "Save As", false},
      {"butSend", "Send", true},         {"butExit", "Exit", true},
      {"cmdAddDate", "Add Date", false}, {"cmdAddTime", "Add Time", false},
      {"Command3", "<<", true},          {"Command4", ">>", true}};
  for (const ButtonState& button : buttons) {
    EXPECT_EQ(Button(button.name)->text(), Text(button.caption));
    EXPECT_EQ(Button(button.name)->isEnabled(), button.enabled) << button.name;
    EXPECT_TRUE(Button(button.name)->font().bold()) << button.name;
    EXPECT_FALSE(Button(button.name)->autoDefault()) << button.name;
  }
  struct Caption {
    const char* name;
    const char* caption;
  };
  for (const Caption& label :
       {Caption{"labelRow", "Row :"}, Caption{"lblRow", ""}, Caption{"labelCol", "Col :"},
        Caption{"lblCol", ""}, Caption{"lblFileName", ""}, Caption{"lblColor", "Color"},
        Caption{"lblSize", "Size"}, Caption{"lblGraphic", "Graphic :"}}) {
    EXPECT_EQ(Find<QLabel>(label.name)->text(), Text(label.caption));
  }
  for (const Caption& frame :
       {Caption{"frameFileFunction", "Message File"}, Caption{"frameProperties", "Format"},
        Caption{"frameSpecial", "Special"}}) {
    EXPECT_EQ(Find<QGroupBox>(frame.name)->title(), Text(frame.caption));
  }
  EXPECT_EQ(Find<QCheckBox>("chkBlink")->text(), Text("Blinking"));
  EXPECT_FALSE(Find<QCheckBox>("chkBlink")->isChecked());
  const auto entries = [this](const char* name) {
    QStringList texts;
    const auto* list = Find<QComboBox>(name);
    EXPECT_EQ(list->currentIndex(), 0);
    for (int i = 0; i < list->count(); ++i) texts.append(list->itemText(i));
    return texts.join(QLatin1Char('|'));
  };
  EXPECT_EQ(entries("ComboColor"),
            Text("Red|Green|Yellow|3D Red/Green|3D Red/Yellow|3D Green/Red|3D Green/Yellow|"
                 "3D Yellow/Red|3D Yellow/Green|Red On Green|Green On Red|Shadow Red/Green|"
                 "Shadow Green/Red|Shadow Yellow/Red|Shadow Yellow/Green|Rainbow"));
  EXPECT_EQ(entries("ComboSize"), Text("Normal|Compressed|Normal Bold|Compressed Bold"));
  EXPECT_EQ(entries("ComboGraphic"), Text("A|B|C|D|E|F|G|H|I|J|K|L|M|N|O|P|Q|R|S|T|U|V|W|X|Y|Z"));
  EXPECT_FALSE(Find<QComboBox>("ComboGraphic")->isEnabled());
  for (int row = 1; row <= 12; ++row) EXPECT_TRUE(Row(row)->isHidden());
  EXPECT_FALSE(Asks());
}

TEST_F(MsgEditor, TimersOfThePreviewCursor500MsBlinkingCharacters500Ms) {
  const auto* cursor = Find<QTimer>("Timer1");
  const auto* blink = Find<QTimer>("Timer2");
  EXPECT_EQ(cursor->interval(), 500);
  EXPECT_EQ(blink->interval(), 500);
  EXPECT_FALSE(cursor->isActive());
  EXPECT_TRUE(blink->isActive());
}

TEST_F(MsgEditor, NewShowsAnEmptyPageOfTheChosenSize) {
  New(4, 80);
  EXPECT_EQ(Find<QLabel>("lblRow")->text(), Text("4"));
  EXPECT_EQ(Find<QLabel>("lblCol")->text(), Text("80"));
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.MSG")));
  for (const char* name : {"butSave", "butSaveAs", "cmdAddDate", "cmdAddTime"}) {
    EXPECT_TRUE(Button(name)->isEnabled()) << name;
  }
  EXPECT_TRUE(Find<QComboBox>("ComboGraphic")->isEnabled());
  for (int row = 1; row <= 12; ++row) {
    EXPECT_EQ(Row(row)->isVisible(), row <= 4);
    EXPECT_EQ(Row(row)->size(), QSize(16 * 12 + 5, 20));
    EXPECT_EQ(Row(row)->x(), 5);
  }
  EXPECT_FALSE(Asks());
}

TEST_F(MsgEditor, NewThatIsCancelledChangesNothing) {
  New(4, 80, false);
  EXPECT_EQ(FileName(), QString());
  EXPECT_FALSE(Button("butSave")->isEnabled());
  New(4, 80);
  Keys("abc");
  {
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::No);
    New(2, 40, false);
  }
  EXPECT_EQ(Find<QLabel>("lblRow")->text(), Text("4"));
  EXPECT_EQ(RowLines(), "<L01><SA><CA>abc\r\n<L02>\r\n<L03>\r\n<L04>\r\n");
}

TEST_F(MsgEditor, AfterNewAndOpenRow1IsTheCurrentRowAndTakesTheKeyboardAndTheCursorBlinks) {
  New(4, 80);
  EXPECT_EQ(window_.focusWidget(), Row(1));
  EXPECT_TRUE(Find<QTimer>("Timer1")->isActive());
  EXPECT_EQ(Cursor(1), 0);
  EXPECT_TRUE(QTest::qWaitFor([this] { return IsLine(Picture(1), 0, Qt::black); }));
  EXPECT_TRUE(QTest::qWaitFor([this] { return Cursor(1) == 0; }));
  Key(Qt::Key_Down);
  EXPECT_EQ(window_.focusWidget(), Row(2));
  Open(WriteMessage("a.msg", "<L01>ab\r\n<L02>xyz\r\n"));
  EXPECT_EQ(window_.focusWidget(), Row(1));
  EXPECT_EQ(Cursor(1), 2);
  EXPECT_EQ(Cursor(2), -1);
  Key(Qt::Key_Down);
  EXPECT_EQ(Cursor(1), -1);
  EXPECT_EQ(Cursor(2), 3);
}

TEST_F(MsgEditor, TypingWritesWithTheChosenAttributes) {
  New(2, 200);
  Keys("a");
  Find<QComboBox>("ComboColor")->setCurrentIndex(3);
  Find<QComboBox>("ComboSize")->setCurrentIndex(2);
  Keys("b");
  QTest::mouseClick(Find<QCheckBox>("chkBlink"), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_TRUE(Find<QCheckBox>("chkBlink")->isChecked());
  Keys("c");
  Find<QCheckBox>("chkBlink")->setChecked(false);
  Keys("d");
  EXPECT_EQ(RowLines(), "<L01><SA><CA>a<SC><CD>b<SG>c<SC>d\r\n<L02>\r\n");
}

TEST_F(MsgEditor, ChangingTheColourListDoesNotRecolourCharactersAlreadyTyped) {
  New(1, 80);
  Keys("ab");
  Find<QComboBox>("ComboColor")->setCurrentIndex(1);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab\r\n");
  EXPECT_FALSE(Asks());
}

TEST_F(MsgEditor, WithCol80ARowTakes16CharactersThe17thKeyPressIsIgnoredButStillMarksThePage) {
  New(1, 80);
  Keys("1234567890123456");
  EXPECT_EQ(RowLines(), "<L01><SA><CA>1234567890123456\r\n");
  EXPECT_FALSE(Asks());
  Row(1)->setFocus();
  Keys("7");
  EXPECT_TRUE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SA><CA>1234567890123456\r\n");
}

TEST_F(MsgEditor, AGraphicInsertedWhenTheRowHasOneFreePlaceStoresOnlyTheTilde) {
  New(1, 15);
  Keys("ab");
  auto* graphics = Find<QComboBox>("ComboGraphic");
  graphics->setFocus();
  Key(Qt::Key_K);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab~\r\n");
}

TEST_F(MsgEditor, BackspaceAtColumn0AndEnterChangeNothingButMarkThePageModified) {
  New(2, 80);
  for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Enter}) {
    EXPECT_FALSE(Asks());
    Row(1)->setFocus();
    Key(key);
    EXPECT_TRUE(Asks());
    EXPECT_EQ(window_.isVisible(), true);
    EXPECT_EQ(RowLines(), "<L01>\r\n<L02>\r\n");
  }
}

TEST_F(MsgEditor, DeleteAtTheEndOfARowDoesNothing) {
  New(1, 80);
  Keys("ab");
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab\r\n");
  Row(1)->setFocus();
  Key(Qt::Key_Delete);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab\r\n");
}

TEST_F(MsgEditor, UpOnRow1AndDownOnRowROrRow12DoNothing) {
  New(3, 80);
  Key(Qt::Key_Up);
  EXPECT_EQ(window_.focusWidget(), Row(1));
  for (int step = 0; step < 5; ++step) Key(Qt::Key_Down);
  EXPECT_EQ(window_.focusWidget(), Row(3));
  New(12, 80);
  for (int step = 0; step < 15; ++step) Key(Qt::Key_Down);
  EXPECT_EQ(window_.focusWidget(), Row(12));
}

TEST_F(MsgEditor, TheMoveKeysMoveTheCursorOfTheirRow) {
  New(2, 80);
  Keys("abcd");
  EXPECT_EQ(Cursor(1), 4);
  Key(Qt::Key_Home);
  EXPECT_EQ(Cursor(1), 0);
  Key(Qt::Key_Left);
  EXPECT_EQ(Cursor(1), 0);
  Key(Qt::Key_Right);
  EXPECT_EQ(Cursor(1), 1);
  Key(Qt::Key_Delete);
  Keys("X");
  EXPECT_EQ(Cursor(1), 2);
  Key(Qt::Key_End);
  EXPECT_EQ(Cursor(1), 4);
  Key(Qt::Key_Right);
  EXPECT_EQ(Cursor(1), 4);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Cursor(1), 3);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>aXc\r\n<L02>\r\n");
}

TEST_F(MsgEditor, KeysWithAltOrMetaNeitherMoveNorTypeAndGoOnToTheWindow) {
  New(2, 80);
  Keys("ab cd");
  Key(Qt::Key_Left);
  WindowKeys window_keys(&window_);
  for (const Qt::KeyboardModifiers modifiers :
       {Qt::KeyboardModifiers(Qt::AltModifier), Qt::KeyboardModifiers(Qt::MetaModifier),
        Qt::AltModifier | Qt::ControlModifier, Qt::MetaModifier | Qt::ShiftModifier}) {
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home,
                              Qt::Key_End, Qt::Key_Delete, Qt::Key_Backspace}) {
      Key(key, modifiers);
      EXPECT_EQ(Cursor(1), 4) << key << " with " << modifiers.toInt();
      EXPECT_EQ(window_keys.TakeLast(), key) << key << " with " << modifiers.toInt();
    }
  }
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab cd\r\n<L02>\r\n");
}

TEST_F(MsgEditor, CtrlWithLeftAndRightGoesToTheStartOfTheNextAndPreviousWord) {
  New(1, 120);
  Keys("Shop:  open 9-17");
  const auto steps = [this](Qt::Key key) {
    QList<int> columns;
    for (int step = 0; step < 8; ++step) {
      Key(key, Qt::ControlModifier);
      columns.append(Cursor(1));
    }
    return columns;
  };
  EXPECT_EQ(steps(Qt::Key_Left), QList<int>({14, 13, 12, 7, 4, 0, 0, 0}));
  EXPECT_EQ(steps(Qt::Key_Right), QList<int>({4, 7, 12, 13, 14, 16, 16, 16}));
  for (int step = 0; step < 7; ++step) Key(Qt::Key_Left);  // into "open"
  Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Cursor(1), 7);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>Shop:  open 9-17\r\n");
}

TEST_F(MsgEditor, CtrlWithHomeAndEndGoesToTheEndsOfTheRow) {
  New(2, 80);
  Key(Qt::Key_Down);
  Keys("ab cd");
  Key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(Cursor(2), 0);
  Key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(Cursor(2), 5);
}

TEST_F(MsgEditor, ShiftWithDeleteIsNoDelete) {
  New(1, 80);
  Keys("ab");
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab\r\n");
  Key(Qt::Key_Home);
  for (const auto modifiers :
       {Qt::KeyboardModifiers(Qt::ShiftModifier), Qt::ShiftModifier | Qt::ControlModifier}) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, modifiers, Text("\x7f"));
    QApplication::sendEvent(window_.focusWidget(), &press);
  }
  EXPECT_FALSE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab\r\n");
}

TEST_F(MsgEditor, CtrlWithBackspaceAndDeleteTakeOutAWord) {
  New(1, 120);
  Keys("one two three");
  RowLines();  // saves
  for (int step = 0; step < 7; ++step) Key(Qt::Key_Left);
  Key(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(Cursor(1), 6);
  EXPECT_FALSE(Asks());  // as Delete alone
  Row(1)->setFocus();
  EXPECT_EQ(RowLines(), "<L01><SA><CA>one twthree\r\n");
  Key(Qt::Key_Backspace, Qt::ControlModifier);
  EXPECT_EQ(Cursor(1), 4);
  EXPECT_TRUE(Asks());  // as Backspace alone
  Row(1)->setFocus();
  EXPECT_EQ(RowLines(), "<L01><SA><CA>one three\r\n");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>one twthree\r\n");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>one two three\r\n");
  Key(Qt::Key_Home);
  Key(Qt::Key_Backspace, Qt::ControlModifier);
  EXPECT_TRUE(Asks());  // typing without an effect
  EXPECT_EQ(RowLines(), "<L01><SA><CA>one two three\r\n");
}

TEST_F(MsgEditor, AClickRightOfTheLastCharacterPutsTheCursorAtTheEndOfTheRow) {
  New(2, 80);
  Key(Qt::Key_Down);
  Keys("abcd");
  Key(Qt::Key_Up);
  QTest::mouseClick(Row(2), Qt::LeftButton, {}, QPoint(150, 10));
  EXPECT_EQ(window_.focusWidget(), Row(2));
  EXPECT_EQ(Cursor(2), 4);
  EXPECT_EQ(Cursor(1), -1);
  QTest::mouseClick(Row(2), Qt::LeftButton, {}, QPoint(17, 10));
  EXPECT_EQ(Cursor(2), 1);
  QTest::mouseClick(Row(2), Qt::LeftButton, {}, QPoint(18, 10));
  EXPECT_EQ(Cursor(2), 2);
  EXPECT_FALSE(IsLine(Picture(2), 12, Qt::white));
}

TEST_F(MsgEditor, OnlyTheLeftButtonMovesTheCursor) {
  New(2, 80);
  Keys("abcd");
  for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
    QTest::mouseClick(Row(1), button, {}, QPoint(12, 10));
    EXPECT_EQ(Cursor(1), 4);
  }
  QMetaObject::invokeMethod(Find<QTimer>("Timer1"), "timeout");
  EXPECT_EQ(Cursor(1), -1);
  QTest::mouseDClick(Row(1), Qt::LeftButton, {}, QPoint(12, 10));
  EXPECT_EQ(Cursor(1), 1);  // seen at once
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

TEST_F(MsgEditor, AfterNewAnsweredNoToTheSavePromptTheModifiedFlagIsStillSet) {
  New(2, 80);
  Keys("x");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  New(4, 80);
  EXPECT_EQ(boxes.Texts(), QStringList(Text(kQuestion)));
  EXPECT_TRUE(Asks());
}

TEST_F(MsgEditor, TheSaveQuestionHasAQuestionIconYesNoCancelAndTheWindowsCaptionAsTitle) {
  New(2, 80);
  Keys("x");
  const MessageBoxReader boxes;
  Press("butExit");
  ASSERT_EQ(boxes.Texts(), QStringList(Text(kQuestion)));
  EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::Question);
  EXPECT_EQ(boxes.Seen()[0].title, Text("Message Editor"));
  EXPECT_EQ(boxes.Seen()[0].buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  EXPECT_EQ(boxes.Seen()[0].default_button, QMessageBox::Yes);
  EXPECT_EQ(boxes.Seen()[0].escape_button, QMessageBox::Cancel);
  EXPECT_EQ(boxes.Seen()[0].parent, &window_);
}

TEST_F(MsgEditor, CancelledSaveQuestionStopsNewOpenSendAndExit) {
  New(2, 80);
  Keys("x");
  const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver open(Text("CMDialog1"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver send(Text("frmSendMsg"), [](QWidget* w) { w->close(); });
  const MessageBoxReader boxes;
  for (const char* name : {"butNew", "butOpen", "butSend", "butExit"}) Press(name);
  EXPECT_EQ(boxes.Seen().size(), 4);
  EXPECT_EQ(dimension.Count() + open.Count() + send.Count(), 0);
  EXPECT_TRUE(window_.isVisible());
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

TEST_F(MsgEditor, ExitClosesAndNoDropsTheChanges) {
  New(1, 80);
  Keys("x");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Press("butExit");
  EXPECT_FALSE(window_.isVisible());
  EXPECT_EQ(folder_.Read(Text("NEW.MSG")), "");
}

TEST_F(MsgEditor, TheCloseBoxAndEscapeAskLikeExit) {
  New(1, 80);
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
  EXPECT_NE(folder_.Read(Text("NEW.MSG")), "");
}

TEST_F(MsgEditor, WithoutChangesTheWindowClosesWithoutAQuestion) {
  New(1, 80);
  const MessageBoxReader boxes;
  EXPECT_TRUE(window_.close());
  EXPECT_TRUE(boxes.Seen().isEmpty());
}

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
  EXPECT_EQ(AccessibleText(Row(1)), Text("Hello"));
  EXPECT_FALSE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SG><CD>Hello\r\n<L02><SA><CD>~A\r\n");
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

TEST_F(MsgEditor, TheOpenDialogOffersMessageAndScheduleFiles) {
  Open(QString());
  EXPECT_EQ(dialogs_, 1);
  EXPECT_EQ(dialog_.title, Text("Open Message"));
  EXPECT_EQ(dialog_.filters, QStringList({Text("All (*)"), Text("Message File(*.msg)"),
                                          Text("Schedule File(*.sch)")}));
  EXPECT_EQ(dialog_.filter, Text("Message File(*.msg)"));
  EXPECT_EQ(dialog_.folder, QFileInfo(folder_.Path(Text("x"))).absolutePath());
}

TEST_F(MsgEditor, TheSaveDialogHasNoPresetName) {
  New(1, 80);
  const QString path = folder_.Path(Text("mine.msg"));
  Choose("butSaveAs", path);
  EXPECT_EQ(dialog_.title, Text("Save As"));
  EXPECT_EQ(dialog_.filters, QStringList({Text("All (*)"), Text("Message File(*.msg)")}));
  EXPECT_EQ(dialog_.filter, Text("Message File(*.msg)"));
  EXPECT_EQ(dialog_.folder, QFileInfo(path).absolutePath());
  EXPECT_EQ(dialog_.name, QString());
}

TEST_F(MsgEditor, SaveAsWritesUnderTheChosenNameAndClearsTheModifiedFlag) {
  New(1, 80);
  Keys("x");
  const QString path = folder_.Write(Text("there.msg"), "replaced without a question");
  const MessageBoxReader boxes;
  EXPECT_EQ(SavedAs(path),
            "*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01><SA><CA>x\r\n");
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_EQ(FileName(), path);
  EXPECT_FALSE(Asks());
}

TEST_F(MsgEditor, AFileDialogThatIsCancelledChangesNothing) {
  New(1, 80);
  Keys("x");
  Choose("butSaveAs", QString());
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.MSG")));
  EXPECT_TRUE(Asks());
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Open(QString());
  EXPECT_EQ(dialogs_, 2);
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.MSG")));
  EXPECT_EQ(RowLines(), "<L01><SA><CA>x\r\n");
}

TEST_F(MsgEditor, APathLongerThanItsFieldIsRefusedWhenItIsChosen) {
  New(1, 80);
  Keys("x");
  const MessageBoxReader boxes;
  Choose("butSaveAs", folder_.Path(QString(100, QLatin1Char('n'))));
  EXPECT_EQ(boxes.Texts(), QStringList(Text("Invalid path!")));
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.MSG")));
  EXPECT_TRUE(Asks());
}

TEST_F(MsgEditor, AFileMayHaveANameInAnyScript) {
  New(1, 80);
  Keys("x");
  const QString path = folder_.Path(Text("Fußgänger 中文 100%1 & <b>.msg"));
  EXPECT_NE(SavedAs(path), "no file");
  EXPECT_EQ(FileName(), path);
  EXPECT_FALSE(Asks());
  New(2, 40);
  Open(path);
  EXPECT_EQ(FileName(), path);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>x\r\n");
}

TEST_F(MsgEditor, SaveWritesUnderTheShownNameAndClearsTheModifiedFlag) {
  New(1, 80);
  Keys("x");
  Press("butSave");
  EXPECT_EQ(folder_.Read(Text("NEW.MSG")),
            "*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01><SA><CA>x\r\n");
  EXPECT_FALSE(Asks());
}

TEST_F(MsgEditor, AChosenFileThatDoesNotExistGivesTheMessageAndNothingElseChanges) {
  New(1, 80);
  const MessageBoxReader boxes;
  Open(folder_.Path(Text("missing.msg")));
  EXPECT_EQ(boxes.Texts(), QStringList(Text("File not found!")));
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.MSG")));
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

TEST_F(MsgEditor, ASaveOntoAFullDiskLeavesTheOldFileTheNameAndTheModifiedFlag) {
  New(1, 80);
  folder_.Write(Text("NEW.MSG"), "the old file");
  Keys("x");
  const MessageBoxReader boxes;
  {
    const FullDisk full_disk(20);
    Press("butSave");
    Choose("butSaveAs", folder_.Path(Text("other.msg")));
  }
  EXPECT_EQ(boxes.Texts(),
            QStringList({Text("Drive not available!"), Text("Drive not available!")}));
  EXPECT_EQ(boxes.Seen()[0].title, Text("Message Editor"));
  EXPECT_EQ(folder_.Read(Text("NEW.MSG")), "the old file");
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.MSG")));
  EXPECT_TRUE(Asks());
}

TEST_F(MsgEditor, AnOperationThatWasToFollowAFailedSaveDoesNotHappen) {
  New(1, 80);
  ASSERT_TRUE(QDir().mkdir(folder_.Path(Text("NEW.MSG"))));  // a folder in place of the file
  Keys("x");
  const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver open(Text("CMDialog1"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver send(Text("frmSendMsg"), [](QWidget* w) { w->close(); });
  for (const char* name : {"butNew", "butOpen", "butSend", "butExit"}) {
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::Yes);
    Press(name);
    EXPECT_EQ(boxes.Texts(), QStringList({Text(kQuestion), Text("Invalid path!")})) << name;
  }
  EXPECT_EQ(dimension.Count() + open.Count() + send.Count(), 0);
  EXPECT_TRUE(window_.isVisible());
  EXPECT_TRUE(Asks());
}

TEST_F(MsgEditor, SendWithoutAPageOpensTheSendDialog) {
  const ModalWindowDriver send(Text("frmSendMsg"), [](QWidget* w) { w->close(); });
  const MessageBoxReader boxes;
  Press("butSend");
  EXPECT_EQ(send.Count(), 1);
}

TEST_F(MsgEditor, SendGivesTheCurrentFileToTheSendDialog) {
  const QString path = WriteMessage("sent.msg", "<L01>ab\r\n<L02>\r\n");
  Open(path);
  QString given;
  const ModalWindowDriver send(Text("frmSendMsg"), [&](QWidget* dialog) {
    given = dialog->findChild<QLabel*>(Text("lblFileName"))->text();
    dialog->close();
  });
  Press("butSend");
  EXPECT_EQ(send.Count(), 1);
  EXPECT_EQ(given, path);
}

TEST_F(MsgEditor, ChoosingTheSameGraphicAgainInsertsItAgainAndMarksThePage) {
  New(1, 80);
  auto* graphics = Find<QComboBox>("ComboGraphic");
  for (int time = 0; time < 2; ++time) {
    graphics->setFocus();
    Key(Qt::Key_Down);  // opens the list
    ASSERT_TRUE(graphics->view()->isVisible());
    QTest::keyClick(graphics->view(), Qt::Key_Return);
    EXPECT_EQ(window_.focusWidget(), Row(1));
    EXPECT_TRUE(Asks());
  }
  EXPECT_EQ(RowLines(), "<L01><SA><CA>~A~A\r\n");
}

TEST_F(MsgEditor, StepsInTheClosedGraphicListOpenItAndInsertNothing) {
  New(1, 80);
  auto* graphics = Find<QComboBox>("ComboGraphic");
  for (const Qt::Key key :
       {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End}) {
    graphics->setCurrentIndex(10);
    graphics->setFocus();
    Key(key);
    EXPECT_TRUE(graphics->view()->isVisible()) << key;
    graphics->hidePopup();
    EXPECT_EQ(graphics->currentIndex(), 10) << key;
  }
  EXPECT_FALSE(Asks());
  EXPECT_EQ(RowLines(), "<L01>\r\n");
}

TEST_F(MsgEditor, DateAndTimeAreInsertedAtTheCursorAndMarkThePage) {
  New(1, 120);
  Keys("ab");
  Key(Qt::Key_Left);
  Press("cmdAddDate");
  EXPECT_EQ(window_.focusWidget(), Row(1));
  Press("cmdAddTime");
  EXPECT_TRUE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SA><CA>aDD MMM YYYYHH:MMb\r\n");
}

TEST_F(MsgEditor, ControlCharactersTypedInAnEditorAreIgnoredAndNoEdit) {
  New(1, 80);
  for (const Qt::Key key : {Qt::Key_A, Qt::Key_J, Qt::Key_X, Qt::Key_BracketLeft}) {
    Key(key, Qt::ControlModifier);
  }
  QKeyEvent tab(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, u"\t"_s);
  QApplication::sendEvent(Row(1), &tab);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(RowLines(), "<L01>\r\n");
}

TEST_F(MsgEditor, ATypedCharacterWithoutAByteInTheCodePageIsARefusedKey) {
  New(1, 80);
  QTest::sendKeyEvent(QTest::Click, Row(1), Qt::Key_unknown, QString(QChar(0x4E2D)),
                      Qt::NoModifier);
  EXPECT_TRUE(Asks());
  EXPECT_EQ(RowLines(), "<L01>\r\n");
}

TEST_F(MsgEditor, LettersBeyondAsciiAreStoredInTheCodePage) {
  New(1, 80);
  QTest::sendKeyEvent(QTest::Click, Row(1), Qt::Key_unknown, Text("ä"), Qt::NoModifier);
  QTest::sendKeyEvent(QTest::Click, Row(1), Qt::Key_E, Text("€"),
                      Qt::ControlModifier | Qt::AltModifier);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>\xE4\x80\r\n");
}

TEST_F(MsgEditor, AnInputMethodsTextGoesThroughTheTypingRule) {
  New(1, 15);
  QInputMethodEvent dead_key(Text("´"), {});
  QApplication::sendEvent(Row(1), &dead_key);
  EXPECT_FALSE(Asks());
  QInputMethodEvent committed;
  committed.setCommitString(Text("éabc"));
  QApplication::sendEvent(Row(1), &committed);
  EXPECT_EQ(RowLines(),
            "<L01><SA><CA>\xE9"
            "ab\r\n");
  EXPECT_EQ(Row(1)->inputMethodQuery(Qt::ImCursorRectangle).toRect(), QRect(36, 0, 1, 20));
  QInputMethodQueryEvent enabled(Qt::ImEnabled);
  QApplication::sendEvent(Row(1), &enabled);
  EXPECT_TRUE(enabled.value(Qt::ImEnabled).toBool());
}

TEST_F(MsgEditor, APasteTypesTheFirstLineOfTheClipboard) {
  New(2, 80);
  Keys("[]");
  Key(Qt::Key_Left);
  QGuiApplication::clipboard()->setText(Text("a\tb\bc\x1b\r\nsecond line"));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cursor(1), 4);
  EXPECT_TRUE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SA><CA>[abc]\r\n<L02>\r\n");
}

TEST_F(MsgEditor, ShiftAndInsertPasteToo) {
  New(1, 80);
  QGuiApplication::clipboard()->setText(Text("abc"));
  Key(Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>abc\r\n");
}

TEST_F(MsgEditor, APasteFillsTheRowAndNoMore) {
  New(2, 80);
  Keys("xyz");
  QGuiApplication::clipboard()->setText(QString(5000000, QLatin1Char('p')));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>xyzppppppppppppp\r\n<L02>\r\n");
  Row(1)->setFocus();
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_TRUE(Asks());
}

TEST_F(MsgEditor, APasteGoesOnBehindCharactersWithoutAByte) {
  New(1, 80);
  QGuiApplication::clipboard()->setText(QString(100, QChar(0x4E2D)) + Text("abc"));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>abc\r\n");
}

TEST_F(MsgEditor, TheContextMenuPastesIntoItsRow) {
  New(2, 80);
  QGuiApplication::clipboard()->setText(Text("abc"));
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  Row(2)->setFocus();
  QApplication::sendEvent(Row(2), &event);
  auto* menu = Row(2)->findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->actions().size(), 1);
  EXPECT_EQ(menu->actions()[0]->text(), Text("Paste"));
  EXPECT_TRUE(menu->actions()[0]->isEnabled());
  menu->actions()[0]->trigger();
  menu->close();
  EXPECT_EQ(RowLines(), "<L01>\r\n<L02><SA><CA>abc\r\n");

  QGuiApplication::clipboard()->clear();
  QApplication::sendEvent(Row(1), &event);
  menu = Row(1)->findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  EXPECT_FALSE(menu->actions()[0]->isEnabled());
  menu->close();
}

TEST_F(MsgEditor, TabLeavesTheRowsToTheNextControlAndComesBackToTheSameRow) {
  New(12, 80);
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  EXPECT_EQ(window_.focusWidget(), Row(3));
  Key(Qt::Key_Tab);
  EXPECT_EQ(window_.focusWidget(), Button("Command3"));
  Key(Qt::Key_Backtab);
  EXPECT_EQ(window_.focusWidget(), Row(3));
  Key(Qt::Key_Backtab);
  EXPECT_EQ(window_.focusWidget(), Button("cmdAddTime"));
  EXPECT_FALSE(Asks());
}

TEST_F(MsgEditor, TabVisitsTheControlsInTheOrderInWhichTheyAreRead) {
  New(12, 80);
  Button("butNew")->setFocus();
  const char* const order[] = {"butOpen",      "butSave",    "butSaveAs",  "butSend",
                               "butExit",      "ComboColor", "ComboSize",  "chkBlink",
                               "ComboGraphic", "cmdAddDate", "cmdAddTime", "Picture1(1)",
                               "Command3",     "Command4",   "butNew"};
  for (const char* name : order) {
    Key(Qt::Key_Tab);
    EXPECT_EQ(window_.focusWidget()->objectName(), Text(name));
  }
}

TEST_F(MsgEditor, LabelsHaveTheirBuddies) {
  EXPECT_EQ(Find<QLabel>("lblColor")->buddy(), Find<QComboBox>("ComboColor"));
  EXPECT_EQ(Find<QLabel>("lblSize")->buddy(), Find<QComboBox>("ComboSize"));
  EXPECT_EQ(Find<QLabel>("lblGraphic")->buddy(), Find<QComboBox>("ComboGraphic"));
}

TEST_F(MsgEditor, ClosingAListReturnsTheKeyboardToTheRow) {
  New(2, 80);
  auto* colours = Find<QComboBox>("ComboColor");
  colours->setFocus();
  colours->showPopup();
  QTest::keyClick(colours->view(), Qt::Key_Down);
  QTest::keyClick(colours->view(), Qt::Key_Return);
  EXPECT_EQ(colours->currentIndex(), 1);
  EXPECT_EQ(window_.focusWidget(), Row(1));
  Keys("y");
  EXPECT_EQ(colours->currentIndex(), 1);
  EXPECT_EQ(RowLines(), "<L01><SA><CB>y\r\n<L02>\r\n");
}

TEST_F(MsgEditor, EscapeInAnOpenListClosesTheListAndNotTheWindow) {
  New(1, 80);
  for (const char* name : {"ComboColor", "ComboSize", "ComboGraphic"}) {
    auto* list = Find<QComboBox>(name);
    list->setFocus();
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Escape);
    EXPECT_FALSE(list->view()->isVisible());
    EXPECT_EQ(list->currentIndex(), 0);
    EXPECT_TRUE(window_.isVisible());
    EXPECT_EQ(window_.focusWidget(), Row(1));
  }
  EXPECT_FALSE(Asks());
}

TEST_F(MsgEditor, ReturnPressesNoButtonFromAnywhere) {
  New(1, 80);
  const ModalWindowDriver file(Text("CMDialog1"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver send(Text("frmSendMsg"), [](QWidget* w) { w->close(); });
  const MessageBoxReader boxes;
  for (QWidget* widget : window_.findChildren<QWidget*>()) {
    if ((widget->focusPolicy() & Qt::TabFocus) == 0 || !widget->isVisible()) continue;
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_Return);
    QTest::keyClick(widget, Qt::Key_Enter);
    EXPECT_TRUE(window_.isVisible()) << widget->objectName().toStdString();
  }
  EXPECT_EQ(file.Count() + dimension.Count() + send.Count(), 0);
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_EQ(folder_.Read(Text("NEW.MSG")), "");
  EXPECT_EQ(RowLines(), "<L01>\r\n");
}

TEST_F(MsgEditor, AWheelOverAListChoosesNothing) {
  New(1, 80);
  for (const char* name : {"ComboColor", "ComboGraphic"}) {
    auto* list = Find<QComboBox>(name);
    TurnWheel(list);
    EXPECT_EQ(list->currentIndex(), 0);
  }
  EXPECT_FALSE(Asks());
}

TEST_F(MsgEditor, TheStandardKeysObeyTheStateOfTheirButtons) {
  const auto dialogs_opened_by = [this](Qt::Key key, Qt::KeyboardModifiers modifiers) {
    const ModalWindowDriver file(Text("CMDialog1"), [](QWidget* w) { w->close(); });
    const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* w) { w->close(); });
    Activate();
    QTest::keyClick(&window_, key, modifiers);
    return file.Count() + 10 * dimension.Count();
  };
  EXPECT_EQ(dialogs_opened_by(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier), 0);
  EXPECT_EQ(dialogs_opened_by(Qt::Key_O, Qt::ControlModifier), 1);
  EXPECT_EQ(dialogs_opened_by(Qt::Key_N, Qt::ControlModifier), 10);
  New(1, 80);
  Keys("x");
  EXPECT_EQ(dialogs_opened_by(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier), 1);
  EXPECT_EQ(dialogs_opened_by(Qt::Key_S, Qt::ControlModifier), 0);
  EXPECT_NE(folder_.Read(Text("NEW.MSG")), "");
  EXPECT_FALSE(Asks());
}

TEST_F(MsgEditor, UndoAndRedoKeysTakeEditsBackAndMakeThemAgain) {
  New(2, 80);
  Keys("abc");
  Key(Qt::Key_Down);
  QGuiApplication::clipboard()->setText(Text("paste"));
  Key(Qt::Key_V, Qt::ControlModifier);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(AccessibleText(Row(2)), QString());
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(window_.focusWidget(), Row(1));
  EXPECT_EQ(Cursor(1), 2);
  EXPECT_EQ(Cursor(2), -1);
  EXPECT_EQ(RowLines(), "<L01><SA><CA>ab\r\n<L02>\r\n");
  Row(1)->setFocus();
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  Key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(window_.focusWidget(), Row(2));
  EXPECT_EQ(RowLines(), "<L01><SA><CA>abc\r\n<L02><SA><CA>paste\r\n");
}

TEST_F(MsgEditor, UndoWithNothingToTakeBackTouchesNothing) {
  Key(Qt::Key_Z, Qt::ControlModifier);
  Key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_FALSE(Find<QTimer>("Timer1")->isActive());
  EXPECT_EQ(window_.focusWidget(), Button("butNew"));
  EXPECT_FALSE(Asks());
}

TEST_F(MsgEditor, WhatWasTypedIntoAnotherPageIsNotTakenBack) {
  New(1, 80);
  Keys("abc");
  Press("butSave");
  Open(WriteMessage("other.msg", "<L01>xyz\r\n<L02>\r\n"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(RowLines(), "<L01><SA><CA>xyz\r\n<L02>\r\n");
  New(1, 80);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(RowLines(), "<L01>\r\n");
}

TEST_F(MsgEditor, TheShiftButtonsMoveAllRowsBy10PixelsWithoutBound) {
  New(2, 80);
  for (int time = 0; time < 3; ++time) Press("Command3");
  for (int row = 1; row <= 12; ++row) EXPECT_EQ(Row(row)->x(), 35);
  for (int time = 0; time < 60; ++time) Press("Command4");
  for (int row = 1; row <= 12; ++row) EXPECT_EQ(Row(row)->x(), -565);
  New(2, 80);
  EXPECT_EQ(Row(1)->x(), 5);
}

/// Keeps which part of a widget is painted while it lives.
class PaintWatcher : public QObject {
 public:
  explicit PaintWatcher(QWidget* widget) { widget->installEventFilter(this); }

  const QRegion& Painted() const { return painted_; }

  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted_ += static_cast<QPaintEvent*>(event)->region();
    return false;
  }

 private:
  QRegion painted_;
};

TEST_F(MsgEditor, ATickPaintsWhatItChanges) {
  Open(WriteMessage("blink.msg", "<L01><SA><CA>a<SE>b<SA>c<SE>d<SA>ef\r\n<L02>steady\r\n"));
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  auto* cursor = Find<QTimer>("Timer1");
  auto* blink = Find<QTimer>("Timer2");
  for (QTimer* timer : {cursor, blink}) timer->stop();
  QApplication::processEvents();
  {
    const PaintWatcher first(Row(1));
    const PaintWatcher second(Row(2));
    QMetaObject::invokeMethod(cursor, "timeout");
    EXPECT_TRUE(QTest::qWaitFor([&] { return first.Painted() == QRegion(72, 0, 1, 20); }));
    EXPECT_TRUE(second.Painted().isEmpty());
  }
  const PaintWatcher first(Row(1));
  const PaintWatcher second(Row(2));
  QMetaObject::invokeMethod(blink, "timeout");
  // From the first blinking character to the last.
  const QRegion blinking(12, 0, 36, 20);
  EXPECT_TRUE(QTest::qWaitFor([&] { return first.Painted().intersected(blinking) == blinking; }));
  EXPECT_TRUE(second.Painted().isEmpty());
}

TEST_F(MsgEditor, OnlyBlinkingCharactersBlink) {
  Open(WriteMessage("blink.msg", "<L01><SA><CJ>a<SE>b\r\n<L02>\r\n"));
  const QColor green(0, 255, 0);
  const auto shows = [&](const QColor& second) {
    const QImage row = Picture(1);
    EXPECT_EQ(row.pixelColor(1, 1), green);
    return row.pixelColor(13, 1) == second;
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return shows(Qt::black); }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return shows(green); }));
}

TEST_F(MsgEditor, AWidePageIsEditedWithoutTheWindowGrowing) {
  New(12, 80);
  const QSize size = window_.size();
  const int least = window_.minimumSizeHint().width();
  New(12, 3000);
  QTest::keyClicks(Row(1), QString(600, QLatin1Char('w')));
  EXPECT_EQ(window_.size(), size);
  EXPECT_EQ(window_.minimumSizeHint().width(), least);
  EXPECT_EQ(Row(1)->width(), 600 * 12 + 5);
  const int cursor = Row(1)->x() + 600 * 12;
  EXPECT_GE(cursor, 0);
  EXPECT_LT(cursor, Row(1)->parentWidget()->width());
}

TEST_F(MsgEditor, ALongPathDoesNotWidenTheWindow) {
  New(2, 80);
  const int least = window_.minimumSizeHint().width();
  QString folder = folder_.Path(QString(90, QLatin1Char('d')));
  ASSERT_TRUE(QDir().mkpath(folder + QLatin1Char('/') + QString(200, QLatin1Char('e'))));
  const QString path = folder + QLatin1Char('/') + QString(200, QLatin1Char('e')) + Text("/a.msg");
  ASSERT_TRUE(QFile::copy(WriteMessage("a.msg", "<L01>\r\n<L02>\r\n"), path));
  Open(path);
  EXPECT_EQ(FileName(), path);
  EXPECT_EQ(window_.minimumSizeHint().width(), least);
  // The end of the path is in sight: another name looks different.
  auto* label = Find<QLabel>("lblFileName");
  QHelpEvent help(QEvent::ToolTip, QPoint(), label->mapToGlobal(QPoint()));
  QApplication::sendEvent(label, &help);
  EXPECT_EQ(QToolTip::text(), path);
  const QImage shown = label->grab().toImage();
  label->setText(path.chopped(5) + Text("b.msg"));
  EXPECT_NE(label->grab().toImage(), shown);
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

TEST_F(MsgEditor, AFileOfVeryLongRowsCanBeEdited) {
  QByteArray content = "*** Brivon Message File ***\r\nRow = 12\r\nCol = 80\r\n";
  for (int row = 0; row < 12; ++row) content += QByteArray(100000, 'a') + "\r\n";
  Open(folder_.Write(Text("long.msg"), content));
  EXPECT_EQ(Row(1)->width(), 16 * 12 + 5);
  Key(Qt::Key_Home);
  EXPECT_EQ(Cursor(1), 0);
  Keys("x");
  Key(Qt::Key_Delete);
  EXPECT_EQ(RowLines().indexOf("\r\n"), 13 + 99999);
}

TEST_F(MsgEditor, WhatIsNoMessageFileIsRefusedWithItsMessage) {
  New(1, 80);
  Keys("old");
  RowLines();
  QByteArray all;
  for (int value = 0; value < 256; ++value) all.append(static_cast<char>(value));
  struct Case {
    QByteArray content;
    const char* message;
  };
  const QByteArray header = "*** Brivon Message File ***\r\n";
  const Case cases[] = {{"", "Error in opening file!"},
                        {header, "Error in opening file!"},
                        {all, "Error in opening file!"},
                        {header + "Row = 99999\r\nCol = 80\r\n", "Error in Opening file!"},
                        {header + "Row = 0\r\nCol = 9\r\n", "Error in Opening file!"},
                        {header + all, "Error in Opening file!"}};
  for (const Case& c : cases) {
    const MessageBoxReader boxes;
    Open(folder_.Write(Text("hostile.msg"), c.content));
    EXPECT_EQ(boxes.Texts(), QStringList(Text(c.message)));
  }
  QFile huge(folder_.Write(Text("hostile.msg"), header));
  ASSERT_TRUE(huge.resize(100 * 1024 * 1024));
  const MessageBoxReader boxes;
  Open(huge.fileName());
  EXPECT_EQ(boxes.Texts(), QStringList(Text("Error in Opening file!")));
  EXPECT_EQ(RowLines(), "<L01><SA><CA>old\r\n");
}

TEST_F(MsgEditor, APipeIsNoFileAndIsNotWaitedFor) {
  const QString pipe = folder_.Path(Text("pipe.msg"));
  ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
  const MessageBoxReader boxes;
  Open(pipe);
  EXPECT_EQ(boxes.Texts(), QStringList(Text("File not found!")));
  EXPECT_EQ(FileName(), QString());
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

TEST_F(MsgEditor, ThereIsRoomForTwelveRowsHoweverLongTheCaptionsAre) {
  QByteArray texts = "[frmMsgEditor]\r\n";
  for (const char* name :
       {"labelRow", "labelCol", "lblColor", "lblSize", "lblGraphic", "chkBlink"}) {
    texts += QByteArray("frmMsgEditor.") + name + '=' + QByteArray("a long caption ").repeated(8) +
             "\r\n";
  }
  folder_.UseLanguage(texts);
  frmMsgEditor window;
  window.show();
  auto* area = window.findChild<QWidget*>(Text("Picture1(12)"))->parentWidget();
  EXPECT_GE(area->visibleRegion().boundingRect().height(), 12 * 24 + 4);
  window.resize(window.minimumSizeHint());
  QCoreApplication::processEvents();
  EXPECT_GE(area->visibleRegion().boundingRect().height(), 12 * 24 + 4);
  EXPECT_LE(window.height(), 700);
}

TEST_F(MsgEditor, CaptionsThatAreMuchLongerAreStillThereWhole) {
  const auto buttons = window_.findChildren<CaptionButton*>();
  ASSERT_EQ(buttons.size(), 8);
  for (CaptionButton* button : buttons) {
    QFont plain = button->font();
    plain.setBold(false);
    button->setFont(plain);
    button->setText(button->text() + Text(" in a longer translation"));
  }
  Find<QLabel>("lblColor")->setText(Text("The colour of what is typed from now on"));
  Find<QCheckBox>("chkBlink")->setText(Text("Blinks from now on"));
  window_.adjustSize();
  for (const CaptionButton* button : buttons) {
    EXPECT_TRUE(button->Fit().complete) << button->text().toStdString() << button->width();
  }
  for (const char* name : {"lblColor", "chkBlink"}) {
    const auto* control = Find<QWidget>(name);
    const QString text = control->property("text").toString();
    EXPECT_TRUE(FitText(control->font(), text, control->size()).complete) << name;
  }
  EXPECT_LE(window_.width(), 800);
}

}  // namespace
