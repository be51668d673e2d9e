// Two programs on one "brivon.ini": what each has changed stands in it, whoever saves last.
#include "config/shared_configuration.h"

#include <QFile>
#include <QLockFile>

using namespace Qt::StringLiterals;

namespace {

using Brivon1::AddResult;
using Brivon1::ConfigurationDraft;
using Brivon1::PanelEntry;
using Brivon1::SaveResult;
using Brivon1::SendMode;

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

}  // namespace
