// One "brivon.ini" of several programs, several users and several folders.
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

#include <QDir>
#include <QFile>
#include <QLockFile>

#include "config/shared_configuration.h"
#include "support/as_nobody.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::ConfigurationDraft;
using Brivon1::SaveResult;

TEST_F(SharedConfiguration, WhereTheFolderIsClosedThatIsTheReasonAndNotALeftLock) {
  const ConfigurationDraft mine = Opened();
  QLockFile other(folder_.Path(u"brivon.ini.lock"_s));
  ASSERT_TRUE(other.tryLock(0));
  const QByteArray folder = QFile::encodeName(folder_.Path({}));
  ASSERT_EQ(chmod(folder.constData(), 0555), 0);
  QString reason;
  SaveResult result = SaveResult::kSaved;
  {
    const AsNobody nobody;
    result = mine.Save(&reason, GiveUp);
  }
  ASSERT_EQ(chmod(folder.constData(), 0755), 0);
  EXPECT_EQ(result, SaveResult::kInvalidPath);
  EXPECT_EQ(reason, u"Permission denied"_s);
  EXPECT_EQ(File(), kBefore);
}

TEST_F(SharedConfiguration, ProgramsThatSaveAllTheTimeLoseNothing) {
  constexpr int kPrograms = 3;
  constexpr int kSaves = 40;
  const auto never_give_up = [] {
    usleep(1000);
    return true;
  };
  // Each has two panels: one that it changes with every save, one that comes and goes.
  const auto save_all_the_time = [&](int program) {
    const QByteArray changed = QByteArray::number(10 + program);
    const QByteArray comes_and_goes = QByteArray::number(20 + program);
    for (int save = 1; save <= kSaves; ++save) {
      ConfigurationDraft draft = Opened();
      const QByteArray columns = QByteArray::number(save);
      draft.Add(Boxes(changed.constData(), "1", columns.constData()));
      if (save % 2 == 1) {
        draft.Add(Boxes(comes_and_goes.constData(), "1", columns.constData()));
      } else {
        draft.Remove(20 + program);
      }
      if (draft.Save(nullptr, never_give_up) != SaveResult::kSaved) return 1;
      const auto slot = static_cast<std::size_t>(program);
      const auto& panels = Brivon1::Store().panels;
      if (panels[10 + slot].columns != save) return 2;
      if (panels[20 + slot].IsConfigured() != (save % 2 == 1)) return 3;
    }
    return 0;
  };
  std::vector<pid_t> programs;
  for (int program = 0; program < kPrograms; ++program) {
    const pid_t id = fork();
    if (id == 0) _exit(save_all_the_time(program));
    programs.push_back(id);
  }
  for (const pid_t id : programs) {
    int status = -1;
    ASSERT_EQ(waitpid(id, &status, 0), id);
    EXPECT_EQ(status, 0);
  }
  Brivon1::LoadConfiguration();
  for (std::size_t program = 0; program < kPrograms; ++program) {
    EXPECT_EQ(Brivon1::Store().panels[10 + program].columns, kSaves);
    EXPECT_FALSE(Brivon1::Store().panels[20 + program].IsConfigured());
  }
  EXPECT_EQ(QDir(folder_.Path({})).entryList(QDir::Files | QDir::Hidden),
            QStringList{u"brivon.ini"_s});
}

TEST_F(SharedConfiguration, TwoFoldersWithLinksToOneFileHaveOneLock) {
  const TemporaryProgramFolder linked;
  ASSERT_TRUE(QFile::link(folder_.Path(u"brivon.ini"_s), linked.Path(u"brivon.ini"_s)));
  ConfigurationDraft mine = Opened();
  mine.Remove(2);
  QLockFile other(folder_.Path(u"brivon.ini.lock"_s));
  ASSERT_TRUE(other.tryLock(0));
  EXPECT_EQ(mine.Save(nullptr, GiveUp), SaveResult::kLocked);
  other.unlock();
  EXPECT_EQ(mine.Save(nullptr, GiveUp), SaveResult::kSaved);
  EXPECT_FALSE(File().contains("ID002"));
}

}  // namespace
