// The page editor's window: what it shows, and what it makes room for.
#include "page/msg_editor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QHelpEvent>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include <gtest/gtest.h>

#include "support/paint_watcher.h"
#include "widgets/caption_button.h"
#include "widgets/fitted_text.h"

namespace {

INSTANTIATE_TEST_SUITE_P(Page, RowEditor, testing::Values(&kPageEditor), WindowOf);

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

TEST_F(MsgEditor, LabelsHaveTheirBuddies) {
  EXPECT_EQ(Find<QLabel>("lblColor")->buddy(), Find<QComboBox>("ComboColor"));
  EXPECT_EQ(Find<QLabel>("lblSize")->buddy(), Find<QComboBox>("ComboSize"));
  EXPECT_EQ(Find<QLabel>("lblGraphic")->buddy(), Find<QComboBox>("ComboGraphic"));
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

TEST_F(MsgEditor, TheShiftButtonsMoveAllRowsBy10PixelsWithoutBound) {
  New(2, 80);
  for (int time = 0; time < 3; ++time) Press("Command3");
  for (int row = 1; row <= 12; ++row) EXPECT_EQ(Row(row)->x(), 35);
  for (int time = 0; time < 60; ++time) Press("Command4");
  for (int row = 1; row <= 12; ++row) EXPECT_EQ(Row(row)->x(), -565);
  New(2, 80);
  EXPECT_EQ(Row(1)->x(), 5);
}

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
  EXPECT_GE(area->visibleRegion().boundingRect().height(), 3 * 24 + 4);
  EXPECT_LE(window.height(), 500);
}

TEST_F(MsgEditor, InALowWindowTheRowsScrollAndTheOneWithTheCursorIsInSight) {
  New(12, 80);
  const int high = window_.height();
  window_.resize(window_.width(), 1);
  QCoreApplication::processEvents();
  EXPECT_LE(window_.height(), high - 8 * 24);
  const auto in_sight = [&](int row) {
    return Row(row)->visibleRegion().boundingRect() == Row(row)->rect();
  };
  EXPECT_TRUE(in_sight(1));
  EXPECT_FALSE(in_sight(12));
  for (int row = 1; row <= 12; ++row) {
    EXPECT_TRUE(in_sight(row)) << row;
    Key(Qt::Key_Down);
  }
  Row(1)->setFocus();
  EXPECT_TRUE(in_sight(1));
  Open(WriteMessage("two.msg", "<L01>\r\n<L02>\r\n"));
  EXPECT_TRUE(in_sight(1));
  EXPECT_TRUE(in_sight(2));
}

TEST_F(MsgEditor, APageOfFewRowsLeavesTheRestOfTheWindowFree) {
  New(12, 80);
  const int twelve = Row(1)->parentWidget()->height();
  New(4, 80);
  QCoreApplication::processEvents();
  EXPECT_EQ(Row(1)->parentWidget()->height(), twelve - 8 * 24);
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
