// The scrolling message editor's window, and its message's way to a panel.
#include "scrolling/shift_msg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "support/paint_watcher.h"
#include "support/panel_bench.h"

namespace {

INSTANTIATE_TEST_SUITE_P(Scrolling, RowEditor, testing::Values(&kScrollingEditor), WindowOf);

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
  EXPECT_TRUE(Find<QTimer>("Timer1")->isActive());
  Keys("Hi");
  EXPECT_EQ(Position(), Text("2 of 2"));
  EXPECT_EQ(CursorCell(), 2);
}

TEST_F(ShiftMsg, AClickOnAFileButtonLeavesTheKeyboardInTheDrawingArea) {
  Keys("x");
  const MessageBoxReader boxes;  // answers with Cancel
  for (const char* name : {"butNew", "butOpen", "butSend", "butExit", "butSave"}) {
    Press(name);
    Activate();
    EXPECT_EQ(window_.focusWidget(), Picture()) << name;
  }
  Keys("y");
  EXPECT_EQ(Position(), Text("2 of 2"));
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

TEST_F(ShiftMsg, NothingIsShownBehindTheThirtiethCharacter) {
  Open(Write("a.srl", "<CJ>" + QByteArray(100, 'a')));
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Right}) {
    Key(key);
    QMetaObject::invokeMethod(Find<QTimer>("Timer1"), "timeout");
    const QImage image = Image();
    for (int x = 360; x < 365; ++x) EXPECT_TRUE(IsLine(image, x, Qt::black)) << x;
  }
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
