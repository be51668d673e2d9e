// Two programs on one "brivon.ini": what each has changed stands in it, whoever saves last.
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

#include <QDir>
#include <QFile>
#include <QLockFile>

#include <gtest/gtest.h>

#include "config/applied_draft.h"
#include "support/as_nobody.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::AddResult;
using Brivon1::ConfigurationDraft;
using Brivon1::PanelEntry;
using Brivon1::SaveResult;
using Brivon1::SendMode;

constexpr const char* kBefore =
    "[Dimension Config]\r\nID001=4x96,Tri,10.0.0.1:80\r\nID002=4x96,Tri,10.0.0.2:80\r\n"
    "[Communication]\r\nSendMode=TCPIP\r\nBaudrate=9600\r\nComPort=2\r\n";

bool GiveUp() { return false; }

class SharedConfiguration : public testing::Test {
 protected:
  SharedConfiguration() { folder_.Configure(kBefore); }

  static ConfigurationDraft Opened() {
    Brivon1::LoadConfiguration();
    return ConfigurationDraft(Brivon1::Store());
  }

  QByteArray File() const { return folder_.Read(u"brivon.ini"_s); }

  TemporaryProgramFolder folder_;
};

TEST_F(SharedConfiguration, PanelsThatTheOtherAddedChangedAndRemovedStaySo) {
  ConfigurationDraft mine = Opened();
  ConfigurationDraft other = Opened();
  EXPECT_EQ(other.Add(Boxes("1", "2", "48", "10.0.0.7")), AddResult::kAdded);
  EXPECT_EQ(other.Add(Boxes("3", "2", "48", "10.0.0.3")), AddResult::kAdded);
  other.Remove(2);
  ASSERT_EQ(other.Save(), SaveResult::kSaved);
  EXPECT_EQ(mine.Add(Boxes("4", "8", "96", "10.0.0.4")), AddResult::kAdded);
  ASSERT_EQ(mine.Save(), SaveResult::kSaved);
  EXPECT_EQ(File(),
            "[Dimension Config]\r\nID001=2x48,Mono,10.0.0.7:80\r\nID003=2x48,Mono,10.0.0.3:80\r\n"
            "ID004=8x96,Mono,10.0.0.4:80\r\n"
            "[Communication]\r\nSendMode=TCPIP\r\nBaudrate=9600\r\nComPort=2\r\n");
  EXPECT_EQ(Brivon1::Store().panels[1], (PanelEntry{2, 48, 0, "10.0.0.7:80"}));
}

TEST_F(SharedConfiguration, WhatBothHaveChangedIsAsTheLastSaveHasIt) {
  ConfigurationDraft mine = Opened();
  ConfigurationDraft other = Opened();
  EXPECT_EQ(other.Add(Boxes("1", "2", "48", "10.0.0.7")), AddResult::kAdded);
  other.Remove(2);
  EXPECT_EQ(other.Add(Boxes("3", "2", "48", "10.0.0.3")), AddResult::kAdded);
  other.ChooseBaudRate(4800);
  other.ChoosePort(4);
  other.ChooseMode(SendMode::kSerial);
  ASSERT_EQ(other.Save(), SaveResult::kSaved);
  mine.Remove(1);
  EXPECT_EQ(mine.Add(Boxes("2", "8", "96", "10.0.0.9")), AddResult::kAdded);
  EXPECT_EQ(mine.Add(Boxes("3", "8", "96", "10.0.0.8")), AddResult::kAdded);
  mine.ChooseBaudRate(300);
  mine.ChoosePort(1);
  ASSERT_EQ(mine.Save(), SaveResult::kSaved);
  EXPECT_EQ(File(),
            "[Dimension Config]\r\nID003=8x96,Mono,10.0.0.8:80\r\nID002=8x96,Mono,10.0.0.9:80\r\n"
            "[Communication]\r\nSendMode=RS232\r\nBaudrate=300\r\nComPort=1\r\n");
}

TEST_F(SharedConfiguration, TheLinkThatTheOtherChoseStays) {
  const ConfigurationDraft mine = Opened();
  ConfigurationDraft other = Opened();
  other.ChooseBaudRate(4800);
  other.ChoosePort(4);
  other.ChooseMode(SendMode::kSerial);
  ASSERT_EQ(other.Save(), SaveResult::kSaved);
  const QByteArray saved = File();
  ASSERT_EQ(mine.Save(), SaveResult::kSaved);
  EXPECT_EQ(File(), saved);
  EXPECT_TRUE(saved.endsWith("SendMode=RS232\r\nBaudrate=4800\r\nComPort=4\r\n"));
}

TEST_F(SharedConfiguration, AFileThatIsGoneIsWrittenWhole) {
  ConfigurationDraft mine = Opened();
  ASSERT_TRUE(QFile::remove(folder_.Path(u"brivon.ini"_s)));
  mine.Remove(2);
  ASSERT_EQ(mine.Save(), SaveResult::kSaved);
  EXPECT_EQ(File(),
            "[Dimension Config]\r\nID001=4x96,Tri,10.0.0.1:80\r\n"
            "[Communication]\r\nBaudrate=9600\r\nComPort=2\r\nSendMode=TCPIP\r\n");
}

TEST_F(SharedConfiguration, AFileThatWasEmptiedIsWrittenWhole) {
  const ConfigurationDraft mine = Opened();
  folder_.Configure("");
  ASSERT_EQ(mine.Save(), SaveResult::kSaved);
  EXPECT_EQ(File(),
            "[Dimension Config]\r\nID001=4x96,Tri,10.0.0.1:80\r\nID002=4x96,Tri,10.0.0.2:80\r\n"
            "[Communication]\r\nBaudrate=9600\r\nComPort=2\r\nSendMode=TCPIP\r\n");
}

TEST_F(SharedConfiguration, ASettingThatTheOtherRemovedIsWrittenAsTheWindowShowsIt) {
  folder_.Configure("[Communication]\r\nSendMode=TCPIP\r\nBaudrate=4800\r\nComPort=4\r\n");
  const ConfigurationDraft mine = Opened();
  folder_.Configure("[Communication]\r\nSendMode=RS232\r\n");
  ASSERT_EQ(mine.Save(), SaveResult::kSaved);
  EXPECT_EQ(File(), "[Communication]\r\nSendMode=RS232\r\nBaudrate=4800\r\nComPort=4\r\n");
}

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

TEST_F(SharedConfiguration, AFileThatAnotherProgramIsSavingIsNotSaved) {
  ConfigurationDraft mine = Opened();
  mine.Remove(2);
  const QString lock_file = folder_.Path(u"brivon.ini.lock"_s);
  QLockFile other(lock_file);
  ASSERT_TRUE(other.tryLock(0));
  QString reason;
  const SaveResult result = mine.Save(&reason, GiveUp);
  EXPECT_EQ(result, SaveResult::kLocked);
  EXPECT_EQ(Brivon1::SaveFailureText(result), u"Drive not available!"_s);
  EXPECT_EQ(Brivon1::ConfigurationRemedy(result, reason, u"OK"_s),
            folder_.Path(u"brivon.ini"_s) +
                u": Another program is saving it.\n"
                u"Press \"OK\" again. If no other program is saving it, delete "_s +
                lock_file + u" first."_s);
  EXPECT_EQ(File(), kBefore);
  EXPECT_TRUE(Brivon1::Store().panels[2].IsConfigured());
  other.unlock();
  EXPECT_EQ(mine.Save(&reason, GiveUp), SaveResult::kSaved);
  EXPECT_FALSE(Brivon1::Store().panels[2].IsConfigured());
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
