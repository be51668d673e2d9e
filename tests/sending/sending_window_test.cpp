// What every window that sends does alike: how it is locked, and what it shows and says.
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "sending/window_over_line.h"

using namespace Qt::StringLiterals;

namespace {

class SendingWindows : public WindowOverLineTest {};

INSTANTIATE_TEST_SUITE_P(All, SendingWindows, testing::ValuesIn(WindowsOverLines()),
                         WindowOverLineName);

class WindowsWithATextBox : public WindowOverLineTest {};

INSTANTIATE_TEST_SUITE_P(All, WindowsWithATextBox,
                         testing::ValuesIn(WindowsOverLines([](const WindowOverLine& pair) {
                           return pair.window->text_box != nullptr;
                         })),
                         WindowOverLineName);

class WindowsThatConnect : public WindowOverLineTest {};

INSTANTIATE_TEST_SUITE_P(All, WindowsThatConnect, testing::ValuesIn(WindowsOverLines(IsOverTcp)),
                         WindowOverLineName);

class WindowsThatGoByTheSendMode : public WindowOverLineTest {};

INSTANTIATE_TEST_SUITE_P(All, WindowsThatGoByTheSendMode,
                         testing::ValuesIn(WindowsOverLines([](const WindowOverLine& pair) {
                           return pair.window->lines.size() > 1;
                         })),
                         WindowOverLineName);

TEST_P(SendingWindows, EveryByteArrivesAndTheWindowStaysOpenForTheNextSend) {
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(bench_.Frames(), window_.frames);
  EXPECT_TRUE(dialog.window.isVisible());
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendingWindows, TheBoxesBearTheWindowsTitleAndIcons) {
  SendDialog dialog = Open();
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  bench_.Fail({.garbage = true});
  dialog.Click("butSend");
  bench_.Unplug();
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), Finished() + Failed() + NotOpened());
  for (const SeenMessageBox& box : boxes.Seen()) {
    EXPECT_EQ(box.title, window_.title);
    EXPECT_EQ(box.icon, Finished().contains(box.text) ? window_.success_icon : window_.failure_icon)
        << box.text.toStdString();
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
    EXPECT_EQ(box.parent, &dialog.window);
  }
}

TEST_P(SendingWindows, TheResultComesFromTheLanguageFile) {
  bench_.Folder().UseLanguage(kLanguage);
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), QStringList{window_.translated_finished(GetParam().line)});
  bench_.Fail({.garbage = true});
  EXPECT_EQ(dialog.Send(), window_.translated_failed(bench_.Folder()));
  bench_.Unplug();
  EXPECT_EQ(dialog.Send(), QStringList{GetParam().line == LineKind::kTcp ? u"Kein Netz!"_s
                                                                         : u"Kein Anschluss!"_s});
}

TEST_P(SendingWindows, WhileItSendsTheControlsAreLockedAndTheWindowStaysOpen) {
  SendDialog dialog = Open();
  int seen = 0;
  QStringList statuses;
  AtEachFrame(dialog, [&] {
    ++seen;
    dialog.ExpectLocked();
    if (!window_.statuses.isEmpty()) statuses.append(dialog.Shown("lblSendStatus"));
    dialog.window.close();
    EXPECT_TRUE(dialog.window.isVisible());
  });
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(seen, window_.frames.size());
  EXPECT_EQ(statuses, window_.statuses);
  EXPECT_TRUE(dialog.window.isVisible());
  ExpectAtRest(dialog);
  QTest::keyClick(&dialog.window, Qt::Key_Escape);
  EXPECT_FALSE(dialog.window.isVisible());
}

TEST_P(WindowsWithATextBox, ThePointerIsBusyOverEveryControlAndTheKeyboardComesBack) {
  SendDialog dialog = Open();
  auto* box = dialog.Find<QLineEdit>(window_.text_box);
  box->setFocus();
  ASSERT_EQ(box->cursor().shape(), Qt::IBeamCursor);
  Qt::CursorShape shape = Qt::ArrowCursor;
  AtEachFrame(dialog, [&] { shape = box->cursor().shape(); });
  const MessageBoxReader boxes;
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_EQ(boxes.Texts(), Finished());
  EXPECT_EQ(shape, Qt::WaitCursor);
  EXPECT_EQ(box->cursor().shape(), Qt::IBeamCursor);
  EXPECT_EQ(dialog.window.focusWidget(), box);
}

TEST_P(SendingWindows, ASecondPressWhileItSendsDoesNothing) {
  SendDialog dialog = Open();
  AtEachFrame(dialog, [&] {
    dialog.Click("butSend");
    if (window_.text_box != nullptr) {
      QTest::keyClick(dialog.Find<QLineEdit>(window_.text_box), Qt::Key_Return);
    }
    QTest::keyClick(&dialog.window, Qt::Key_Return);
  });
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(bench_.Frames(), window_.frames);
}

TEST_P(WindowsThatConnect, TheControlsAreLockedBeforeTheLinkIsOpened) {
  SendDialog dialog = Open();
  bool locked = false;
  QTimer::singleShot(0, &dialog.window, [&] {
    locked = !dialog.Find<QWidget>("butSend")->isEnabled() && bench_.Frames().isEmpty();
    dialog.window.close();
    EXPECT_TRUE(dialog.window.isVisible());
  });
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_TRUE(locked);
}

TEST_P(SendingWindows, TheLineIsOpenAndTheControlsAreLockedUntilTheResultIsRead) {
  SendDialog dialog = Open();
  int seen = 0;
  const ModalWindowDriver box(QString(), [&](QWidget*) {
    ++seen;
    dialog.ExpectLocked();
    EXPECT_FALSE(bench_.IsReleased());
  });
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(seen, 1);
  EXPECT_TRUE(bench_.IsReleased());
}

TEST_P(SendingWindows, TheControlsAreLockedUntilTheLinkIsClosed) {
  SendDialog dialog = Open();
  int closed = 0;
  bench_.OnClose([&] {
    ++closed;
    dialog.ExpectLocked();
  });
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(closed, 1);
  ExpectAtRest(dialog);
}

TEST_P(WindowsThatGoByTheSendMode, InNeitherSendModeNothingIsSentAndNothingIsSaid) {
  const QByteArray ini = bench_.Folder().Read(u"brivon.ini"_s);
  bench_.Folder().Configure(
      QByteArray(ini).replace("SendMode=RS232", "SendMode=rs232").replace("SendMode=TCPIP", ""));
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), QStringList());
  EXPECT_EQ(bench_.Openings(), 0);
  ExpectAtRest(dialog);
}

TEST_P(SendingWindows, APanelIsReachedAsItWasListedWhenTheWindowWasOpened) {
  SendDialog dialog = Open();
  // Its ID is now that of a panel of another size, without an address.
  QByteArray ini = bench_.Folder().Read(u"brivon.ini"_s);
  const QByteArray key = "ID" + QByteArray::number(window_.panel.id).rightJustified(3, '0') + '=';
  const qsizetype value = ini.indexOf(key) + key.size();
  ini.replace(value, ini.indexOf('\r', value) - value, "1x8,Tri");
  bench_.Folder().Configure(ini);
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(bench_.Frames(), window_.frames);
}

}  // namespace
