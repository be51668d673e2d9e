// A program that is killed while it saves, at any moment, leaves the old file or the new one.
#include <array>
#include <string>

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <qt_windows.h>

#include <gtest/gtest.h>

#include "base/files.h"
#include "base/folder_of_files.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

constexpr const char* kFileToSave = "BRIVON_TEST_FILE_TO_SAVE";
constexpr qsizetype kSize = 300'000;

QByteArray Content(char letter) { return QByteArray(kSize, letter); }

// What the test below starts and kills; by itself it does nothing.
TEST(KilledSaves, TheProgramThatIsKilled) {
  const QString path = qEnvironmentVariable(kFileToSave);
  if (path.isEmpty()) GTEST_SKIP() << "not started to be killed";
  QElapsedTimer clock;
  clock.start();
  // It is refused where the test is just reading; and nobody may be left to kill it.
  for (char letter = 'a'; clock.elapsed() < 60'000;
       letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
    SaveWholeFile(path, Content(letter));
  }
}

class AProgramKilledWhileItSaves : public FolderOfFiles {
 protected:
  /// This program, saving `path` again and again.
  static HANDLE StartSaving(const QString& path) {
    qputenv(kFileToSave, path.toUtf8());
    std::array<wchar_t, 32768> program{};
    GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    std::wstring line = L"\"" + std::wstring(program.data()) +
                        L"\" --gtest_filter=KilledSaves.TheProgramThatIsKilled --gtest_brief=1";
    STARTUPINFOW how{};
    how.cb = sizeof how;
    PROCESS_INFORMATION process{};
    EXPECT_NE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, 0, 0, nullptr, nullptr, &how,
                             &process),
              0);
    qunsetenv(kFileToSave);
    CloseHandle(process.hThread);
    return process.hProcess;
  }

  /// Waits until the program at work has saved over what the test wrote.
  static bool WaitForFirstSave(const QString& path) {
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 60'000) {
      if (QFile file(path); file.open(QIODevice::ReadOnly) && file.read(1) != "-") return true;
      QThread::msleep(1);
    }
    return false;
  }
};

TEST_F(AProgramKilledWhileItSaves, LeavesTheOldFileOrTheNewOne) {
  const QString path = Path("a.msg");
  int left = 0;
  for (unsigned long moment = 0; moment < 20; ++moment) {
    Write("a.msg", "-");
    HANDLE program = StartSaving(path);
    const bool has_saved = WaitForFirstSave(path);
    QThread::usleep(moment * 1700);
    TerminateProcess(program, 9);
    WaitForSingleObject(program, INFINITE);
    CloseHandle(program);
    ASSERT_TRUE(has_saved);
    const QByteArray content = Read(path);
    ASSERT_FALSE(content.isEmpty());
    EXPECT_EQ(content, Content(content.front())) << moment;
    for (const QString& name : Names()) {
      if (name == u"a.msg"_s) continue;
      ++left;
      EXPECT_TRUE(name.startsWith(u"a.msg.~brivon-"_s)) << name.toStdString();
      QFile file(Path(name.toUtf8().constData()));
      ASSERT_TRUE(file.open(QIODevice::ReadWrite)) << "nobody holds it any longer";
      ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTimeUtc().addSecs(-360),
                                   QFileDevice::FileModificationTime));
    }
    ASSERT_EQ(SaveWholeFile(path, "-"), SaveResult::kSaved);
    EXPECT_EQ(Names(), QStringList{u"a.msg"_s}) << "the next save removes what was left";
  }
  EXPECT_GT(left, 0) << "no kill met a save";
}

}  // namespace
}  // namespace Brivon1
