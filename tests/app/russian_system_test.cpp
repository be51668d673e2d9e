// A Russian system whose user reads its menus in English: these tests run in such an environment.
#include <QLabel>
#include <QLocale>
#include <QTest>

#include <gtest/gtest.h>

#include "base/code_page.h"
#include "row/row_editing.h"
#include "row/row_surface.h"
#include "schedule/schedule_file.h"
#include "scrolling/frmShiftMsg.h"
#include "support/accessible_events.h"

namespace {

QString Text(const char* text) { return QString::fromUtf8(text); }

TEST(RussianSystem, HasMenusInEnglish) {
  EXPECT_EQ(qgetenv("LC_ALL"), "");
  EXPECT_EQ(qgetenv("LC_CTYPE"), "ru_RU.UTF-8");
  EXPECT_EQ(QLocale::system().uiLanguages().value(0), Text("en-GB"));
}

TEST(RussianSystem, WritesTheBytesOfItsOwnCodePage) {
  EXPECT_EQ(Brivon1::CodePage::System().Number(), 1251);
  const Brivon1::TypedBytes typed = Brivon1::BytesOf(Text("Привет"));
  EXPECT_EQ(typed.bytes, "\xCF\xF0\xE8\xE2\xE5\xF2");
  EXPECT_FALSE(typed.refused);
  EXPECT_EQ(Brivon1::PathField(Text("/Ж.msg")), "/\xC6.msg" + QByteArray(94, ' '));
}

TEST(RussianSystem, ItsLettersAreTypedInAnEditor) {
  frmShiftMsg window;
  window.show();
  auto* surface = window.findChild<RowSurface*>(Text("Picture1"));
  for (const QChar letter : Text("Привет")) {
    QTest::sendKeyEvent(QTest::Click, surface, Qt::Key_unknown, letter, Qt::NoModifier);
  }
  EXPECT_EQ(AccessibleText(surface), Text("Привет"));
  EXPECT_EQ(window.findChild<QLabel*>(Text("lblPosition"))->text(), Text("6 of 6"));
}

}  // namespace
