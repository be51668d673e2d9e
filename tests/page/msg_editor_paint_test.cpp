// What the page editor draws again: of the rows and of the panel below them no more than what has
// changed, and nothing that nobody sees.
#include <memory>
#include <vector>

#include <QCheckBox>
#include <QTimer>

#include <gtest/gtest.h>

#include "page/msg_editor.h"
#include "page/page_preview.h"
#include "panel_dots/panel_drawing.h"
#include "support/paint_watcher.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kRows = 12;
constexpr int kEditedRow = 3;

class MsgEditorPaint : public MsgEditor {
 protected:
  /// Opens a page of twelve rows of 600 characters, row 5 blinking, with the cursor in the edited
  /// row far from the edges. Its timers stand still.
  void OpenLargePage() {
    QByteArray rows;
    for (int row = 1; row <= kRows; ++row) {
      rows += "<L" + QByteArray::number(row).rightJustified(2, '0') +
              (row == 5 ? "><SE>" : "><SA>") + "<CA>" + QByteArray(599, 'x') + "\r\n";
    }
    Open(folder_.Write(u"large.msg"_s,
                       "*** Brivon Message File ***\r\nRow = 12\r\nCol = 3000\r\n" + rows));
    for (const char* timer : {"Timer1", "Timer2"}) Find<QTimer>(timer)->stop();
    for (int row = 1; row < kEditedRow; ++row) Key(Qt::Key_Down);
    Key(Qt::Key_Home);
    for (int step = 0; step < 10; ++step) Key(Qt::Key_Right);
    QCoreApplication::processEvents();
  }

  PagePreview& Preview() { return *Find<PagePreview>("picPreview"); }

  /// The rows that are drawn when `change` is done, in the editor and on the panel.
  struct Drawn {
    QList<int> rows;
    QList<int> panel_rows;

    bool operator==(const Drawn&) const = default;
  };

  template <typename Change>
  Drawn DrawnBy(const Change& change) {
    std::vector<std::unique_ptr<PaintWatcher>> rows;
    for (int row = 1; row <= kRows; ++row) rows.push_back(std::make_unique<PaintWatcher>(Row(row)));
    const PaintWatcher panel(&Preview());
    change();
    QCoreApplication::processEvents();
    Drawn drawn;
    for (int row = 1; row <= kRows; ++row) {
      if (!rows[static_cast<std::size_t>(row - 1)]->Painted().isEmpty()) drawn.rows.append(row);
      if (panel.Painted().intersects(InnerStrip(row))) drawn.panel_rows.append(row);
    }
    EXPECT_EQ(panel.Painted().isEmpty(), drawn.panel_rows.isEmpty());
    return drawn;
  }

  void Tick(const char* timer) {
    ASSERT_TRUE(QMetaObject::invokeMethod(Find<QTimer>(timer), "timeout"));
  }

 private:
  /// The dots of a row on the panel, without what lies between it and its neighbours.
  QRect InnerStrip(int row) {
    const QSizeF size = PanelDots::SizeInDots(Preview().Picture().shape) * Preview().Pitch();
    return PanelDots::RowRect(size, Preview().Picture().shape, row)
        .translated(Preview().Corner())
        .toAlignedRect()
        .adjusted(1, 2, -1, -2);
  }
};

TEST_F(MsgEditorPaint, AKeyDrawsItsRowAloneInTheEditorAndOnThePanel) {
  OpenLargePage();
  const Drawn drawn = DrawnBy([this] { Keys("y"); });
  EXPECT_EQ(drawn.rows, QList<int>{kEditedRow});
  EXPECT_EQ(drawn.panel_rows, QList<int>{kEditedRow});
}

TEST_F(MsgEditorPaint, ASelectionDrawsItsRowAloneAndNothingOnThePanel) {
  OpenLargePage();
  const Drawn drawn = DrawnBy([this] { Key(Qt::Key_Right, Qt::ShiftModifier); });
  EXPECT_EQ(drawn.rows, QList<int>{kEditedRow});
  EXPECT_EQ(drawn.panel_rows, QList<int>());
}

TEST_F(MsgEditorPaint, UndoDrawsItsRowAlone) {
  OpenLargePage();
  Keys("y");
  const Drawn drawn = DrawnBy([this] { Key(Qt::Key_Z, Qt::ControlModifier); });
  EXPECT_EQ(drawn.rows, QList<int>{kEditedRow});
  EXPECT_EQ(drawn.panel_rows, QList<int>{kEditedRow});
}

TEST_F(MsgEditorPaint, ABlinkTickDrawsTheBlinkingRowAlone) {
  OpenLargePage();
  const Drawn drawn = DrawnBy([this] { Tick("Timer2"); });
  EXPECT_EQ(drawn.rows, QList<int>{5});
  EXPECT_EQ(drawn.panel_rows, QList<int>{5});
}

TEST_F(MsgEditorPaint, WithoutAnythingThatBlinksATickDrawsTheCursorAlone) {
  New(2, 96);
  for (const char* timer : {"Timer1", "Timer2"}) Find<QTimer>(timer)->stop();
  Keys("steady");
  QCoreApplication::processEvents();
  const PaintWatcher row(Row(1));
  const PaintWatcher panel(&Preview());
  Tick("Timer2");
  QCoreApplication::processEvents();
  EXPECT_TRUE(row.Painted().isEmpty());
  Tick("Timer1");
  QCoreApplication::processEvents();
  EXPECT_EQ(row.Painted(), QRegion(6 * 12, 0, 1, 20));
  EXPECT_TRUE(panel.Painted().isEmpty());
}

TEST_F(MsgEditorPaint, NothingIsDrawnOrMadeOfAPanelThatIsHidden) {
  OpenLargePage();
  Key(Qt::Key_F9);
  ASSERT_FALSE(Preview().isVisible());
  QCoreApplication::processEvents();
  const auto picture = Preview().Picture().rows;
  const Drawn drawn = DrawnBy([this] {
    Keys("y");
    Tick("Timer2");
  });
  EXPECT_EQ(drawn.rows, QList<int>({kEditedRow, 5}));
  EXPECT_EQ(drawn.panel_rows, QList<int>());
  EXPECT_EQ(Preview().Picture().rows, picture);
}

TEST_F(MsgEditorPaint, NothingRunsButTheTwoTimersOfBlinking) {
  New(2, 96);
  Press("cmdAddTime");
  Find<QCheckBox>("chkBlink")->click();
  Keys("x");
  QStringList running;
  for (const QTimer* timer : window_.findChildren<QTimer*>()) {
    if (timer->isActive()) running.append(timer->objectName());
  }
  running.sort();
  EXPECT_EQ(running, QStringList({u"Timer1"_s, u"Timer2"_s}));
}

}  // namespace
