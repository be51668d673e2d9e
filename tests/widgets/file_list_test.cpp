// The list of files in the file dialogs, and the room of a message box's title.
#include <functional>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTreeView>

#include <gtest/gtest.h>

#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "support/text.h"
#include "widgets/file_dialogs.h"
#include "widgets/message_boxes.h"

using namespace Qt::StringLiterals;

namespace {

enum Column { kName, kSize, kType, kDate, kColumns };

class FileListTest : public testing::Test {
 protected:
  /// Opens the dialog and has `look` look at its list, which shows `count` files.
  void WithList(int count, const std::function<void(QTreeView&)>& look) {
    const ModalWindowDriver driver(u"CMDialog1"_s, [&](QWidget* window) {
      auto* files = window->findChild<QTreeView*>(u"treeView"_s);
      ASSERT_NE(files, nullptr);
      EXPECT_TRUE(
          QTest::qWaitFor([&] { return files->model()->rowCount(files->rootIndex()) == count; }));
      look(*files);
      qobject_cast<QFileDialog*>(window)->reject();
    });
    ShowFileDialog(&window_, u"Open"_s, u"All|*.*"_s, 1);
    EXPECT_EQ(driver.Count(), 1);
  }

  static QModelIndex Cell(const QTreeView& files, const QString& name, int column) {
    for (int row = 0; row < files.model()->rowCount(files.rootIndex()); ++row) {
      if (files.model()->index(row, kName, files.rootIndex()).data() == name) {
        return files.model()->index(row, column, files.rootIndex());
      }
    }
    return {};
  }

  TemporaryProgramFolder folder_;
  QWidget window_;
};

TEST_F(FileListTest, TheProgramsFilesAreNamedByTheirSuffixWhateverIsInThem) {
  const std::pair<QString, QString> files[] = {{u"a.msg"_s, u"Brivon page"_s},
                                               {u"B.MSG"_s, u"Brivon page"_s},
                                               {u"c.sch"_s, u"Brivon schedule"_s},
                                               {u"d.srl"_s, u"Brivon scrolling message"_s}};
  for (const auto& [name, type] : files) folder_.Write(name, "%PDF-1.4\n");
  QDir(folder_.Path(QString())).mkdir(u"e.msg"_s);
  WithList(5, [&](QTreeView& list) {
    for (const auto& [name, type] : files) {
      const auto is_named = [&list, &file = name, &shown = type] {
        return Cell(list, file, kType).data() == shown;
      };
      EXPECT_TRUE(QTest::qWaitFor(is_named)) << name.toStdString();
    }
    EXPECT_NE(Cell(list, u"e.msg"_s, kType).data(), u"Brivon page"_s);
  });
}

TEST_F(FileListTest, TheNameHasRoomBesideSizeTypeAndDate) {
  const QString name = u"A welcome to our customers.msg"_s;
  folder_.Write(name, "x");
  WithList(1, [&](QTreeView& list) {
    const auto is_named = [&] { return Cell(list, name, kType).data() == u"Brivon page"_s; };
    EXPECT_TRUE(QTest::qWaitFor(is_named));
    QApplication::processEvents();
    ASSERT_EQ(list.header()->count(), int{kColumns});
    for (int column = 0; column < kColumns; ++column) {
      EXPECT_FALSE(list.isColumnHidden(column)) << column;
      const int text =
          list.fontMetrics().horizontalAdvance(Cell(list, name, column).data().toString());
      EXPECT_GT(text, 0) << column;
      EXPECT_GE(list.columnWidth(column), text) << column;
    }
    EXPECT_GE(list.columnWidth(kName), 240);
    EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);
    const QSize screen = list.screen()->availableSize();
    EXPECT_LT(list.window()->width(), screen.width());
    EXPECT_LT(list.window()->height(), screen.height());
  });
}

TEST_F(FileListTest, AMessageBoxIsWideEnoughForItsTitle) {
  const QString title = u"A title that is longer than the text that it stands over"_s;
  int width = 0;
  const ModalWindowDriver driver(QString(), [&](QWidget* box) {
    width = box->width();
    QTest::keyClick(box, Qt::Key_Escape);
  });
  QFont bold = QApplication::font();
  bold.setBold(true);
  const int room = QFontMetrics(bold).horizontalAdvance(title) + 150;
  ShowMessage(&window_, u"No."_s, {QMessageBox::NoIcon, title, QString()});
  EXPECT_GE(width, room);
  window_.setWindowTitle(title);
  width = 0;
  AskToSave(&window_);
  EXPECT_GE(width, room);
}

}  // namespace
