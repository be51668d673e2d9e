#include <sys/stat.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QGroupBox>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QLabel>
#include <QMenu>
#include <QPaintEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "language/module_language.h"
#include "scrolling/frmShiftMsg.h"
#include "support/accessible_events.h"
#include "support/full_disk.h"
#include "support/message_box_reader.h"
#include "support/panel_bench.h"
#include "support/program_folder.h"
#include "support/shown_window.h"
#include "support/wheel.h"
#include "support/window_keys.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kQuestion = "File not saved. Save it now?";
const QByteArray kHeader = "*** Brivon Shift Message File ***\r\n";

QString Text(const char* text) { return QString::fromUtf8(text); }

class ShiftMsg : public testing::Test {
 protected:
  ShiftMsg() {
    window_.show();
    Activate();
  }

  ~ShiftMsg() override { QGuiApplication::clipboard()->clear(); }

  /// The window becomes the active one again, as a desktop makes it when a dialog closes.
  void Activate() { ActivateWindow(&window_); }

  template <typename Widget>
  Widget* Find(const char* name) {
    auto* widget = window_.findChild<Widget*>(Text(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }

  QPushButton* Button(const char* name) { return Find<QPushButton>(name); }
  void Press(const char* name) { QTest::mouseClick(Button(name), Qt::LeftButton); }
  QWidget* Picture() { return Find<QWidget>("Picture1"); }
  QString FileName() { return Find<QLabel>("lblFileName")->text(); }
  QString Position() { return Find<QLabel>("lblPosition")->text(); }

  void Keys(const QString& text) { QTest::keyClicks(window_.focusWidget(), text); }
  void Keys(const char* text) { Keys(Text(text)); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window_.focusWidget(), key, modifiers);
  }

  /// Presses a button and enters a name into the file dialog that it opens; an empty one cancels.
  void Choose(const char* button, const QString& path) {
    const FileChooser chooser(path);
    Press(button);
    dialogs_ += chooser.Count();
    dialog_ = chooser.Seen();
    Activate();
  }

  void Open(const QString& path) { Choose("butOpen", path); }

  QString Write(const char* name, const QByteArray& body) {
    return folder_.Write(Text(name), kHeader + body + "\r\n");
  }

  /// What Save As writes of the message as it is, without the header; the modified flag is clear
  /// afterwards.
  QByteArray Body() {
    const QString path = folder_.Path(Text("body.srl"));
    Choose("butSaveAs", path);
    Picture()->setFocus();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return "no file";
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.startsWith(kHeader));
    return content.sliced(kHeader.size());
  }

  /// Whether the editor asks about unsaved work when it is to be left; it stays open.
  bool Asks() {
    const MessageBoxReader boxes;  // answers with Cancel
    const ModalWindowDriver send(Text("frmSendShift"), [](QWidget* dialog) { dialog->close(); });
    Press("butSend");
    const bool asked = boxes.Texts().contains(Text(kQuestion));
    EXPECT_EQ(send.Count(), asked ? 0 : 1);
    Activate();
    Picture()->setFocus();
    return asked;
  }

  QImage Image() { return Picture()->grab().toImage(); }

  static bool IsLine(const QImage& image, int x, const QColor& colour) {
    for (int y = 0; y < 20; ++y) {
      if (image.pixelColor(x, y) != colour) return false;
    }
    return true;
  }

  /// The cell in front of which the white cursor line stands; -1 where there is none.
  int CursorCell() {
    const QImage image = Image();
    for (int x = 0; x < image.width(); x += 12) {
      if (IsLine(image, x, Qt::white)) return x / 12;
    }
    return -1;
  }

  TemporaryProgramFolder folder_;
  frmShiftMsg window_;
  SeenFileDialog dialog_;  // the file dialog that Choose() answered last
  int dialogs_ = 0;        // and how many it has answered
};

TEST_F(ShiftMsg, OpensWithItsCaptionsListsAndStates) {
  EXPECT_EQ(window_.objectName(), Text("frmShiftMsg"));
  EXPECT_EQ(window_.windowTitle(), Text("Scrolling Message"));
  const std::pair<const char*, const char*> buttons[] = {
      {"butNew", "New"},        {"butOpen", "Open"}, {"butSave", "Save"},
      {"butSaveAs", "Save As"}, {"butSend", "Send"}, {"butExit", "Exit"}};
  for (const auto& [name, caption] : buttons) {
    EXPECT_EQ(Button(name)->text(), Text(caption));
    EXPECT_TRUE(Button(name)->isEnabled()) << name;
    EXPECT_FALSE(Button(name)->autoDefault()) << name;
  }
  EXPECT_EQ(Find<QGroupBox>("frameFileFunction")->title(), Text("Message File"));
  EXPECT_EQ(Find<QGroupBox>("frameProperties")->title(), Text("Format"));
  EXPECT_EQ(Find<QLabel>("lblColor")->text(), Text("Color"));
  EXPECT_EQ(Find<QLabel>("lblColor")->buddy(), Find<QComboBox>("ComboColor"));
  EXPECT_EQ(Find<QLabel>("lblSize")->text(), Text("Size"));
  EXPECT_EQ(Find<QLabel>("lblSize")->buddy(), Find<QComboBox>("ComboSize"));
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
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SRL")));
  EXPECT_EQ(Position(), Text("0 of 0"));
  EXPECT_EQ(Picture()->size(), QSize(30 * 12 + 5, 20));
  EXPECT_FALSE(Asks());
}

TEST_F(ShiftMsg, ItsCaptionsAreAlwaysEnglish) {
  folder_.UseLanguage(
      "[frmShiftMsg]\r\nfrmShiftMsg.Caption=Lauftext\r\nfrmShiftMsg.butNew=Neu\r\n"
      "[frmMsgEditor]\r\nfrmMsgEditor.butNew=Neu\r\nfrmMsgEditor.chkBlink=Blinkt\r\n");
  const frmShiftMsg loaded;
  EXPECT_EQ(loaded.windowTitle(), Text("Scrolling Message"));
  EXPECT_EQ(loaded.findChild<QPushButton*>(Text("butNew"))->text(), Text("New"));
  EXPECT_EQ(loaded.findChild<QCheckBox*>(Text("chkBlink"))->text(), Text("Blinking"));
}

TEST_F(ShiftMsg, TheKeyboardIsInTheDrawingAreaFromTheFirst) {
  EXPECT_EQ(window_.focusWidget(), Picture());
  EXPECT_EQ(CursorCell(), 0);
  Keys("Hi");
  EXPECT_EQ(Position(), Text("2 of 2"));
  EXPECT_EQ(CursorCell(), 2);
}

TEST_F(ShiftMsg, AClickOnAFileButtonLeavesTheKeyboardInTheDrawingArea) {
  Keys("x");
  const MessageBoxReader boxes;  // answers with Cancel
  for (const char* name : {"butNew", "butOpen", "butSend", "butExit"}) {
    Press(name);
    Activate();
    EXPECT_EQ(window_.focusWidget(), Picture()) << name;
  }
  Keys("y");
  EXPECT_EQ(Position(), Text("2 of 2"));
}

TEST_F(ShiftMsg, TimersOfThePreviewCursor500MsBlinkingCharacters500Ms) {
  EXPECT_EQ(Find<QTimer>("Timer1")->interval(), 500);
  EXPECT_EQ(Find<QTimer>("Timer2")->interval(), 500);
  EXPECT_TRUE(Find<QTimer>("Timer1")->isActive());
  EXPECT_TRUE(Find<QTimer>("Timer2")->isActive());
}

TEST_F(ShiftMsg, TheCursorBlinks) {
  EXPECT_TRUE(QTest::qWaitFor([this] { return CursorCell() == -1; }));
  EXPECT_TRUE(QTest::qWaitFor([this] { return CursorCell() == 0; }));
}

TEST_F(ShiftMsg, TheCursorBlinksAnewFromEveryEdit) {
  auto* timer = Find<QTimer>("Timer1");
  ASSERT_TRUE(QTest::qWaitFor([&] { return timer->remainingTime() < 250; }));
  const int before = timer->remainingTime();
  Key(Qt::Key_Left);
  EXPECT_GT(timer->remainingTime(), before);
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

TEST_F(ShiftMsg, ATickPaintsWhatItChangesAndAnEditTheWholeSpan) {
  // The characters 70 to 99 are in sight.
  Open(Write("a.srl", QByteArray(10, 'a') + "<SE>b<SA>" + QByteArray(61, 'c') + "<SE>d<SA>e<SE>f" +
                          "<SA>" + QByteArray(25, 'g')));
  ASSERT_EQ(Position(), Text("100 of 100"));
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  auto* cursor = Find<QTimer>("Timer1");
  auto* blink = Find<QTimer>("Timer2");
  for (QTimer* timer : {cursor, blink}) timer->stop();
  QApplication::processEvents();
  {
    const PaintWatcher picture(Picture());
    QMetaObject::invokeMethod(cursor, "timeout");
    EXPECT_TRUE(QTest::qWaitFor([&] { return picture.Painted() == QRegion(360, 0, 1, 20); }));
  }
  {
    const PaintWatcher picture(Picture());
    QMetaObject::invokeMethod(blink, "timeout");
    // From the first blinking character in sight to the last.
    const QRegion blinking(24, 0, 36, 20);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return picture.Painted().intersected(blinking) == blinking; }));
    EXPECT_FALSE(picture.Painted().contains(QPoint(360, 10)));
  }
  const PaintWatcher picture(Picture());
  Key(Qt::Key_Home);
  EXPECT_TRUE(QTest::qWaitFor([&] { return picture.Painted() == QRegion(Picture()->rect()); }));
}

TEST_F(ShiftMsg, TypingThe1001stCharacterDoesNothing) {
  Keys(QString(999, QLatin1Char('a')));
  EXPECT_EQ(Position(), Text("999 of 999"));
  Keys("b");
  EXPECT_EQ(Position(), Text("1000 of 1000 (full)"));
  const QByteArray full = "<SA><CA>" + QByteArray(999, 'a') + "b\r\n";
  EXPECT_EQ(Body(), full);
  Keys("c");
  EXPECT_FALSE(Asks());
  EXPECT_EQ(Body(), full);
}

TEST_F(ShiftMsg, BackspaceAtTheStartAndDeleteAtTheEndDoNothing) {
  Keys("ab");
  EXPECT_EQ(Body(), "<SA><CA>ab\r\n");
  Key(Qt::Key_Delete);
  Key(Qt::Key_Home);
  Key(Qt::Key_Backspace);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(Body(), "<SA><CA>ab\r\n");
}

TEST_F(ShiftMsg, EndOnA100CharacterMessageSetsTheFirstVisibleCharacterTo70) {
  Open(Write("a.srl", "<CJ>" + QByteArray(70, 'a') + "<CK>" + QByteArray(30, 'b')));
  Key(Qt::Key_Home);
  EXPECT_EQ(Position(), Text("0 of 100"));
  EXPECT_EQ(CursorCell(), 0);
  const QColor green(0, 255, 0);
  const QColor red(255, 0, 0);
  EXPECT_EQ(Image().pixelColor(29 * 12 + 1, 1), green);
  Key(Qt::Key_End);
  EXPECT_EQ(Position(), Text("100 of 100"));
  EXPECT_EQ(CursorCell(), 30);
  const QImage image = Image();
  EXPECT_EQ(image.pixelColor(1, 1), red);
  EXPECT_EQ(image.pixelColor(29 * 12 + 1, 1), red);
  Key(Qt::Key_Left);
  for (int step = 0; step < 30; ++step) Key(Qt::Key_Left);
  EXPECT_EQ(Position(), Text("69 of 100"));
  EXPECT_EQ(CursorCell(), 0);
  EXPECT_EQ(Image().pixelColor(2, 1), green);
  EXPECT_EQ(Image().pixelColor(13, 1), red);
}

TEST_F(ShiftMsg, NothingIsShownBehindTheThirtiethCharacter) {
  Open(Write("a.srl", "<CJ>" + QByteArray(100, 'a')));
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Right}) {
    Key(key);
    QMetaObject::invokeMethod(Find<QTimer>("Timer1"), "timeout");
    const QImage image = Image();
    for (int x = 360; x < 365; ++x) EXPECT_TRUE(IsLine(image, x, Qt::black)) << x;
  }
}

TEST_F(ShiftMsg, ChangingColourSizeOrBlinkChangesOnlyCharactersTypedAfterwards) {
  Keys("a");
  Find<QComboBox>("ComboColor")->setCurrentIndex(15);
  Keys("b");
  Find<QComboBox>("ComboSize")->setCurrentIndex(1);
  Keys("c");
  QTest::mouseClick(Find<QCheckBox>("chkBlink"), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_TRUE(Find<QCheckBox>("chkBlink")->isChecked());
  EXPECT_EQ(window_.focusWidget(), Picture());
  Keys("d");
  QTest::mouseClick(Find<QCheckBox>("chkBlink"), Qt::LeftButton, {}, QPoint(8, 8));
  Keys("e");
  EXPECT_EQ(Body(), "<SA><CA>a<CP>b<SB>c<SF>d<SB>e\r\n");
  Find<QComboBox>("ComboColor")->setCurrentIndex(0);
  Find<QComboBox>("ComboSize")->setCurrentIndex(0);
  EXPECT_FALSE(Asks());
}

TEST_F(ShiftMsg, EveryColourAndSizeHasItsLetter) {
  QByteArray expected;
  for (int index = 0; index < 16; ++index) {
    Find<QComboBox>("ComboColor")->setCurrentIndex(index);
    Find<QComboBox>("ComboSize")->setCurrentIndex(index % 4);
    Keys("x");
    expected += QByteArray("<S") + "ABCD"[index % 4] + "><C" + "ABCDEFGHIJKLMNOP"[index] + ">x";
  }
  EXPECT_EQ(Body(), expected + "\r\n");
}

TEST_F(ShiftMsg, TheKeysEditTheMessage) {
  Keys("abcd");
  Key(Qt::Key_Home);
  EXPECT_EQ(CursorCell(), 0);
  Key(Qt::Key_Left);
  Key(Qt::Key_Right);
  EXPECT_EQ(CursorCell(), 1);
  Key(Qt::Key_Delete);
  Keys("X");
  Key(Qt::Key_Return);
  Key(Qt::Key_Enter);
  Key(Qt::Key_Up);
  Key(Qt::Key_Down);
  EXPECT_EQ(CursorCell(), 2);
  Key(Qt::Key_End);
  EXPECT_EQ(CursorCell(), 4);
  Key(Qt::Key_Right);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Position(), Text("3 of 3"));
  EXPECT_EQ(Body(), "<SA><CA>aXc\r\n");
}

TEST_F(ShiftMsg, KeysWithAltOrMetaNeitherMoveNorTypeAndGoOnToTheWindow) {
  Keys("ab cd");
  Key(Qt::Key_Left);
  WindowKeys window_keys(&window_);
  for (const Qt::KeyboardModifiers modifiers :
       {Qt::KeyboardModifiers(Qt::AltModifier), Qt::KeyboardModifiers(Qt::MetaModifier),
        Qt::AltModifier | Qt::ControlModifier}) {
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End,
                              Qt::Key_Delete, Qt::Key_Backspace}) {
      Key(key, modifiers);
      EXPECT_EQ(Position(), Text("4 of 5")) << key << " with " << modifiers.toInt();
      EXPECT_EQ(window_keys.TakeLast(), key) << key << " with " << modifiers.toInt();
    }
  }
}

TEST_F(ShiftMsg, CtrlWithLeftAndRightGoesByWordsAndTheVisibleSpanFollows) {
  Open(Write("a.srl", "one " + QByteArray(40, 'a') + " two"));
  ASSERT_EQ(Position(), Text("48 of 48"));
  ASSERT_EQ(CursorCell(), 30);
  Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("45 of 48"));
  EXPECT_EQ(CursorCell(), 27);
  Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("4 of 48"));
  EXPECT_EQ(CursorCell(), 0);
  Key(Qt::Key_Left, Qt::ControlModifier);
  Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("0 of 48"));
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("4 of 48"));
  EXPECT_EQ(CursorCell(), 4);
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("45 of 48"));
  EXPECT_EQ(CursorCell(), 30);
  Key(Qt::Key_Right, Qt::ControlModifier);
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("48 of 48"));
  EXPECT_EQ(CursorCell(), 30);
  EXPECT_FALSE(Asks());
}

TEST_F(ShiftMsg, ShiftWithDeleteIsNoDelete) {
  Keys("ab");
  EXPECT_EQ(Body(), "<SA><CA>ab\r\n");
  Key(Qt::Key_Home);
  Key(Qt::Key_Delete, Qt::ShiftModifier);
  EXPECT_EQ(Position(), Text("0 of 2"));
  EXPECT_FALSE(Asks());
}

TEST_F(ShiftMsg, CtrlWithBackspaceAndDeleteTakeOutAWord) {
  Open(Write("a.srl", "one " + QByteArray(40, 'a') + " two"));
  Key(Qt::Key_Left, Qt::ControlModifier);
  Key(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("45 of 45"));
  EXPECT_TRUE(Asks());
  Key(Qt::Key_Backspace, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("4 of 4"));
  EXPECT_GT(CursorCell(), 0);  // what stands in front of it is in sight
  EXPECT_EQ(Body(), "<SA><CA>one \r\n");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("45 of 45"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("45 of 48"));
}

TEST_F(ShiftMsg, TypingPastTheVisibleSpanTheFirstVisibleCharacterFollowsTheCursor) {
  Keys(QString(45, QLatin1Char('x')));
  EXPECT_EQ(CursorCell(), 30);
  Key(Qt::Key_Home);
  EXPECT_EQ(CursorCell(), 0);
  for (int step = 0; step < 31; ++step) Key(Qt::Key_Right);
  EXPECT_EQ(CursorCell(), 30);
  EXPECT_EQ(Position(), Text("31 of 45"));
}

TEST_F(ShiftMsg, WhoeverRemovesCharactersSeesWhichOnesComeNext) {
  Open(Write("a.srl", QByteArray(100, 'a')));
  for (int step = 0; step < 99; ++step) {
    Key(Qt::Key_Backspace);
    EXPECT_GT(CursorCell(), 0) << step;
  }
  EXPECT_EQ(Position(), Text("1 of 1"));
}

TEST_F(ShiftMsg, AClickSetsTheCursorAsInThePageEditor) {
  Open(Write("a.srl", QByteArray(100, 'a')));
  QTest::mouseClick(Picture(), Qt::LeftButton, {}, QPoint(17, 10));
  EXPECT_EQ(Position(), Text("71 of 100"));
  QTest::mouseClick(Picture(), Qt::LeftButton, {}, QPoint(18, 10));
  EXPECT_EQ(Position(), Text("72 of 100"));
  EXPECT_EQ(CursorCell(), 2);
  QTest::mouseClick(Picture(), Qt::LeftButton, {}, QPoint(364, 10));
  EXPECT_EQ(Position(), Text("100 of 100"));
  QTest::mouseClick(Picture(), Qt::RightButton, {}, QPoint(18, 10));
  EXPECT_EQ(Position(), Text("100 of 100"));
  EXPECT_FALSE(Asks());
  Press("butNew");
  Keys("abcd");
  Button("butNew")->setFocus();
  QTest::mouseClick(Picture(), Qt::LeftButton, {}, QPoint(300, 10));
  EXPECT_EQ(Position(), Text("4 of 4"));
  EXPECT_EQ(window_.focusWidget(), Picture());
}

TEST_F(ShiftMsg, OnlyBlinkingCharactersBlink) {
  Open(Write("a.srl", QByteArray(40, 'x') + "<SA><CJ>a<SE>b<SA>" + QByteArray(28, 'c')));
  ASSERT_EQ(Position(), Text("70 of 70"));
  const QColor green(0, 255, 0);
  const auto shows = [&](const QColor& second) {
    const QImage image = Image();
    EXPECT_EQ(image.pixelColor(1, 1), green);
    return image.pixelColor(13, 1) == second;
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return shows(Qt::black); }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return shows(green); }));
}

TEST_F(ShiftMsg, ABlinkTickBesideTheBlinkingCharactersDoesNoHarm) {
  Open(Write("a.srl", "<SE>b<SA>" + QByteArray(100, 'c') + "<SE>d"));
  for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Home, Qt::Key_Right, Qt::Key_End}) {
    Key(key);
    for (int tick = 0; tick < 2; ++tick) {
      QMetaObject::invokeMethod(Find<QTimer>("Timer2"), "timeout");
      Image();
    }
  }
  Press("butNew");
  QMetaObject::invokeMethod(Find<QTimer>("Timer2"), "timeout");
  EXPECT_EQ(CursorCell(), 0);
}

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

TEST_F(ShiftMsg, OpenLeavesTheAttributesOfWhatIsTypedNext) {
  Find<QComboBox>("ComboColor")->setCurrentIndex(2);
  Find<QComboBox>("ComboSize")->setCurrentIndex(3);
  Find<QCheckBox>("chkBlink")->setChecked(true);
  Open(Write("a.srl", "<SB><CP>a"));
  Keys("x");
  EXPECT_EQ(Body(), "<SB><CP>a<SH><CC>x\r\n");
  EXPECT_EQ(Find<QComboBox>("ComboColor")->currentIndex(), 2);
  EXPECT_EQ(Find<QComboBox>("ComboSize")->currentIndex(), 3);
  EXPECT_TRUE(Find<QCheckBox>("chkBlink")->isChecked());
}

TEST_F(ShiftMsg, TheFileDialogsHaveTheirTitlesAndFilters) {
  Open(QString());
  EXPECT_EQ(dialog_.title, Text("Open Message"));
  EXPECT_EQ(dialog_.filters, QStringList({Text("All (*)"), Text("Scrolling Message (*.srl)")}));
  EXPECT_EQ(dialog_.filter, Text("Scrolling Message (*.srl)"));
  EXPECT_EQ(dialog_.folder, QFileInfo(folder_.Path(Text("x"))).absolutePath());
  Choose("butSaveAs", QString());
  EXPECT_EQ(dialog_.title, Text("Save As"));
  EXPECT_EQ(dialog_.filters, QStringList({Text("All (*)"), Text("scrolling File(*.srl)")}));
  EXPECT_EQ(dialog_.filter, Text("scrolling File(*.srl)"));
  EXPECT_EQ(dialog_.name, QString());
}

TEST_F(ShiftMsg, AFileDialogThatIsCancelledChangesNothing) {
  Keys("x");
  Choose("butSaveAs", QString());
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Open(QString());
  EXPECT_EQ(dialogs_, 2);
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SRL")));
  EXPECT_TRUE(Asks());
  EXPECT_EQ(Body(), "<SA><CA>x\r\n");
}

TEST_F(ShiftMsg, SaveWritesToTheCurrentNameWithoutADialog) {
  Keys("x");
  const ModalWindowDriver file(Text("CMDialog1"), [](QWidget* w) { w->close(); });
  Press("butSave");
  EXPECT_EQ(file.Count(), 0);
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), kHeader + "<SA><CA>x\r\n");
  EXPECT_EQ(window_.focusWidget(), Picture());
  EXPECT_FALSE(Asks());
}

TEST_F(ShiftMsg, SaveOnTheUntouchedDefaultNameWritesAnEmptyMessage) {
  Press("butSave");
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), kHeader + "\r\n");
}

TEST_F(ShiftMsg, SaveAsMakesTheChosenNameTheCurrentOne) {
  Keys("x");
  const QString path = folder_.Write(Text("there.srl"), "replaced without a question");
  const MessageBoxReader boxes;
  Choose("butSaveAs", path);
  EXPECT_EQ(FileName(), path);
  Picture()->setFocus();
  Keys("y");
  Press("butSave");
  EXPECT_EQ(folder_.Read(Text("there.srl")), kHeader + "<SA><CA>xy\r\n");
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), "");
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_FALSE(Asks());
}

TEST_F(ShiftMsg, TheSaveQuestionHasAQuestionIconYesNoCancelAndTheWindowsCaptionAsTitle) {
  Keys("x");
  const MessageBoxReader boxes;
  Press("butExit");
  ASSERT_EQ(boxes.Texts(), QStringList(Text(kQuestion)));
  EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::Question);
  EXPECT_EQ(boxes.Seen()[0].title, Text("Scrolling Message"));
  EXPECT_EQ(boxes.Seen()[0].buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  EXPECT_EQ(boxes.Seen()[0].parent, &window_);
}

TEST_F(ShiftMsg, CancelStopsNewOpenSendAndExit) {
  Keys("x");
  const ModalWindowDriver open(Text("CMDialog1"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver send(Text("frmSendShift"), [](QWidget* w) { w->close(); });
  const MessageBoxReader boxes;
  for (const char* name : {"butNew", "butOpen", "butSend", "butExit"}) Press(name);
  EXPECT_EQ(boxes.Seen().size(), 4);
  EXPECT_EQ(open.Count() + send.Count(), 0);
  EXPECT_TRUE(window_.isVisible());
  EXPECT_EQ(Position(), Text("1 of 1"));
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

TEST_F(ShiftMsg, SendHandsTheCurrentFileOver) {
  const QString path = Write("current.srl", "abc");
  Open(path);
  QString given;
  const ModalWindowDriver send(Text("frmSendShift"), [&](QWidget* dialog) {
    given = dialog->findChild<QLabel*>(Text("lblFileName"))->text();
    dialog->close();
  });
  Press("butSend");
  EXPECT_EQ(given, path);
}

TEST_F(ShiftMsg, NoContinuesWithoutSaving) {
  Keys("x");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Press("butNew");
  EXPECT_EQ(Position(), Text("0 of 0"));
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), "");
  EXPECT_FALSE(Asks());
  Keys("y");
  boxes.Answer(QMessageBox::No);
  Press("butExit");
  EXPECT_FALSE(window_.isVisible());
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), "");
}

TEST_F(ShiftMsg, TheCloseBoxAndEscapeAskLikeExit) {
  Keys("x");
  MessageBoxReader boxes;
  EXPECT_FALSE(window_.close());
  Key(Qt::Key_Escape);
  EXPECT_TRUE(window_.isVisible());
  EXPECT_EQ(boxes.Texts(), QStringList({Text(kQuestion), Text(kQuestion)}));
  boxes.Answer(QMessageBox::Yes);
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
  EXPECT_NE(folder_.Read(Text("NEW.SRL")), "");
}

TEST_F(ShiftMsg, WithoutChangesTheWindowClosesWithoutAQuestion) {
  const MessageBoxReader boxes;
  EXPECT_TRUE(window_.close());
  EXPECT_TRUE(boxes.Seen().isEmpty());
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

TEST_F(ShiftMsg, ARefusedFileLeavesTheMessageOnScreenAsItWas) {
  Keys("old");
  Press("butSave");
  QByteArray all;
  for (int value = 0; value < 256; ++value) all.append(static_cast<char>(value));
  struct Case {
    QByteArray content;
    const char* message;
  };
  const Case cases[] = {{"", "Error in opening file!"},
                        {all, "Error in opening file!"},
                        {kHeader.first(29), "Error in opening file!"},
                        {"*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01>x\r\n",
                         "Error in opening file!"},
                        {kHeader.chopped(2), "Error in Opening file!"},
                        {kHeader, "Error in Opening file!"}};
  for (const Case& c : cases) {
    const MessageBoxReader boxes;
    Open(folder_.Write(Text("hostile.srl"), c.content));
    ASSERT_EQ(boxes.Texts(), QStringList(Text(c.message)));
    EXPECT_EQ(boxes.Seen()[0].title, Text("Scrolling Message"));
    EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::NoIcon);
    EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SRL")));
    EXPECT_EQ(Position(), Text("3 of 3"));
  }
  QFile huge(folder_.Write(Text("hostile.srl"), kHeader));
  ASSERT_TRUE(huge.resize(100 * 1024 * 1024));
  const MessageBoxReader boxes;
  Open(huge.fileName());
  EXPECT_EQ(boxes.Texts(), QStringList(Text("Error in Opening file!")));
  EXPECT_FALSE(Asks());
  Keys("er");
  Press("butSave");
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), kHeader + "<SA><CA>older\r\n");
}

TEST_F(ShiftMsg, AFileThatIsNotThereOrIsAPipeGivesTheMessageAndNothingElseChanges) {
  const MessageBoxReader boxes;
  Open(folder_.Path(Text("missing.srl")));
  const QString pipe = folder_.Path(Text("pipe.srl"));
  ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
  Open(pipe);
  EXPECT_EQ(boxes.Texts(), QStringList({Text("File not found!"), Text("File not found!")}));
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SRL")));
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

TEST_F(ShiftMsg, AMessageOf600000CharactersCanBeEdited) {
  Open(Write("long.srl", QByteArray(600000, 'a')));
  EXPECT_EQ(Position(), Text("600000 of 600000 (full)"));
  EXPECT_EQ(CursorCell(), 30);
  QElapsedTimer timer;
  timer.start();
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Home);
  Key(Qt::Key_Delete);
  Keys("refused");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("0 of 599999 (full)"));
  Key(Qt::Key_Right);
  QMetaObject::invokeMethod(Find<QTimer>("Timer2"), "timeout");
  EXPECT_LT(timer.elapsed(), 5000);
  EXPECT_EQ(Body().size(), 8 + 599999 + 2);
}

TEST_F(ShiftMsg, ASaveThatFailsLosesNothing) {
  folder_.Write(Text("NEW.SRL"), "the old file");
  Keys("x");
  const MessageBoxReader boxes;
  {
    const FullDisk full_disk(20);
    Press("butSave");
    Choose("butSaveAs", folder_.Path(Text("other.srl")));
  }
  EXPECT_EQ(boxes.Texts(),
            QStringList({Text("Drive not available!"), Text("Drive not available!")}));
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), "the old file");
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SRL")));
  EXPECT_TRUE(Asks());
  EXPECT_EQ(Body(), "<SA><CA>x\r\n");
}

TEST_F(ShiftMsg, AnOperationThatWasToFollowAFailedSaveDoesNotHappen) {
  ASSERT_TRUE(QDir().mkdir(folder_.Path(Text("NEW.SRL"))));  // a folder in place of the file
  Keys("x");
  const ModalWindowDriver open(Text("CMDialog1"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver send(Text("frmSendShift"), [](QWidget* w) { w->close(); });
  for (const char* name : {"butNew", "butOpen", "butSend", "butExit"}) {
    MessageBoxReader boxes;
    boxes.Answer(QMessageBox::Yes);
    Press(name);
    EXPECT_EQ(boxes.Texts(), QStringList({Text(kQuestion), Text("Invalid path!")})) << name;
  }
  EXPECT_EQ(open.Count() + send.Count(), 0);
  EXPECT_TRUE(window_.isVisible());
  EXPECT_EQ(Position(), Text("1 of 1"));
  EXPECT_TRUE(Asks());
}

TEST_F(ShiftMsg, APathLongerThanItsFieldIsRefusedWhenItIsChosen) {
  Keys("x");
  const MessageBoxReader boxes;
  Choose("butSaveAs", folder_.Path(QString(100, QLatin1Char('n'))));
  EXPECT_EQ(boxes.Texts(), QStringList(Text("Invalid path!")));
  EXPECT_EQ(FileName(), folder_.Path(Text("NEW.SRL")));
  EXPECT_TRUE(Asks());
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

TEST_F(ShiftMsg, APasteTypesTheFirstLineOfTheClipboard) {
  Keys("[]");
  Key(Qt::Key_Left);
  QGuiApplication::clipboard()->setText(Text("a\tb\bc\x1b\r\nsecond line"));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("4 of 5"));
  EXPECT_TRUE(Asks());
  EXPECT_EQ(Body(), "<SA><CA>[abc]\r\n");
}

TEST_F(ShiftMsg, APasteFillsTheMessageAndNoMore) {
  Keys("xyz");
  QGuiApplication::clipboard()->setText(QString(5000000, QLatin1Char('p')));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("1000 of 1000 (full)"));
  EXPECT_EQ(CursorCell(), 30);
  EXPECT_EQ(Body(), "<SA><CA>xyz" + QByteArray(997, 'p') + "\r\n");
}

TEST_F(ShiftMsg, TheContextMenuPastes) {
  QGuiApplication::clipboard()->setText(Text("abc\ndef"));
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(Picture(), &event);
  auto* menu = Picture()->findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->actions().size(), 1);
  EXPECT_EQ(menu->actions()[0]->text(), Text("Paste"));
  menu->actions()[0]->trigger();
  menu->close();
  EXPECT_EQ(Body(), "<SA><CA>abc\r\n");
}

TEST_F(ShiftMsg, ATypedCharacterWithoutAByteInTheCodePageIsARefusedKey) {
  QTest::sendKeyEvent(QTest::Click, Picture(), Qt::Key_unknown, QString(QChar(0x4E2D)),
                      Qt::NoModifier);
  EXPECT_FALSE(Asks());
  QGuiApplication::clipboard()->setText(QString(100, QChar(0x4E2D)) + Text("abc"));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Body(), "<SA><CA>abc\r\n");
}

TEST_F(ShiftMsg, LettersBeyondAsciiAreStoredInTheCodePage) {
  QTest::sendKeyEvent(QTest::Click, Picture(), Qt::Key_unknown, Text("ä"), Qt::NoModifier);
  QTest::sendKeyEvent(QTest::Click, Picture(), Qt::Key_E, Text("€"),
                      Qt::ControlModifier | Qt::AltModifier);
  QInputMethodEvent committed;
  committed.setCommitString(Text("é"));
  QApplication::sendEvent(Picture(), &committed);
  EXPECT_EQ(Body(), "<SA><CA>\xE4\x80\xE9\r\n");
}

TEST_F(ShiftMsg, AnInputMethodFindsTheCursorInTheSpan) {
  Open(Write("a.srl", QByteArray(100, 'a')));
  EXPECT_EQ(Picture()->inputMethodQuery(Qt::ImCursorRectangle).toRect(), QRect(360, 0, 1, 20));
  Key(Qt::Key_Left);
  EXPECT_EQ(Picture()->inputMethodQuery(Qt::ImCursorRectangle).toRect(), QRect(348, 0, 1, 20));
}

TEST_F(ShiftMsg, AnInputMethodIsToldWhereTheCursorGoes) {
  window_.activateWindow();
  ASSERT_TRUE(QTest::qWaitFor([this] { return QGuiApplication::focusObject() == Picture(); }));
  Keys("abc");
  const QSignalSpy told(QGuiApplication::inputMethod(), &QInputMethod::cursorRectangleChanged);
  Key(Qt::Key_Left);
  EXPECT_GE(told.count(), 1);
}

TEST_F(ShiftMsg, TheDrawingAreaIsNamedAndReadOutToWhoCannotSeeIt) {
  EXPECT_EQ(Picture()->accessibleName(), Text("Message"));
  Keys("Road works");
  EXPECT_EQ(AccessibleText(Picture()), Text("Road works"));
}

TEST_F(ShiftMsg, ControlCharactersTypedInAnEditorAreIgnoredAndNoEdit) {
  for (const Qt::Key key : {Qt::Key_A, Qt::Key_J, Qt::Key_X, Qt::Key_BracketLeft}) {
    Key(key, Qt::ControlModifier);
  }
  QKeyEvent tab(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, u"\t"_s);
  QApplication::sendEvent(Picture(), &tab);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(Body(), "\r\n");
}

TEST_F(ShiftMsg, UndoAndRedoKeysTakeEditsBackAndMakeThemAgain) {
  const MessageBoxReader boxes;
  Key(Qt::Key_Z, Qt::ControlModifier);
  Key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_FALSE(Asks());
  Keys("ab");
  QGuiApplication::clipboard()->setText(QString(50, QLatin1Char('p')));
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(CursorCell(), 30);
  Find<QComboBox>("ComboColor")->setFocus();
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(window_.focusWidget(), Picture());
  EXPECT_EQ(Position(), Text("2 of 2"));
  EXPECT_EQ(CursorCell(), 2);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("1 of 1"));
  Key(Qt::Key_Y, Qt::ControlModifier);
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Position(), Text("52 of 52"));
  Press("butSave");
  Open(Write("other.srl", "xyz"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(Asks());
  EXPECT_EQ(Position(), Text("3 of 3"));
}

TEST_F(ShiftMsg, TheStandardKeysPressTheirButtons) {
  Keys("x");
  Key(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), kHeader + "<SA><CA>x\r\n");
  const ModalWindowDriver file(Text("CMDialog1"), [](QWidget* w) { w->close(); });
  Key(Qt::Key_O, Qt::ControlModifier);
  Activate();
  Key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  Activate();
  EXPECT_EQ(file.Count(), 2);
  Key(Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(Position(), Text("0 of 0"));
}

TEST_F(ShiftMsg, TabVisitsTheControlsInTheOrderInWhichTheyAreRead) {
  Button("butNew")->setFocus();
  for (const char* name : {"butOpen", "butSave", "butSaveAs", "butSend", "butExit", "ComboColor",
                           "ComboSize", "chkBlink", "Picture1", "butNew"}) {
    Key(Qt::Key_Tab);
    EXPECT_EQ(window_.focusWidget()->objectName(), Text(name));
  }
}

TEST_F(ShiftMsg, ClosingAListReturnsTheKeyboardToTheDrawingArea) {
  for (const char* name : {"ComboColor", "ComboSize"}) {
    auto* list = Find<QComboBox>(name);
    list->setFocus();
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    EXPECT_EQ(list->currentIndex(), 1);
    EXPECT_EQ(window_.focusWidget(), Picture());
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_Escape);
    EXPECT_EQ(window_.focusWidget(), Picture());
  }
  Keys("y");
  EXPECT_EQ(Body(), "<SB><CB>y\r\n");
}

TEST_F(ShiftMsg, AWheelOverAListChoosesNothing) {
  for (const char* name : {"ComboColor", "ComboSize"}) {
    auto* list = Find<QComboBox>(name);
    TurnWheel(list);
    EXPECT_EQ(list->currentIndex(), 0);
  }
}

TEST_F(ShiftMsg, ReturnPressesNoButtonFromAnywhere) {
  const ModalWindowDriver file(Text("CMDialog1"), [](QWidget* w) { w->close(); });
  const ModalWindowDriver send(Text("frmSendShift"), [](QWidget* w) { w->close(); });
  const MessageBoxReader boxes;
  for (QWidget* widget : window_.findChildren<QWidget*>()) {
    if ((widget->focusPolicy() & Qt::TabFocus) == 0 || !widget->isVisible()) continue;
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_Return);
    EXPECT_TRUE(window_.isVisible()) << widget->objectName().toStdString();
  }
  EXPECT_EQ(file.Count() + send.Count(), 0);
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_EQ(folder_.Read(Text("NEW.SRL")), "");
}

TEST_F(ShiftMsg, NoControlIsCutAtTheSmallestSizeAndALongPathDoesNotWidenTheWindow) {
  const int least = window_.minimumSizeHint().width();
  EXPECT_LE(least, 800);
  const QString folder = folder_.Path(QString(200, QLatin1Char('d')));
  ASSERT_TRUE(QDir().mkpath(folder));
  const QString path = folder + Text("/a.srl");
  ASSERT_TRUE(QFile::copy(Write("a.srl", QByteArray(600000, 'a')), path));
  Open(path);
  EXPECT_EQ(FileName(), path);
  EXPECT_EQ(window_.minimumSizeHint().width(), least);
  window_.resize(window_.minimumSizeHint());
  QApplication::processEvents();
  for (const char* name : {"butNew", "butOpen", "butSave", "butSaveAs", "butSend", "butExit"}) {
    EXPECT_GE(Button(name)->width(), 88) << name;
  }
  for (const char* name : {"lblPosition", "chkBlink", "Picture1"}) {
    const auto* control = Find<QWidget>(name);
    EXPECT_GE(control->width(), control->sizeHint().width()) << name;
    EXPECT_TRUE(window_.rect().contains(QRect(control->mapTo(&window_, QPoint()), control->size())))
        << name;
  }
}

TEST_F(ShiftMsg, AMessageGoesFromTheKeyboardToThePanel) {
  PanelBench bench(LineKind::kSerial, {{18, 16, 96, true}});
  Press("butNew");  // in the bench's own program folder
  Keys("Road ");
  Find<QComboBox>("ComboColor")->setCurrentIndex(1);
  Keys("works");
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::Yes);
  const ModalWindowDriver send(Text("frmSendShift"), [](QWidget* dialog) {
    QTest::mouseClick(dialog->findChild<QPushButton*>(Text("butSend")), Qt::LeftButton);
    QTest::mouseClick(dialog->findChild<QPushButton*>(Text("butDone")), Qt::LeftButton);
  });
  Press("butSend");
  EXPECT_EQ(send.Count(), 1);
  EXPECT_EQ(boxes.Texts(), QStringList({Text(kQuestion), Text("Transmission finished!")}));
  EXPECT_EQ(bench.Frames(), QList<QByteArray>{"<ID12><L1><SA><CA>Road <CB>works\r\n"});
  EXPECT_FALSE(Asks());
}

}  // namespace
