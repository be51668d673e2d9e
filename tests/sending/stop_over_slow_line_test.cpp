// Stopping while the last bytes leave over a line that is slow.
#include <QComboBox>
#include <QTimer>

#include <gtest/gtest.h>

#include "page/frmSendMsg.h"
#include "sending/window_over_line.h"
#include "support/raw_terminal.h"

using namespace Qt::StringLiterals;

namespace {

// All panels together get a page at once, and at this speed it takes minutes to leave.
TEST(StopOverASlowLine, EndsTheWaitForTheLastBytes) {
  const TemporaryProgramFolder folder;
  RawTerminal terminal;
  folder.Configure(
      "[Dimension Config]\r\nID000=12x999,Tri,1.2.3.4:80\r\n"
      "[Communication]\r\nSendMode=RS232\r\nDelay Period=0\r\nBaudrate=300\r\n"
      "[Serial Ports]\r\nCom2=" +
      terminal.Device().toLocal8Bit() + "\r\n");
  QByteArray file = "*** Brivon Message File ***\r\nRow = 12\r\nCol = 999\r\n";
  for (int row = 1; row <= 12; ++row) {
    file += "<L" + QByteArray::number(row).rightJustified(2, '0') + '>' + QByteArray(2000, 'x') +
            "\r\n";
  }
  SendDialog dialog(std::make_unique<frmSendMsg>(nullptr, folder.Write(u"page.msg"_s, file)),
                    {"butBrowse", "ComboID", "txtPage", "butSend", "butDone"});
  dialog.Find<QComboBox>("ComboID")->setCurrentIndex(0);
  terminal.ReadAt(30);
  QString progress;
  QTimer::singleShot(100, &dialog.window, [&] {
    progress = dialog.Shown("lblProgress");
    dialog.Click("butStop");
  });
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), QStringList{u"Aborted!"_s});
  EXPECT_EQ(boxes.Seen().value(0).informative,
            u"ID 0 is all panels together, and they do not answer: how much has arrived is not "
            "known."_s);
  EXPECT_TRUE(progress.startsWith(u"The last bytes are leaving, "_s)) << progress.toStdString();
  EXPECT_TRUE(dialog.IsReady());
}

}  // namespace
