// Every window on a low screen: it fits, and it cannot be drawn so small that a control is cut.
#include <QLayout>
#include <QScreen>

#include "app/every_window.h"
#include "page/dialog_results.h"
#include "support/message_box_reader.h"
#include "support/shown_window.h"

using namespace Qt::StringLiterals;

namespace {

// What is left of the screen within a window's frame.
constexpr QSize kRoom(894, 472);

class LowScreen : public EveryFontAndLanguage {
 protected:
  static void SetUpTestSuite() {
    ASSERT_EQ(QApplication::primaryScreen()->size(), QSize(910, 512));
  }
};

TEST_P(LowScreen, TheWindowFitsAndNothingIsCutAtAnySize) {
  InEveryFontAndLanguage([](QWidget& window) {
    EXPECT_LE(window.width(), kRoom.width());
    EXPECT_LE(window.height(), kRoom.height());
    for (const QSize size : {window.size(), QSize(1, 1), QSize(1, kRoom.height()),
                             QSize(kRoom.width(), 1), QSize(1, 1)}) {
      window.resize(size);
      QApplication::processEvents();
      ExpectNoControlOverAnother(window);
      ExpectEveryCaptionWhole(window);
    }
  });
}

class LowScreenEditor : public LowScreen {
 protected:
  static void BeginPage(QWidget& editor, qint16 rows, qint16 columns) {
    const ModalWindowDriver dimension(u"frmDimension"_s, [=](QWidget* dialog) {
      static_cast<QDialog*>(dialog)->done(0);
      Brivon1::DialogAccepted = true;
      Brivon1::SelectedRows = rows;
      Brivon1::SelectedCols = columns;
    });
    editor.findChild<QPushButton*>(u"butNew"_s)->click();
    QApplication::processEvents();
  }

  static QRect InSight(const QWidget& row) { return row.visibleRegion().boundingRect(); }
};

TEST_P(LowScreenEditor, EveryRowOfAPageCanBeTypedIn) {
  InEveryFontAndLanguage([](QWidget& editor) {
    for (const qint16 columns : {qint16{96}, qint16{3000}}) {
      for (const qint16 rows : {qint16{1}, qint16{4}, qint16{12}}) {
        BeginPage(editor, rows, columns);
        ActivateWindow(&editor);
        MakeSmall(editor);
        EXPECT_LE(editor.height(), kRoom.height());
        ExpectNoControlOverAnother(editor);
        ExpectEveryCaptionWhole(editor);
        for (int number = 1; number <= rows; ++number) {
          auto* row = editor.findChild<QWidget*>(u"Picture1(%1)"_s.arg(number));
          row->setFocus();
          EXPECT_EQ(InSight(*row).height(), row->height()) << number << " of " << rows;
        }
      }
    }
  });
}

INSTANTIATE_TEST_SUITE_P(Launcher, LowScreen, testing::Values(kLauncher), WindowName);
INSTANTIATE_TEST_SUITE_P(Tasks, LowScreen, testing::ValuesIn(kTaskWindows), WindowName);
INSTANTIATE_TEST_SUITE_P(Page, LowScreenEditor, testing::Values(kTaskWindows[0]), WindowName);

}  // namespace
