// The list of commands: which one is sent, how the rows stand, and what is said about those that
// delete.
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTest>

#include <gtest/gtest.h>

#include "command/frmCommand.h"
#include "support/message_box_reader.h"
#include "support/panel_bench.h"
#include "support/send_dialog.h"

using namespace Qt::StringLiterals;

namespace {

enum Row { kPolling, kSetClock, kDeleteAll, kDeletePage, kRunPage, kRows };

class CommandList : public SendDialog {
 public:
  explicit CommandList(const Brivon1::PanelPorts* ports = nullptr)
      : SendDialog(std::make_unique<frmCommand>(nullptr, ports), {"ListCommand"}) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  QListWidget* List() { return Find<QListWidget>("ListCommand"); }
  QLabel* Note() { return Find<QLabel>("lblWhatItDeletes"); }
  QRect Place(int row) { return List()->visualItemRect(List()->item(row)); }

  void Select(int row) {
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, Place(row).center());
  }

  /// Puts the keyboard into the list; its frame rests on the first row.
  void TabIntoList() {
    Find<QComboBox>("ComboID")->setFocus();
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(window.focusWidget(), List());
  }
};

TEST(CommandListOverLink, ACommandOnWhichTheFocusFrameMerelyRestsIsNotSelected) {
  VirtualBench bench(LineKind::kTcp, {{1, 4, 96, true}});
  CommandList command(bench.Ports());
  command.TabIntoList();
  ASSERT_EQ(command.List()->currentRow(), kPolling);
  EXPECT_TRUE(command.Send().isEmpty());
  EXPECT_TRUE(bench.Frames().isEmpty());
  command.List()->setFocus();
  QTest::keyClick(command.List(), Qt::Key_Space);
  EXPECT_EQ(command.Send(), QStringList{u"Command is sent successfully!"_s});
  EXPECT_EQ(bench.Frames(), QList<QByteArray>{"<ID01><?>\r\n"});
}

TEST(CommandListOverLink, TheSelectedCommandIsSentWhereverTheFocusFrameRests) {
  VirtualBench bench(LineKind::kTcp, {{1, 4, 96, true}});
  CommandList command(bench.Ports());
  command.Select(kDeleteAll);
  command.List()->setCurrentRow(kPolling, QItemSelectionModel::NoUpdate);
  EXPECT_EQ(command.Send(), QStringList{u"All pages are deleted!"_s});
  EXPECT_EQ(bench.Frames(), QList<QByteArray>{"<ID01><D*>\r\n"});
}

class CommandListAlone : public testing::Test {
 protected:
  CommandListAlone() {
    folder_.Configure(
        "[Dimension Config]\r\nID000=4x96,Tri,1.2.3.4:80\r\nID001=4x96,Tri,1.2.3.4:80\r\n");
  }

  TemporaryProgramFolder folder_;
};

TEST_F(CommandListAlone, TheSelectionIsSeenWithoutTheKeyboard) {
  CommandList command;
  command.Select(kSetClock);
  QPalette palette = command.List()->palette();
  palette.setColor(QPalette::Active, QPalette::Highlight, Qt::darkBlue);
  palette.setColor(QPalette::Inactive, QPalette::Highlight, palette.color(QPalette::Base));
  command.List()->setPalette(palette);
  command.Find<QPushButton>("butSend")->setFocus();
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  const QRect place = command.Place(kSetClock);
  const QImage seen = command.List()->viewport()->grab().toImage();
  const QPoint behind_text(place.right() - 10, place.center().y());
  EXPECT_EQ(seen.pixelColor(behind_text * seen.devicePixelRatio()), QColor(Qt::darkBlue));
}

TEST_F(CommandListAlone, TheCommandsStandApartAndThoseThatDeleteAreSetOff) {
  CommandList command;
  for (int row = 0; row < kRows; ++row) {
    EXPECT_GE(command.Place(row).height(), 28) << row;
    EXPECT_TRUE(command.List()->viewport()->rect().contains(command.Place(row))) << row;
  }
  const QImage seen = command.List()->viewport()->grab().toImage();
  const auto has_line = [&](int row) {
    const QColor ground = command.List()->palette().color(QPalette::Base);
    const int x = command.Place(row).right() - 5;
    for (int y = command.Place(row).top(); y <= command.Place(row).bottom(); ++y) {
      if (seen.pixelColor(QPoint(x, y) * seen.devicePixelRatio()) != ground) return true;
    }
    return false;
  };
  for (const int row : {kPolling, kSetClock, kDeletePage}) {
    EXPECT_EQ(command.Place(row).height(), command.Place(kPolling).height()) << row;
    EXPECT_FALSE(has_line(row)) << row;
  }
  for (const int row : {kDeleteAll, kRunPage}) {
    EXPECT_GT(command.Place(row).height(), command.Place(kPolling).height() + 5) << row;
    EXPECT_TRUE(has_line(row)) << row;
  }
}

TEST_F(CommandListAlone, ALineSaysWhatACommandThatDeletesWillDo) {
  CommandList command;
  auto* panels = command.Find<QComboBox>("ComboID");
  EXPECT_FALSE(command.Note()->isVisible());
  panels->setCurrentIndex(1);
  command.TabIntoList();
  EXPECT_FALSE(command.Note()->isVisible());
  command.Select(kDeleteAll);
  EXPECT_TRUE(command.Note()->isVisible());
  EXPECT_EQ(command.Note()->text(), u"Deletes every page of ID001"_s);
  panels->setCurrentIndex(0);
  EXPECT_EQ(command.Note()->text(), u"Deletes every page of all panels"_s);
  command.Select(kDeletePage);
  EXPECT_EQ(command.Note()->text(), u"Deletes one page of all panels"_s);
  panels->setCurrentIndex(1);
  EXPECT_EQ(command.Note()->text(), u"Deletes one page of ID001"_s);
  for (const int row : {kPolling, kSetClock, kRunPage}) {
    command.Select(kDeleteAll);
    command.Select(row);
    EXPECT_FALSE(command.Note()->isVisible()) << row;
  }
}

TEST_F(CommandListAlone, NoRowMovesWhenTheLineAppears) {
  CommandList command;
  const QRect before = command.Place(kRunPage);
  const QSize window = command.window.size();
  command.Select(kDeleteAll);
  QCoreApplication::processEvents();
  EXPECT_TRUE(command.Note()->isVisible());
  EXPECT_EQ(command.Place(kRunPage), before);
  EXPECT_EQ(command.window.size(), window);
}

TEST_F(CommandListAlone, WithoutAPanelNothingIsSaidAboutWhatIsDeleted) {
  folder_.Configure("");
  CommandList command;
  command.Select(kDeleteAll);
  EXPECT_FALSE(command.Note()->isVisible());
}

}  // namespace
