// Enter at a button of a window without a default button.
#include "widgets/enter_key.h"

#include <QDialog>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

TEST(EnterKeyTest, AKeyThatIsHeldPressesOnce) {
  QDialog window;
  QPushButton button(&window);
  button.setAutoDefault(false);
  LetEnterPressButtons(&window);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  int pressed = 0;
  QObject::connect(&button, &QPushButton::clicked, &button, [&pressed] { ++pressed; });
  button.setFocus();
  for (const bool repeats : {false, true, true}) {
    QTest::simulateEvent(&button, true, Qt::Key_Return, Qt::NoModifier, QString(), repeats);
  }
  EXPECT_EQ(pressed, 1);
  EXPECT_TRUE(window.isVisible());
}

}  // namespace
