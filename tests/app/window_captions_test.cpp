// Every window in the fonts and languages that there are: nothing is cut, nothing overlaps.
#include <QLayout>
#include <QScreen>

#include "app/every_window.h"

namespace {

class WindowCaptions : public EveryFontAndLanguage {};

TEST_P(WindowCaptions, NothingIsCutAndNothingOverlaps) {
  InEveryFontAndLanguage([](QWidget& window) {
    ExpectNoControlOverAnother(window);
    ExpectEveryCaptionWhole(window);
    MakeSmall(window);
    ExpectNoControlOverAnother(window);
    ExpectEveryCaptionWhole(window);
  });
}

TEST_P(WindowCaptions, TheButtonsOfARowHaveOneSizeOfLetters) {
  InEveryFontAndLanguage([](QWidget& window) {
    const auto buttons = window.findChildren<CaptionButton*>();
    ASSERT_FALSE(buttons.isEmpty());
    for (const CaptionButton* button : buttons) {
      for (const CaptionButton* other : buttons) {
        if (other->parent() != button->parent() || other->y() != button->y()) continue;
        EXPECT_EQ(FontOf(*other).pointSizeF(), FontOf(*button).pointSizeF())
            << other->objectName().toStdString() << button->objectName().toStdString();
      }
    }
  });
}

class TaskWindowCaptions : public WindowCaptions {};

TEST_P(TaskWindowCaptions, EveryButtonIsWrittenInTheFontOfItsWindow) {
  InEveryFontAndLanguage([](QWidget& window) {
    for (const CaptionButton* button : window.findChildren<CaptionButton*>()) {
      EXPECT_EQ(button->Fit().scale, 1) << button->objectName().toStdString();
      EXPECT_EQ(button->font().pointSizeF(), window.font().pointSizeF());
    }
  });
}

TEST_P(TaskWindowCaptions, TheSmallestSizeIsWhatTheLayoutNeedsAndIsNoLargerThanTheScreen) {
  InEveryFontAndLanguage([](QWidget& window) {
    MakeSmall(window);
    const QLayout& layout = *window.layout();
    EXPECT_EQ(window.width(), layout.totalMinimumSize().width());
    EXPECT_EQ(window.height(), layout.totalMinimumHeightForWidth(window.width()));
    const QSize screen = window.screen()->availableSize();
    EXPECT_LE(window.width(), screen.width());
    EXPECT_LE(window.height(), screen.height());
  });
}

INSTANTIATE_TEST_SUITE_P(Launcher, WindowCaptions, testing::Values(kLauncher), WindowName);
INSTANTIATE_TEST_SUITE_P(Tasks, WindowCaptions, testing::ValuesIn(kTaskWindows), WindowName);
INSTANTIATE_TEST_SUITE_P(Tasks, TaskWindowCaptions, testing::ValuesIn(kTaskWindows), WindowName);

}  // namespace
