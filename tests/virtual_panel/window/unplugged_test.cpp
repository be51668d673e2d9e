// What the program says of its lines while they are unplugged, in its window and on standard
// output.

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "program.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

class UnpluggedTest : public testing::Test {
 protected:
  void Start(const Options& options) {
    testing::internal::CaptureStdout();
    program_ = std::make_unique<Program>(options);
    QString error;
    const bool is_started = program_->Start(&error);
    said_ = Said();
    ASSERT_TRUE(is_started) << error.toStdString();
  }

  static QString Said() {
    return QString::fromLocal8Bit(testing::internal::GetCapturedStdout().c_str());
  }

  template <typename Kind>
  static Kind* Find(const char* name) {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      if (auto* found = window->findChild<Kind*>(QLatin1String(name))) return found;
    }
    ADD_FAILURE() << name;
    return nullptr;
  }

  // What it says when the menu's entry is chosen.
  static QString Choose(const char* name) {
    testing::internal::CaptureStdout();
    Find<QAction>(name)->trigger();
    return Said();
  }

  static QString Lines() { return Find<QLabel>("lines")->text(); }

  std::unique_ptr<Program> program_;
  QString said_;
};

TEST_F(UnpluggedTest, APortThatNobodyReachesIsNotCalledListening) {
  Options options;
  options.panels = {PanelDescription{}};
  options.tcp_addresses = {u"0"_s};
  Start(options);
  const QString listening = Lines();
  ASSERT_TRUE(listening.startsWith(u"listening on tcp 127.0.0.1:"_s));
  EXPECT_EQ(said_, listening + u"\n"_s);
  const QString unplugged = listening.mid(13) + u" unplugged"_s;
  EXPECT_EQ(Choose("fault_unplugged"), unplugged + u"\n"_s);
  EXPECT_EQ(Lines(), unplugged);
  EXPECT_EQ(Choose("fault_unplugged"), listening + u"\n"_s);
  EXPECT_EQ(Lines(), listening);
  Choose("fault_unplugged");
  EXPECT_EQ(Lines(), unplugged);
  EXPECT_EQ(Choose("fault_none"), listening + u"\n"_s);
  EXPECT_EQ(Lines(), listening);
}

TEST_F(UnpluggedTest, NoTerminalIsNamedWhileThereIsNone) {
  const QTemporaryDir folder;
  const QString link = folder.filePath(u"panel"_s);
  Options options;
  options.panels = {PanelDescription{}};
  options.tcp_addresses = {u"0"_s};
  options.pty_links = {link};
  Start(options);
  EXPECT_TRUE(Lines().contains(u"pty %1 -> /dev/pts/"_s.arg(link)));
  const QStringList said = Choose("fault_unplugged").split(QLatin1Char('\n'));
  ASSERT_EQ(said.size(), 3);
  EXPECT_TRUE(said[0].startsWith(u"tcp "_s)) << said[0].toStdString();
  EXPECT_EQ(said[1], u"pty %1 unplugged"_s.arg(link));
  EXPECT_EQ(Lines(), said[0] + u"   \u00B7   "_s + said[1]);
  Choose("fault_unplugged");
  EXPECT_TRUE(Lines().startsWith(u"listening on tcp "_s));
  EXPECT_TRUE(Lines().contains(u"pty %1 -> /dev/pts/"_s.arg(link)));
}

}  // namespace
}  // namespace VirtualPanel
