// What every window that sends does alike before it sends: what it says of its link, and the key
// that sends from everywhere.
#include <QTest>

#include <gtest/gtest.h>

#include "sending/window_over_line.h"

using namespace Qt::StringLiterals;

namespace {

class BeforeSending : public WindowOverLineTest {
 protected:
  bool IsSerialOnly() const { return window_.lines.size() == 1; }

  void ChooseNoLink() {
    const QByteArray ini = bench_.Folder().Read(u"brivon.ini"_s);
    bench_.Folder().Configure(
        QByteArray(ini).replace("SendMode=RS232", "").replace("SendMode=TCPIP", ""));
  }

  QString PortAndDevice() const { return u"Sent over Com 2, "_s + bench_.Device(); }
};

INSTANTIATE_TEST_SUITE_P(All, BeforeSending, testing::ValuesIn(WindowsOverLines()),
                         WindowOverLineName);

TEST_P(BeforeSending, AWindowWhoseLinkIsChosenHasNoNoteUnlessItUsesOneLinkAlone) {
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Shown("lblNote"), IsSerialOnly() ? PortAndDevice() : QString());
  EXPECT_EQ(dialog.Find<QLabel>("lblNote")->isVisible(), IsSerialOnly());
}

TEST_P(BeforeSending, WithoutALinkTheWindowSaysWhereToChooseOneAndSendIsSilent) {
  ChooseNoLink();
  SendDialog dialog = Open();
  if (IsSerialOnly()) {
    EXPECT_EQ(dialog.Shown("lblNote"), PortAndDevice());
    EXPECT_EQ(dialog.Send(), Finished()) << "it needs none of the configuration";
    return;
  }
  EXPECT_EQ(dialog.Shown("lblNote"), u"No link is chosen: Config, Communication Selection"_s);
  EXPECT_TRUE(dialog.Find<QLabel>("lblNote")->isVisible());
  EXPECT_EQ(dialog.Send(), QStringList());
}

TEST_P(BeforeSending, CtrlReturnSendsFromEveryBoxAndList) {
  SendDialog dialog = Open();
  int sent = 0;
  for (QWidget* control : dialog.window.findChildren<QWidget*>()) {
    const bool is_reached = (control->focusPolicy() & Qt::TabFocus) != 0 && control->isVisible();
    if (!is_reached || qobject_cast<QPushButton*>(control) != nullptr) continue;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      dialog.window.activateWindow();  // the last message box took that
      ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog.window));
      control->setFocus();
      const MessageBoxReader boxes;
      QTest::keyClick(control, key, Qt::ControlModifier);
      EXPECT_EQ(boxes.Texts(), Finished()) << control->objectName().toStdString();
      ++sent;
    }
  }
  EXPECT_GE(sent, 4);
  EXPECT_TRUE(dialog.window.isVisible());
}

TEST_P(BeforeSending, CtrlReturnThatIsHeldSinceTheWindowOpenedSendsNothing) {
  SendDialog dialog = Open();
  const MessageBoxReader boxes;
  QTest::simulateEvent(&dialog.window, true, Qt::Key_Return, Qt::ControlModifier, u"\r"_s, true);
  EXPECT_EQ(boxes.Texts(), QStringList());
  EXPECT_EQ(bench_.Frames(), QByteArrayList());
}

TEST_P(BeforeSending, CtrlReturnWhileItSendsDoesNothing) {
  SendDialog dialog = Open();
  AtEachFrame(dialog,
              [&] { QTest::keyClick(&dialog.window, Qt::Key_Return, Qt::ControlModifier); });
  EXPECT_EQ(dialog.Send(), Finished());
  EXPECT_EQ(bench_.Frames(), window_.frames);
}

}  // namespace
