// The menu "Faults", with the other end of the line watched.

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTcpSocket>
#include <QTest>

#include "lines/panel_lines.h"
#include "window_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

class FaultMenuTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    QString error;
    ASSERT_TRUE(lines_.OpenTcp(u"0"_s, &error)) << error.toStdString();
    QObject::connect(&window_, &PanelWindow::Plugged, &lines_, &PanelLines::SetPlugged);
    port_ = lines_.Descriptions().first().section(QLatin1Char(':'), -1).toUShort();
    Connect();
  }

  void Connect() {
    socket_.connectToHost(u"127.0.0.1"_s, port_);
    ASSERT_TRUE(WaitUntil([&] { return socket_.state() == QAbstractSocket::ConnectedState; }));
  }

  QAction* Fault(const char* name) {
    return Find<QAction>((QByteArray("fault_") + name).constData());
  }

  // Opens the menu and clicks the entry.
  void Click(const char* name) {
    auto* menu = Find<QMenu>("faults");
    menu->popup(window_.mapToGlobal(QPoint(10, 10)));
    ASSERT_TRUE(WaitUntil([&] { return menu->isVisible(); }));
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(Fault(name)).center());
    EXPECT_FALSE(menu->isVisible());
  }

  // What the panel answers to a poll, as far as it has come when `size` bytes are there.
  QByteArray Poll(qsizetype size) {
    const qint64 count = engine_.FrameCount();
    socket_.write("<ID1A><?>\r\n");
    QByteArray answer;
    EXPECT_TRUE(WaitUntil([&] {
      answer += socket_.readAll();
      return engine_.FrameCount() > count && answer.size() >= size;
    }));
    return answer;
  }

  QString StatusLine() {
    const auto* label = Find<QLabel>("fault_names");
    return label->isVisible() ? label->text() : QString();
  }

  QStringList Checked() {
    QStringList names;
    for (const QAction* action : Find<QMenu>("faults")->actions()) {
      if (action->isChecked()) names.append(action->objectName().mid(6));
    }
    return names;
  }

  PanelLines lines_{&engine_};
  QTcpSocket socket_;
  quint16 port_ = 0;
};

TEST_F(FaultMenuTest, AFaultIsChosenByTheMouseAndSeenAtTheOtherEnd) {
  EXPECT_EQ(Checked(), QStringList{u"none"_s});
  EXPECT_EQ(StatusLine(), QString());
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
  Click("lower-case");
  EXPECT_EQ(Poll(8), "<ID1a>\r\n");
  EXPECT_EQ(StatusLine(), u"Fault: lower-case"_s);
  Click("stray-byte");
  EXPECT_EQ(Poll(9), "\xFF<ID1a>\r\n");
  EXPECT_EQ(StatusLine(), u"Fault: lower-case, stray-byte"_s);
  EXPECT_EQ(Checked(), (QStringList{u"lower-case"_s, u"stray-byte"_s}));
  Click("lower-case");
  EXPECT_EQ(Poll(9), "\xFF<ID1A>\r\n");
  Click("none");
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
  EXPECT_EQ(Checked(), QStringList{u"none"_s});
  EXPECT_EQ(StatusLine(), QString());
}

TEST_F(FaultMenuTest, AFaultIsChosenByTheKeyboard) {
  auto* menu = Find<QMenu>("faults");
  const auto choose = [&](Qt::Key key) {
    window_.activateWindow();
    ASSERT_TRUE(WaitUntil([&] { return QApplication::activeWindow() == &window_; }));
    QTest::keyClick(&window_, Qt::Key_F, Qt::AltModifier);
    ASSERT_TRUE(WaitUntil([&] { return menu->isVisible(); }));
    QTest::keyClick(menu, key);
    EXPECT_FALSE(menu->isVisible());
  };
  choose(Qt::Key_G);
  const QByteArray answer = Poll(8);
  EXPECT_EQ(answer.size(), 8);
  EXPECT_NE(answer, "<ID1A>\r\n");
  EXPECT_EQ(StatusLine(), u"Fault: garbage"_s);
  choose(Qt::Key_N);
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
}

TEST_F(FaultMenuTest, SilenceIsSeenAtTheOtherEnd) {
  Click("silent");
  Poll(0);
  Click("silent");
  // Nothing had been answered before.
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
}

TEST_F(FaultMenuTest, TheLineIsCutAfterTheNextFrame) {
  Click("close-after:1");
  socket_.write("<ID1A><?>\r\n");
  EXPECT_TRUE(WaitUntil([&] { return socket_.state() == QAbstractSocket::UnconnectedState; }));
  EXPECT_EQ(socket_.readAll(), "<ID1A>\r\n");
  Connect();
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
}

TEST_F(FaultMenuTest, UnpluggedNobodyReachesThePanelsUntilTheyArePluggedInAgain) {
  Click("unplugged");
  EXPECT_EQ(StatusLine(), u"Fault: unplugged"_s);
  EXPECT_EQ(Checked(), QStringList{u"unplugged"_s});
  EXPECT_TRUE(WaitUntil([&] { return socket_.state() == QAbstractSocket::UnconnectedState; }));
  socket_.connectToHost(u"127.0.0.1"_s, port_);
  EXPECT_TRUE(WaitUntil([&] { return socket_.state() == QAbstractSocket::UnconnectedState; }));
  Click("unplugged");
  EXPECT_EQ(StatusLine(), QString());
  Connect();
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
  // "None" plugs in, too.
  Click("unplugged");
  Click("silent");
  EXPECT_EQ(StatusLine(), u"Fault: silent, unplugged"_s);
  Click("none");
  EXPECT_TRUE(WaitUntil([&] { return socket_.state() == QAbstractSocket::UnconnectedState; }));
  Connect();
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
}

TEST_F(FaultMenuTest, OffersTheFaultsOfTheCommandLine) {
  Faults all;
  for (const QAction* action : Find<QMenu>("faults")->actions()) {
    const QString name = action->objectName().mid(6);
    if (name.isEmpty() || name == "none"_L1 || name == "other"_L1 || name == "unplugged"_L1) {
      continue;
    }
    EXPECT_TRUE(ParseFault(name, &all, nullptr)) << name.toStdString();
  }
  EXPECT_EQ(NamesOf(all).size(), 9);
}

TEST_F(FaultMenuTest, AnAnswerIsLateByOneTimeOnly) {
  Click("late:500");
  Click("late:2000");
  EXPECT_EQ(Checked(), QStringList{u"late:2000"_s});
  EXPECT_EQ(StatusLine(), u"Fault: late:2000"_s);
  Click("late:2000");
  EXPECT_EQ(Checked(), QStringList{u"none"_s});
}

TEST_F(FaultMenuTest, AnyOtherOneCanBeEntered) {
  const auto enter = [&](const QString& text) {
    QTimer::singleShot(0, [&, text] {
      auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      QTest::keyClicks(dialog->findChild<QLineEdit*>(), text);
      QTest::keyClick(dialog, Qt::Key_Return);
    });
    Fault("other")->trigger();
  };
  enter(u"late:7"_s);
  EXPECT_EQ(engine_.CurrentFaults().late_ms, 7);
  EXPECT_EQ(StatusLine(), u"Fault: late:7"_s);
  EXPECT_TRUE(Checked().isEmpty());
  QString warning;
  QTimer closer;
  QObject::connect(&closer, &QTimer::timeout, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    warning.clear();
    for (QLabel* label : box->findChildren<QLabel*>()) warning += Shown(label);
    box->accept();
  });
  closer.start(1);
  enter(u"nonsense"_s);
  EXPECT_TRUE(warning.startsWith(u"fault \"nonsense\": expected one of silent"_s));
  enter(u"<b>nonsense</b>"_s);
  EXPECT_TRUE(warning.startsWith(u"fault \"<b>nonsense</b>\": expected one of"_s))
      << warning.toStdString();
  EXPECT_EQ(engine_.CurrentFaults().late_ms, 7);
}

TEST_F(FaultMenuTest, ShowsFaultsThatWereSetElsewhere) {
  Faults faults;
  faults.flood = true;
  faults.late_ms = 500;
  engine_.SetFaults(faults);
  EXPECT_EQ(Checked(), (QStringList{u"late:500"_s, u"flood"_s}));
  EXPECT_EQ(StatusLine(), u"Fault: late:500, flood"_s);
}

}  // namespace
}  // namespace VirtualPanel
