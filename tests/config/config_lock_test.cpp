// OK of the configuration dialog while another program is saving "brivon.ini".
#include <chrono>
#include <thread>

#include <QLockFile>
#include <QTimer>

#include "config/config_dialog.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace {

class ConfigLock : public ConfigDialogTest {
 protected:
  ConfigLock() {
    Open(kTwoPanels);
    Click("opt9600");
    EXPECT_TRUE(other_.tryLock(0));
  }

  const QByteArray saved_ = QByteArray(kTwoPanels).replace("=4800", "=9600");
  QLockFile other_{folder_.Path(u"brivon.ini.lock"_s)};
};

TEST_F(ConfigLock, OkWaitsForTheOtherWithTheWindowAliveAndTheBusyPointer) {
  bool was_busy = false;
  QTimer::singleShot(0, window_.get(), [&] {
    const QCursor* pointer = QGuiApplication::overrideCursor();
    was_busy = pointer != nullptr && pointer->shape() == Qt::WaitCursor;
    // Nothing interrupts it, whatever asks for it.
    window_->reject();
    window_->accept();
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(File(), kTwoPanels);
    other_.unlock();
  });
  Click("butOK");
  EXPECT_TRUE(was_busy);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(reader_.Texts(), QStringList());
  EXPECT_EQ(window_->result(), QDialog::Accepted);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(File(), saved_);
}

TEST_F(ConfigLock, OkThatWaitsWhileTheSessionEndsIsSavedEvenSo) {
  std::thread other;
  QTimer::singleShot(0, window_.get(), [&] {
    QTimer::singleShot(0, window_.get(), [&] {
      QCoreApplication::exit();
      other = std::thread([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        other_.unlock();
      });
    });
    Click("butOK");
  });
  QCoreApplication::exec();
  ASSERT_TRUE(other.joinable());
  other.join();
  EXPECT_EQ(reader_.Texts(), QStringList());
  EXPECT_EQ(File(), saved_);
}

TEST_F(ConfigLock, OneThatDoesNotEndIsReportedAndTheDialogStaysOpenWithNothingLost) {
  Click("butOK");
  ExpectOneBox("Drive not available!");
  EXPECT_EQ(reader_.Seen().first().informative,
            folder_.Path(u"brivon.ini"_s) +
                u": Another program is saving it.\n"
                u"Press \"OK\" again. If no other program is saving it, delete "_s +
                folder_.Path(u"brivon.ini.lock"_s) + u" first."_s);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_TRUE(Option("opt9600")->isChecked());
  EXPECT_EQ(File(), kTwoPanels);
  other_.unlock();
  Click("butOK");
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(File(), saved_);
}

}  // namespace
