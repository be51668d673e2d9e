// A schedule that is played in its editor.
#include <QMouseEvent>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include "engine/panel_engine.h"
#include "page/message_transmission.h"
#include "schedule/schedule_preview_window.h"
#include "store/configuration_store.h"
#include "window/panel_view.h"

using namespace Qt::StringLiterals;

namespace {

class SchedulePlayingTest : public SchedulePreviewWindow {
 protected:
  std::string Caption() { return Button("butPlay")->text().toStdString(); }

  /// Whether the row at `position` looks like the selected one.
  bool LooksSelected(int position) {
    const QRect row = Table()->visualRect(At(position - 1, 1));
    const QImage image = Table()->viewport()->grab(row).toImage();
    // Left of the row's bottom edge there is no letter.
    const QColor ground = image.pixelColor(image.width() - 4, image.height() / 2);
    return ground == Table()->palette().color(QPalette::Highlight);
  }

  /// What a panel's widget draws, without the ground of its window.
  static QImage Drawn(QWidget* widget) {
    QImage image(widget->size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    widget->render(&image, {}, {}, QWidget::RenderFlags());
    return image;
  }

  void ExpectStopped() {
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(Caption(), "Play");
    EXPECT_FALSE(Timer("step_timer_")->isActive());
  }

  void ExpectUntouched() {
    EXPECT_FALSE(Window().IsModified());
    EXPECT_EQ(Table()->SelectedPosition(), 2);
    EXPECT_EQ(Rows(),
              Lines({"1|1.msg|5|Appear", "2|2.msg|2|Wipe Right", "3|3.msg|1|Fall", "End|||"}));
    EXPECT_TRUE(Window().isVisible());
  }
};

TEST_F(SchedulePlayingTest, TheStepsFollowEachOtherFromTheSelectedOneOnInALoop) {
  OpenThreePages();
  Click(2);
  Play();
  EXPECT_EQ(Caption(), "Stop");
  EXPECT_EQ(Row(), Text("2"));
  EXPECT_EQ(Timer("step_timer_")->interval(), 2000);
  Pass(1999);
  EXPECT_EQ(Row(), Text("2"));
  Pass(1);
  EXPECT_EQ(Row(), Text("3"));
  EXPECT_EQ(Timer("step_timer_")->interval(), 1000);
  Pass(1000);
  EXPECT_EQ(Row(), Text("1"));
  EXPECT_EQ(Name(Picture()), "Step 1: 1.msg");
  EXPECT_EQ(Timer("step_timer_")->interval(), 5000);
  Pass(5000);
  EXPECT_EQ(Row(), Text("2"));
  ExpectUntouched();
  Press("butPlay");
  ExpectStopped();
  ExpectUntouched();
  EXPECT_EQ(Row(), Text("2"));
}

TEST_F(SchedulePlayingTest, EachPageEntersByItsEffectTheFirstOneADarkPanel) {
  OpenThreePages();
  Click(2);
  Play();
  const auto& picture = Picture()->Picture();
  const auto dots = [&] { return PanelDots::DotsOf(picture, now_.toMSecsSinceEpoch()); };
  EXPECT_EQ(dots(), PanelDots::DotMatrix(80, 16)) << "Wipe Right begins";
  EXPECT_TRUE(Timer("entrance_timer_")->isActive());
  Pass(800);
  PanelDots::PanelPicture whole = picture;
  whole.entrance.reset();
  const PanelDots::DotMatrix two = PanelDots::DotsOf(whole, 0);
  EXPECT_EQ(dots(), two);
  Pass(1200);
  EXPECT_EQ(dots(), two) << "the page before, as the next one begins to enter";
  Pass(1000);
  EXPECT_FALSE(picture.entrance) << "Appear";
}

TEST_F(SchedulePlayingTest, ThePlayingStepLooksSelectedAndTheSelectionStays) {
  OpenThreePages();
  Click(2);
  Play();
  EXPECT_TRUE(LooksSelected(2));
  Pass(2000);
  EXPECT_FALSE(LooksSelected(2));
  EXPECT_TRUE(LooksSelected(3));
  EXPECT_EQ(Table()->SelectedPosition(), 2);
  Press("butPlay");
  EXPECT_TRUE(LooksSelected(2));
  EXPECT_FALSE(LooksSelected(3));
}

TEST_F(SchedulePlayingTest, AnyKeyStopsItAndDoesNothingElse) {
  OpenThreePages();
  Click(2);
  for (const QKeyCombination key :
       {QKeyCombination(Qt::Key_Escape), QKeyCombination(Qt::Key_Return),
        QKeyCombination(Qt::Key_Space), QKeyCombination(Qt::Key_Delete),
        QKeyCombination(Qt::Key_Insert), QKeyCombination(Qt::Key_F2), QKeyCombination(Qt::Key_Down),
        QKeyCombination(Qt::Key_5), QKeyCombination(Qt::CTRL, Qt::Key_N),
        QKeyCombination(Qt::CTRL, Qt::Key_O), QKeyCombination(Qt::CTRL, Qt::Key_S),
        QKeyCombination(Qt::ALT, Qt::Key_A)}) {
    for (const char* focus : {"GridSeqTable", "txtHour", "butDelete", "butPlay"}) {
      SCOPED_TRACE(QKeySequence(key).toString().toStdString() + " in " + focus);
      Find<QWidget>(focus)->setFocus();
      Play();
      const MessageBoxReader boxes;
      const FileChooser files{QString()};
      const ModalWindowDriver dialogs({}, [](QWidget* dialog) { dialog->close(); });
      const QByteArray saved = folder_.Read(Text("a.sch"));
      QTest::keyClick(Find<QWidget>(focus), key.key(), key.keyboardModifiers());
      ExpectStopped();
      ExpectUntouched();
      EXPECT_EQ(files.Count() + dialogs.Count(), 0);
      EXPECT_TRUE(boxes.Seen().isEmpty());
      EXPECT_EQ(folder_.Read(Text("a.sch")), saved);
    }
  }
  Find<QWidget>("GridSeqTable")->setFocus();
  Key(Qt::Key_Down);
  EXPECT_EQ(Table()->SelectedPosition(), 3) << "the next key is the table's again";
}

TEST_F(SchedulePlayingTest, AKeyThatIsHeldStopsItAndDoesNothingElse) {
  OpenThreePages();
  Click(2);
  Play();
  for (const bool repeats : {false, true, true}) {
    QKeyEvent shortcut(QEvent::ShortcutOverride, Qt::Key_Escape, {}, {}, repeats);
    QCoreApplication::sendEvent(&Window(), &shortcut);
    EXPECT_TRUE(shortcut.isAccepted());
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, {}, {}, repeats);
    QCoreApplication::sendEvent(&Window(), &press);
    ExpectStopped();
    ExpectUntouched();
  }
  QTest::keyRelease(&Window(), Qt::Key_Escape);
  QTest::keyClick(&Window(), Qt::Key_Escape);
  EXPECT_FALSE(Window().isVisible()) << "pressed anew";
}

TEST_F(SchedulePlayingTest, BesideAKeyThatIsHeldAnotherOneIsTheTablesAgain) {
  OpenThreePages();
  Click(1);
  Play();
  QTest::simulateEvent(Table(), true, Qt::Key_F3, Qt::NoModifier, QString(), false);
  ExpectStopped();
  QTest::simulateEvent(Table(), true, Qt::Key_Down, Qt::NoModifier, QString(), true);
  EXPECT_EQ(Table()->SelectedPosition(), 2);
}

TEST_F(SchedulePlayingTest, AnyClickStopsItAndDoesNothingElse) {
  OpenThreePages();
  Click(2);
  for (const char* clicked : {"butDelete", "butClear", "butNew", "butExit", "butPlay", "comboWeek",
                              "GridSeqTable", "picPreview"}) {
    SCOPED_TRACE(clicked);
    Play();
    const FileChooser files{QString()};
    const ModalWindowDriver dialogs({}, [](QWidget* dialog) { dialog->close(); });
    auto* target = Find<QWidget>(clicked);
    QTest::mouseClick(target == Table() ? Table()->viewport() : target, Qt::LeftButton);
    ExpectStopped();
    ExpectUntouched();
    EXPECT_EQ(files.Count() + dialogs.Count(), 0);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  }
  Click(3);
  EXPECT_EQ(Table()->SelectedPosition(), 3) << "the next click is the table's again";
}

TEST_F(SchedulePlayingTest, ADoubleClickStopsItAndDoesNothingElse) {
  OpenThreePages();
  Click(2);
  Play();
  const ModalWindowDriver dialogs({}, [](QWidget* dialog) { dialog->close(); });
  QTest::mouseDClick(Table()->viewport(), Qt::LeftButton, {}, Cell(2, 2));
  ExpectStopped();
  ExpectUntouched();
  EXPECT_EQ(dialogs.Count(), 0);
}

TEST_F(SchedulePlayingTest, TheSecondHalfOfADoubleClickDoesNothingEither) {
  OpenThreePages();
  Click(2);
  Play();
  const ModalWindowDriver dialogs({}, [](QWidget* dialog) { dialog->close(); });
  QWidget* table = Table()->viewport();
  const QPoint at = Cell(2, 2);
  QTest::mouseClick(table, Qt::LeftButton, {}, at);
  ExpectStopped();
  QMouseEvent second(QEvent::MouseButtonDblClick, at, table->mapToGlobal(at), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(table, &second);
  QTest::mouseRelease(table, Qt::LeftButton, {}, at);
  ExpectUntouched();
  EXPECT_EQ(dialogs.Count(), 0);
}

TEST_F(SchedulePlayingTest, ItEndsWithWhatItPlays) {
  OpenThreePages();
  Play();
  Button("butDelete")->click();  // as a screen reader presses it
  ExpectStopped();
  EXPECT_EQ(Order(), Text("23"));
  Press("butSave");
  Play();
  Window().close();
  ExpectStopped();
  EXPECT_FALSE(Window().isVisible());
}

TEST_F(SchedulePlayingTest, AScreenReaderSelectsAnotherStepMeanwhileAndPressesTheButtonToStop) {
  OpenThreePages();
  Play();
  Table()->selectRow(2);
  EXPECT_TRUE(IsPlaying());
  EXPECT_EQ(Name(Picture()), "Step 1: 1.msg");
  Button("butPlay")->click();
  ExpectStopped();
  EXPECT_EQ(Name(Picture()), "Step 3: 3.msg");
  EXPECT_EQ(Row(), Text("3"));
}

TEST_F(SchedulePlayingTest, ATickAheadOfItsTimeChangesNothing) {
  OpenThreePages();
  Play();
  now_ = now_.addMSecs(4999);
  QMetaObject::invokeMethod(Timer("step_timer_"), "timeout", Qt::DirectConnection);
  EXPECT_EQ(Table()->PlayingPosition(), 1);
  EXPECT_EQ(Timer("step_timer_")->interval(), 1);
}

TEST_F(SchedulePlayingTest, AStepThatIsMetAgainAWholeLoopLaterEntersAnew) {
  OpenThreePages();
  Click(2);
  Play();
  const auto began = [this] {
    const auto& entrance = Picture()->Picture().entrance;
    return entrance ? entrance->began_ms : 0;
  };
  const qint64 first = began();
  now_ = now_.addMSecs(8000);  // the computer has slept
  QMetaObject::invokeMethod(Timer("step_timer_"), "timeout", Qt::DirectConnection);
  EXPECT_EQ(Table()->PlayingPosition(), 2);
  EXPECT_EQ(began(), first + 8000);
}

TEST_F(SchedulePlayingTest, ItEndsWhereThePreviewIsHidden) {
  OpenThreePages();
  Play();
  Find<SchedulePane>("panePreview")->hide();
  ExpectStopped();
}

TEST_F(SchedulePlayingTest, AStepWithoutAPageIsANoteForItsTime) {
  Page("1.msg", "<SA><CB>1");
  OpenSteps({{"1.msg", 1, "Flip"}, {"gone.msg", 3, "Flip"}});
  ASSERT_TRUE(WaitUntil([this] { return Row() == Text("1"); }));
  Click(2);
  ASSERT_TRUE(WaitUntil([this] { return Note()->text() == Text("File not found"); }));
  Click(1);
  Play();
  EXPECT_EQ(Note()->text(), QString());
  Pass(1000);
  EXPECT_EQ(Note()->text(), Text("File not found"));
  Pass(3000);
  EXPECT_EQ(Note()->text(), QString());
  EXPECT_EQ(Row(), Text("1"));
}

TEST_F(SchedulePlayingTest, AFileThatIsChangedMeanwhileIsPartOfThePageThatEnters) {
  OpenThreePages();
  Click(2);
  Play();
  Pass(400);
  Page("2.msg", "<SA><CB>another");
  Table()->LookForFiles();
  ASSERT_TRUE(WaitUntil([this] { return Row() == Text("another"); }));
  EXPECT_TRUE(Picture()->Picture().entrance);
  EXPECT_TRUE(IsPlaying());
}

TEST_F(SchedulePlayingTest, WithEndSelectedItBeginsWithTheFirstStep) {
  OpenThreePages();
  Click(4);
  Play();
  EXPECT_EQ(Table()->PlayingPosition(), 1);
  Press("butPlay");
  EXPECT_EQ(Table()->SelectedPosition(), 4);
}

TEST_F(SchedulePlayingTest, EveryPictureIsThatOfAVirtualPanelThatWasSentTheSchedule) {
  Page("1.msg", "<SA><CB>Left <CD>lane");
  Page("2.msg", "<SE><CG>closed <SB><CP>~A~B");
  Page("3.msg", "<SD><CJ>HH:MM<CA> DD MMM YYYY");
  OpenSteps({{"1.msg", 1, "Appear"},
             {"2.msg", 2, "Flip"},
             {"3.msg", 1, "Open"},
             {"1.msg", 2, "Wipe Right"},
             {"2.msg", 1, "Wipe Left"},
             {"3.msg", 0, "Fall"},
             {"2.msg", 1, "Slide"},
             {"2.msg", 1, "Shift"}});
  for (const int position : {2, 3, 1}) {
    Click(position);
    ASSERT_TRUE(WaitUntil([this] { return Note()->text().isEmpty(); })) << "all are read";
  }
  VirtualPanel::PanelEngine engine({{7, 2, 80, true}}, [this] { return now_; });
  VirtualPanel::PanelView panel(&engine, 7);
  panel.resize(Picture()->size());
  for (const char* page : {"1", "2", "3"}) {
    const auto frames = Brivon1::MessageFrames(folder_.Path(Text(page) + Text(".msg")), 7,
                                               QByteArray("00") + page, {2, 80}, Brivon1::kTri);
    ASSERT_TRUE(frames);
    for (const QByteArray& frame : *frames) engine.Receive(frame);
  }
  Play();
  engine.Receive("<ID07><TA>*****00101A,00202B,00301C,00102D,00201E,00300F,00201G,00201H\r\n");
  int steps = 0;
  for (int ms = 0; ms < 21'000; ms += 100) {
    if (const auto playing = engine.PlayingAt(7, now_); playing && ms % 1000 == 0) {
      ASSERT_EQ(Table()->PlayingPosition(), playing->entry) << ms;
      ++steps;
    }
    panel.Refresh(now_);
    ASSERT_EQ(Drawn(Picture()), Drawn(&panel)) << ms;
    Pass(100);
  }
  EXPECT_EQ(steps, 21);
}

}  // namespace
