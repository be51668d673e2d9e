// A window as an operator has it before him, and a test's way to its controls.
#pragma once

#include <utility>

#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

/// Makes a window the active one, as a desktop does when another closes.
inline void ActivateWindow(QWidget* window) {
  window->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(window));
}

template <typename Window>
class ShownWindow {
 public:
  /// Makes the window with `arguments` and shows it.
  template <typename... Arguments>
  explicit ShownWindow(Arguments&&... arguments) : window(std::forward<Arguments>(arguments)...) {
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
  }

  template <typename Control>
  Control* Find(const char* name) {
    Control* control = window.template findChild<Control*>(QString::fromLatin1(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }

  void Click(const char* name) { QTest::mouseClick(Find<QPushButton>(name), Qt::LeftButton); }

  Window window;
};
