// A Vietnamese system, whose code page has many letters only in parts: these tests run in such an
// environment.
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include "base/code_page.h"
#include "row/row_surface.h"
#include "scrolling/frmShiftMsg.h"
#include "support/accessible_events.h"

namespace {

QString Text(const char* text) { return QString::fromUtf8(text); }

class VietnameseSystem : public testing::Test {
 protected:
  VietnameseSystem() { window_.show(); }
  ~VietnameseSystem() override { QGuiApplication::clipboard()->clear(); }

  RowSurface* Surface() { return window_.findChild<RowSurface*>(Text("Picture1")); }
  QString Position() { return window_.findChild<QLabel*>(Text("lblPosition"))->text(); }

  void Commit(const char* text) {
    QInputMethodEvent committed;
    committed.setCommitString(Text(text));
    QApplication::sendEvent(Surface(), &committed);
  }

  void Paste(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(Surface(), Qt::Key_V, Qt::ControlModifier);
  }

  frmShiftMsg window_;
};

TEST_F(VietnameseSystem, WorksInItsOwnCodePage) {
  EXPECT_EQ(Brivon1::CodePage::System().Number(), 1258);
}

TEST_F(VietnameseSystem, AnInputMethodsLetterStandsInThePlacesOfItsParts) {
  Commit("ế");
  EXPECT_EQ(AccessibleText(Surface()), Text("ê\u0301"));
  EXPECT_EQ(Position(), Text("2 of 2"));
  QTest::keyClick(Surface(), Qt::Key_Backspace);
  EXPECT_EQ(AccessibleText(Surface()), Text("ê"));
}

TEST_F(VietnameseSystem, AKeysLetterStandsInThePlacesOfItsParts) {
  QTest::sendKeyEvent(QTest::Click, Surface(), Qt::Key_unknown, Text("ậ"), Qt::NoModifier);
  EXPECT_EQ(AccessibleText(Surface()), Text("â\u0323"));
  EXPECT_EQ(Position(), Text("2 of 2"));
}

TEST_F(VietnameseSystem, APastedTextIsTheSameComposedAndDecomposed) {
  Paste(Text("Tiếng Việt"));
  EXPECT_EQ(AccessibleText(Surface()), Text("Tiê\u0301ng Viê\u0323t"));
  EXPECT_EQ(Position(), Text("12 of 12"));
  Paste(Text("Tiếng Việt").normalized(QString::NormalizationForm_D));
  EXPECT_EQ(AccessibleText(Surface()), Text("Tiê\u0301ng Viê\u0323tTiê\u0301ng Viê\u0323t"));
}

TEST_F(VietnameseSystem, AFullMessageTakesNoHalfOfALetter) {
  Paste(QString(999, u'x'));
  Commit("ế");
  EXPECT_EQ(Position(), Text("999 of 999"));
  Commit("é");
  EXPECT_EQ(Position(), Text("1000 of 1000 (full)"));
}

TEST_F(VietnameseSystem, OfAKeyInAFullMessageNoPartsAreCounted) {
  Paste(QString(1000, u'x'));
  const auto* said = window_.findChild<QLabel*>(Text("lblRowStatus"));
  ASSERT_NE(said, nullptr);
  for (const QString& letter : {Text("ế"), Text("ế").normalized(QString::NormalizationForm_D)}) {
    Commit("x");
    QTest::sendKeyEvent(QTest::Click, Surface(), Qt::Key_unknown, letter, Qt::NoModifier);
    EXPECT_EQ(said->text(), Text("The row is full."));
  }
}

}  // namespace
