// Enter in every window: the button that has the focus is the one that is pressed.
#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "command/frmCommand.h"
#include "config/frmConfig.h"
#include "page/frmDimension.h"
#include "page/frmMsgEditor.h"
#include "page/frmPage.h"
#include "page/frmSendMsg.h"
#include "schedule/frmDelay.h"
#include "schedule/frmSchedule.h"
#include "schedule/frmSendSch.h"
#include "scrolling/frmSendShift.h"
#include "scrolling/frmShiftMsg.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

struct NamedWindow {
  const char* name;
  std::function<std::unique_ptr<QWidget>()> create;
};

void PrintTo(const NamedWindow& window, std::ostream* out) { *out << window.name; }

template <typename Window, typename... Arguments>
NamedWindow Named(const char* name, Arguments... arguments) {
  return {name, [arguments...] { return std::make_unique<Window>(nullptr, arguments...); }};
}

const NamedWindow kWindows[] = {
    {"frmMain", [] { return std::make_unique<frmMain>(); }},
    Named<frmMsgEditor>("frmMsgEditor"),
    Named<frmShiftMsg>("frmShiftMsg"),
    Named<frmSchedule>("frmSchedule"),
    Named<frmConfig>("frmConfig"),
    Named<frmCommand>("frmCommand"),
    Named<frmDimension>("frmDimension"),
    Named<frmPage>("frmPage"),
    Named<frmDelay>("frmDelay"),
    Named<frmSendMsg>("frmSendMsg", QString()),
    Named<frmSendSch>("frmSendSch", QString()),
    Named<frmSendShift>("frmSendShift", QString()),
};

class EnterKey : public testing::TestWithParam<NamedWindow> {
 protected:
  EnterKey() { folder_.Configure("[Dimension Config]\r\nID001=4x96,Tri,192.168.10.1:80\r\n"); }

  TemporaryProgramFolder folder_;
};

TEST_P(EnterKey, PressesTheButtonThatHasTheFocusAndNoOther) {
  const auto window = GetParam().create();
  window->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
  QStringList pressed;
  const auto buttons = window->findChildren<QPushButton*>();
  for (QPushButton* button : buttons) {
    // What the button does otherwise is not wanted here.
    button->disconnect(SIGNAL(clicked(bool)));
    QObject::connect(button, &QPushButton::clicked,
                     [&pressed, button] { pressed.append(button->objectName()); });
  }
  int tried = 0;
  for (QPushButton* button : buttons) {
    if (!button->isEnabled() || !button->isVisible()) continue;
    ++tried;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      button->setFocus();
      ASSERT_EQ(window->focusWidget(), button);
      QTest::keyClick(button, key);
      EXPECT_EQ(pressed, QStringList{button->objectName()});
      pressed.clear();
    }
  }
  EXPECT_GT(tried, 0);
}

std::string WindowName(const testing::TestParamInfo<NamedWindow>& test) { return test.param.name; }

INSTANTIATE_TEST_SUITE_P(Windows, EnterKey, testing::ValuesIn(kWindows), WindowName);

}  // namespace
