// The dimension dialog.
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QTest>

#include <gtest/gtest.h>

#include "page/frmDimension.h"
#include "store/configuration_store.h"
#include "support/message_box_reader.h"
#include "support/small_dialog.h"

namespace {

QString Text(const char* text) { return QString::fromUtf8(text); }

class DimensionDialogTest : public SmallDialogTest {
 protected:
  void Panels(const QByteArray& panels) {
    folder_.Write(Text("brivon.ini"), "[Dimension Config]\r\n" + panels);
  }

  static QListWidget* List(const QWidget& window) { return Find<QListWidget>(window, "List1"); }
};

TEST_F(DimensionDialogTest, TwoPanelsOfTheSameSizeGiveOneEntryAndAPanelWith0RowsIsNotOffered) {
  Panels("ID001=4x96,Tri\r\nID002=12x192,Mono\r\nID003=4x96,Mono\r\nID004=0x96,Mono\r\n");
  const frmDimension window(nullptr);
  EXPECT_EQ(Entries(List(window)), QStringList({Text(" 4x 96"), Text(" 12x 192")}));
}

TEST_F(DimensionDialogTest, WithNoPanelConfiguredItCannotBeConfirmedOnlyCancelled) {
  MessageBoxReader reader;
  frmDimension window(nullptr);
  ASSERT_EQ(reader.Seen().size(), 1);
  EXPECT_EQ(reader.Seen()[0].text, Text("System haven't config. yet!"));
  EXPECT_EQ(reader.Seen()[0].title, Text("New"));
  EXPECT_EQ(reader.Seen()[0].icon, QMessageBox::NoIcon);
  EXPECT_EQ(reader.Seen()[0].parent, &window);

  window.show();
  Brivon1::DialogAccepted = true;
  EXPECT_FALSE(Button(window, "butOK")->isEnabled());
  EXPECT_EQ(List(window)->count(), 0);
  QTest::keyClick(List(window), Qt::Key_Return);
  Click(window, "butOK");
  window.accept();
  EXPECT_TRUE(window.isVisible());
  Click(window, "butCancel");
  EXPECT_FALSE(window.isVisible());
  EXPECT_FALSE(Brivon1::DialogAccepted);
}

TEST_F(DimensionDialogTest, TheMessageStandsOverTheWindowThatAsked) {
  MessageBoxReader reader;
  QWidget editor;
  const frmDimension window(&editor);
  ASSERT_EQ(reader.Seen().size(), 1);
  EXPECT_EQ(reader.Seen()[0].parent, &editor);
}

TEST_F(DimensionDialogTest, ItReloadsTheConfiguration) {
  Panels("ID001=4x96,Tri\r\n");
  Brivon1::LoadConfiguration();
  Panels("ID001=8x128,Tri\r\n");
  const frmDimension window(nullptr);
  EXPECT_EQ(Entries(List(window)), QStringList(Text(" 8x 128")));
  EXPECT_EQ(Brivon1::Store().panels[1].rows, 8);
}

TEST_F(DimensionDialogTest, ItShowsItsCaptionsAndSelectsTheFirstEntry) {
  Panels("ID001=4x96,Tri\r\nID002=12x192,Mono\r\n");
  const frmDimension window(nullptr);
  EXPECT_EQ(window.windowTitle(), Text("New"));
  EXPECT_EQ(Find<QLabel>(window, "lblDimension")->text(), Text("Set Dimension"));
  EXPECT_EQ(Find<QGroupBox>(window, "FrameDimension")->title(), Text("Available Dimension"));
  EXPECT_EQ(Button(window, "butOK")->text(), Text("OK"));
  EXPECT_EQ(Button(window, "butCancel")->text(), Text("Cancel"));
  ASSERT_EQ(List(window)->selectedItems().size(), 1);
  EXPECT_EQ(List(window)->selectedItems().first()->text(), Text(" 4x 96"));
}

TEST_F(DimensionDialogTest, OkReturnsTheSelectedSize) {
  Panels("ID001=4x96,Tri\r\nID002=12x192,Mono\r\n");
  frmDimension window(nullptr);
  window.show();
  QTest::keyClick(List(window), Qt::Key_Down);
  Click(window, "butOK");
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(Brivon1::DialogAccepted);
  EXPECT_EQ(Brivon1::SelectedRows, 12);
  EXPECT_EQ(Brivon1::SelectedCols, 192);
}

TEST_F(DimensionDialogTest, EnterInTheListIsOk) {
  Panels("ID001=4x96,Tri\r\n");
  frmDimension window(nullptr);
  window.show();
  QTest::keyClick(List(window), Qt::Key_Return);
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(Brivon1::DialogAccepted);
  EXPECT_EQ(Brivon1::SelectedRows, 4);
  EXPECT_EQ(Brivon1::SelectedCols, 96);
}

TEST_F(DimensionDialogTest, ADoubleClickOnASizeIsOk) {
  Panels("ID001=4x96,Tri\r\nID002=12x192,Mono\r\n");
  frmDimension window(nullptr);
  window.show();
  QListWidget* list = List(window);
  const QPoint second = list->visualItemRect(list->item(1)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second);
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(Brivon1::DialogAccepted);
  EXPECT_EQ(Brivon1::SelectedRows, 12);
}

TEST_F(DimensionDialogTest, CancelEscapeAndTheCloseBoxLeaveDialogAcceptedFalse) {
  Panels("ID001=4x96,Tri\r\n");
  const std::function<void(frmDimension&)> ways[] = {
      [](frmDimension& window) { Click(window, "butCancel"); },
      [](frmDimension& window) { QTest::keyClick(List(window), Qt::Key_Escape); },
      [](frmDimension& window) { window.close(); }};
  for (const auto& leave : ways) {
    Brivon1::DialogAccepted = true;
    frmDimension window(nullptr);
    window.show();
    leave(window);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(Brivon1::DialogAccepted);
    EXPECT_EQ(Brivon1::SelectedRows, 0);
  }
}

TEST_F(DimensionDialogTest, ASizeReadsTheSameInEveryLanguage) {
  Panels("ID001=4x96,Tri\r\n");
  folder_.UseLanguage("[frmDimension]\r\nfrmDimension.Caption=Neu\r\n");
  const frmDimension window(nullptr);
  EXPECT_EQ(window.windowTitle(), Text("Neu"));
  EXPECT_EQ(Entries(List(window)), QStringList(Text(" 4x 96")));
}

TEST_F(DimensionDialogTest, WhoAsksIsToldTheChosenSizeAndNothingWhereItIsCancelled) {
  Panels("ID001=4x96,Tri\r\nID002=12x192,Mono\r\n");
  const auto ask = [](const char* button) {
    const ModalWindowDriver driver(Text("frmDimension"), [button](QWidget* window) {
      List(*window)->setCurrentRow(1);
      Click(*window, button);
    });
    return frmDimension::Ask(nullptr);
  };
  EXPECT_EQ(ask("butCancel"), std::nullopt);
  EXPECT_EQ(ask("butOK"), (Brivon1::Dimension{12, 192}));
}

}  // namespace
