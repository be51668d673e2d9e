// A large page to all panels over a line that is slower than the program, or takes nothing at all.
#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "page/frmSendMsg.h"
#include "support/longest_freeze.h"
#include "support/program_folder.h"
#include "support/raw_terminal.h"
#include "support/send_dialog.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFinished = u"Transmission finished!"_s;
const QString kFailure = u"Transmission failure!"_s;

class SlowLine : public testing::Test {
 protected:
  SlowLine() {
    path_ = folder_.Write(u"page.msg"_s,
                          "*** Brivon Message File ***\r\nRow = 12\r\nCol = 999\r\n" + RowLines());
  }

  void Configure(int baud_rate) {
    folder_.Configure(
        "[Dimension Config]\r\nID000=12x999,Tri,1.2.3.4:80\r\n"
        "[Communication]\r\nSendMode=RS232\r\nDelay Period=0\r\nBaudrate=" +
        QByteArray::number(baud_rate) +
        "\r\n[Serial Ports]\r\nCom2=" + terminal_.Device().toLocal8Bit() + "\r\n");
  }

  /// 199 characters, each of another size and colour than the one before it.
  static QByteArray RichText() {
    QByteArray text;
    for (int i = 0; i < 199; ++i) text += i % 2 == 0 ? "<SA><CA>x" : "<SB><CB>y";
    return text;
  }

  static QByteArray RowTag(int row) {
    return "<L" + QByteArray::number(row).rightJustified(2, '0') + ">";
  }

  static QByteArray RowLines() {
    QByteArray lines;
    for (int row = 1; row <= 12; ++row) lines += RowTag(row) + RichText() + "\r\n";
    return lines;
  }

  /// The page as it goes to all panels.
  static QByteArray Frames() {
    QByteArray frames;
    for (int row = 1; row <= 12; ++row) {
      frames += "<ID00>" + RowTag(row) + "<P001>" + RichText() + " \r\n";
    }
    return frames;
  }

  TemporaryProgramFolder folder_;
  RawTerminal terminal_;
  QString path_;
};

class Dialog : public SendDialog {
 public:
  explicit Dialog(const QString& file_name)
      : SendDialog(std::make_unique<frmSendMsg>(nullptr, file_name),
                   {"butBrowse", "ComboID", "txtPage", "butSend", "butDone"}) {
    Find<QComboBox>("ComboID")->setCurrentIndex(0);
  }
};

TEST_F(SlowLine, AFullOutputBufferIsNoLossTheRestWaitsUntilThereIsRoom) {
  Configure(460800);
  Dialog dialog(path_);
  terminal_.ReadAt(46080);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_EQ(terminal_.Received(), Frames());
}

TEST_F(SlowLine, UntilTheLastBytesHaveLeftTheWindowIsLockedAndLives) {
  Configure(460800);
  Dialog dialog(path_);
  bool has_looked = false;
  QTimer::singleShot(50, &dialog.window, [&] {
    has_looked = true;
    EXPECT_FALSE(dialog.Find<QPushButton>("butSend")->isEnabled());
    EXPECT_FALSE(dialog.Find<QPushButton>("butDone")->isEnabled());
    EXPECT_EQ(dialog.window.cursor().shape(), Qt::WaitCursor);
    dialog.window.close();
    EXPECT_TRUE(dialog.window.isVisible());
    // Nothing has been read so far, so that the page cannot have left.
    terminal_.ReadAt(460800);
  });
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_TRUE(has_looked);
  EXPECT_TRUE(dialog.IsReady());
  dialog.window.close();
  EXPECT_FALSE(dialog.window.isVisible());
}

TEST_F(SlowLine, ALineThatTakesNothingFailsAndTheWindowLivesAllTheTime) {
  Configure(4000000);
  Dialog dialog(path_);
  LongestFreeze freeze;
  EXPECT_EQ(dialog.Send(), QStringList{kFailure});
  EXPECT_LT(freeze.Milliseconds(), 1000);
  EXPECT_TRUE(dialog.IsReady());
  // And the same line works when somebody reads it.
  terminal_.Received();
  terminal_.ReadAt(400000);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
}

TEST_F(SlowLine, ALineThatIsLostWhileTheLastBytesLeaveFailsAtOnce) {
  Configure(300);  // at this speed the page takes twelve minutes
  Dialog dialog(path_);
  terminal_.ReadAt(30);
  bool is_unplugged = false;
  QTimer::singleShot(100, &dialog.window, [&] {
    is_unplugged = true;
    terminal_.Unplug();
  });
  EXPECT_EQ(dialog.Send(), QStringList{kFailure});
  EXPECT_TRUE(is_unplugged);
  EXPECT_TRUE(dialog.IsReady());
}

TEST_F(SlowLine, TheWholeProgramCanBeEndedWhileTheLastBytesLeave) {
  Configure(300);
  Dialog dialog(path_);
  terminal_.ReadAt(30);
  QStringList texts;
  QTimer::singleShot(0, &dialog.window, [&] {
    QTimer::singleShot(100, &dialog.window, [&] {
      EXPECT_FALSE(dialog.IsReady());
      QCoreApplication::exit(3);
    });
    texts = dialog.Send();
  });
  EXPECT_EQ(QCoreApplication::exec(), 3);
  EXPECT_FALSE(texts.contains(kFinished));
  EXPECT_TRUE(dialog.IsReady());
}

}  // namespace
