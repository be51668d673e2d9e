// The working copy of the configuration: what it leaves in the file.
#include <array>
#include <random>

#include <gtest/gtest.h>

#include "config/applied_draft.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::AddResult;
using Brivon1::Configuration;
using Brivon1::ConfigurationDraft;
using Brivon1::PanelBoxes;
using Brivon1::PanelEntry;
using Brivon1::SendMode;

TEST(ConfigurationDraftTest, PanelsComeFirstInAscendingOrderThenBaudrateComPortAndSendMode) {
  ConfigurationDraft draft(Read(""));
  draft.ChoosePort(3);
  draft.ChooseMode(SendMode::kTcp);
  draft.ChooseBaudRate(1200);
  EXPECT_EQ(draft.Add(Boxes("255", "1", "8", "10.0.0.2")), AddResult::kAdded);
  EXPECT_EQ(draft.Add(Boxes("0", "2", "16", "10.0.0.1", "8080")), AddResult::kAdded);
  PanelBoxes tri = Boxes("12", "12", "192", "10.0.0.3");
  tri.colour_type = Brivon1::kTri;
  EXPECT_EQ(draft.Add(tri), AddResult::kAdded);
  EXPECT_EQ(Applied(draft, ""),
            "[Dimension Config]\r\n"
            "ID000=2x16,Mono,10.0.0.1:8080\r\n"
            "ID012=12x192,Tri,10.0.0.3:80\r\n"
            "ID255=1x8,Mono,10.0.0.2:80\r\n"
            "[Communication]\r\n"
            "Baudrate=1200\r\n"
            "ComPort=3\r\n"
            "SendMode=TCPIP\r\n");
  draft.ChooseMode(SendMode::kSerial);
  EXPECT_EQ(Applied(draft, "[communication]\nSENDMODE = TCPIP\n"),
            "[communication]\nSENDMODE =RS232\nBaudrate=1200\nComPort=3\n"
            "[Dimension Config]\nID000=2x16,Mono,10.0.0.1:8080\nID012=12x192,Tri,10.0.0.3:80\n"
            "ID255=1x8,Mono,10.0.0.2:80\n");
}

TEST(ConfigurationDraftTest, TheKeyOfARemovedPanelIsDeletedAndEveryOtherLineStays) {
  const QByteArray ini =
      "; first line\r\n"
      "\r\n"
      "[Other]\r\n"
      "ID001=kept\r\n"
      "no equals sign\xff\x00 here\r\n"
      "[Dimension Config]\r\n"
      "; panels\r\n"
      "ID001=4x96,Tri,127.0.0.1:2101\r\n"
      "id002 = 12x192,Mono,127.0.0.1:2102\r\n"
      "ID003=0x000,Mono\r\n"
      "ID004=16x128,Tri,10.0.0.4:80\r\n"
      "ID999=unknown\r\n"
      "\r\n"
      "[Communication]\r\n"
      "SendMode=RS232\r\n"
      "Baudrate=4800\r\n"
      "ComPort=2\r\n"
      "Delay Period=250\r\n"
      "Unknown = value \r\n"
      "[Serial Ports]\r\n"
      "Com2=/dev/ttyUSB0\r\n"
      "Com2Rts=0\r\n"
      "[Language]\r\n"
      "Language=2\r\n"
      "last line without an end"_ba;
  ConfigurationDraft draft(Read(ini));
  EXPECT_EQ(Applied(draft, ini), ini);
  draft.Remove(1);
  EXPECT_EQ(draft.Add(Boxes("2", "6", "48", "10.0.0.2")), AddResult::kAdded);
  EXPECT_EQ(draft.Add(Boxes("200", "1", "8", "10.0.0.3")), AddResult::kAdded);
  draft.ChooseMode(SendMode::kTcp);
  draft.ChoosePort(4);
  EXPECT_EQ(Applied(draft, ini),
            "; first line\r\n"
            "\r\n"
            "[Other]\r\n"
            "ID001=kept\r\n"
            "no equals sign\xff\x00 here\r\n"
            "[Dimension Config]\r\n"
            "; panels\r\n"
            "id002 =6x48,Mono,10.0.0.2:80\r\n"
            "ID003=0x000,Mono\r\n"
            "ID004=16x128,Tri,10.0.0.4:80\r\n"
            "ID999=unknown\r\n"
            "ID200=1x8,Mono,10.0.0.3:80\r\n"
            "\r\n"
            "[Communication]\r\n"
            "SendMode=TCPIP\r\n"
            "Baudrate=4800\r\n"
            "ComPort=4\r\n"
            "Delay Period=250\r\n"
            "Unknown = value \r\n"
            "[Serial Ports]\r\n"
            "Com2=/dev/ttyUSB0\r\n"
            "Com2Rts=0\r\n"
            "[Language]\r\n"
            "Language=2\r\n"
            "last line without an end"_ba);
}

TEST(ConfigurationDraftTest, APanelRemovedAndAddedAgainIsWritten) {
  const QByteArray ini = "[Dimension Config]\nID005=8x96,Tri,10.0.0.5:80\n";
  ConfigurationDraft draft(Read(ini));
  const PanelBoxes boxes = draft.Boxes(5);
  draft.Remove(5);
  EXPECT_EQ(draft.Add(boxes), AddResult::kAdded);
  EXPECT_EQ(Applied(draft, ini), ini + "[Communication]\nBaudrate=9600\nComPort=2\n");
}

TEST(ConfigurationDraftTest, AnEntryWhoseAddressIsOnlyItsColourWordIsWrittenWithTwoFields) {
  for (const char* value : {"8x96,Tri", "8x96,Mono"}) {
    const QByteArray ini = QByteArray("[Dimension Config]\nID007=") + value +
                           "\n[Communication]\nBaudrate=9600\nComPort=2\n";
    const ConfigurationDraft draft(Read(ini));
    EXPECT_EQ(Applied(draft, ini), ini);
    // Also where somebody took the key out of the file in the meantime.
    EXPECT_EQ(Applied(draft, "[Dimension Config]\n[Communication]\nBaudrate=9600\nComPort=2\n"),
              ini);
  }
  EXPECT_EQ(Brivon1::PanelValue({8, 96, 1, "Tri"}), "8x96,Tri");
  EXPECT_EQ(Brivon1::PanelValue({8, 96, 1, "Mono"}), "8x96,Tri,Mono");
  EXPECT_EQ(Brivon1::PanelValue({8, 96, 0, "Tri"}), "8x96,Mono,Tri");
  EXPECT_EQ(Brivon1::PanelValue({16, 128, 1, "192.168.0.20:80"}), "16x128,Tri,192.168.0.20:80");
}

TEST(ConfigurationDraftTest, NeitherSendModeStoredNoneChosenSendModeIsLeftAsItIs) {
  for (const QByteArray line : {"SendMode=rs232\n", "SendMode=\n", "SendMode=UDP \n", ""}) {
    const QByteArray ini = "[Communication]\n" + line + "Baudrate=9600\nComPort=2\n";
    ConfigurationDraft draft(Read(ini));
    EXPECT_EQ(Applied(draft, ini), ini);
    draft.ChooseMode(SendMode::kSerial);
    EXPECT_EQ(Read(Applied(draft, ini)).send_mode, "RS232");
  }
}

TEST(ConfigurationDraftTest, AModeThatWasReadIsWrittenAsTheWordItIs) {
  const QByteArray ini = "[Communication]\nSendMode=TCPIPX\nBaudrate=9600\nComPort=2\n";
  EXPECT_EQ(Applied(ConfigurationDraft(Read(ini)), ini),
            "[Communication]\nSendMode=TCPIP\nBaudrate=9600\nComPort=2\n");
}

TEST(ConfigurationDraftTest, AStoredBaudRateOrPortWithoutAnOptionStaysUnlessAnotherIsChosen) {
  const QByteArray ini = "[Communication]\nSendMode=RS232\nBaudrate=115200\nComPort=70000\n";
  ConfigurationDraft draft(Read(ini));
  EXPECT_EQ(Applied(draft, ini), ini);
  draft.ChooseBaudRate(300);
  draft.ChoosePort(1);
  EXPECT_EQ(Applied(draft, ini), "[Communication]\nSendMode=RS232\nBaudrate=300\nComPort=1\n");
}

TEST(ConfigurationDraftTest, APanelOf1000AndMoreColumnsIsWrittenWholeAndLeftAloneLater) {
  ConfigurationDraft draft(Read(""));
  EXPECT_EQ(draft.Add(Boxes("5", "8", "1280")), AddResult::kAdded);
  const QByteArray ini = Applied(draft, "");
  EXPECT_TRUE(ini.contains("ID005=8x1280,Mono,10.0.0.5:80\r\n"));
  EXPECT_EQ(Read(ini).panels[5].columns, 128);
  EXPECT_EQ(Applied(ConfigurationDraft(Read(ini)), ini), ini);
}

TEST(ConfigurationDraftTest, RandomPanelTablesAreReadBackAsTheyWereAdded) {
  std::mt19937 random(20);
  const auto number = [&](int lowest, int highest) {
    return std::uniform_int_distribution<int>(lowest, highest)(random);
  };
  const TemporaryProgramFolder folder;
  for (int round = 0; round < 30; ++round) {
    ConfigurationDraft draft(Brivon1::Store());
    std::array<PanelEntry, 256> expected;
    for (std::size_t id = 0; id < 256; ++id) {
      if (Brivon1::Store().panels[id].IsConfigured()) draft.Remove(static_cast<int>(id));
      if (number(0, 2) == 0) continue;
      PanelEntry& entry = expected[id];
      entry.rows = static_cast<qint16>(number(1, 12));
      entry.columns = static_cast<qint16>(number(1, 999));
      entry.colour_type = static_cast<qint16>(number(0, 1));
      QStringList parts;
      for (int part = 0; part < 4; ++part) parts.append(QString::number(number(0, 254)));
      const QString port = number(0, 3) == 0 ? QString() : QString::number(number(1, 65535));
      const QString address = parts.join(u'.');
      entry.address = (address + u':' + (port.isEmpty() ? Text("80") : port)).toLatin1();
      const PanelBoxes boxes{QString::number(id),
                             QString::number(entry.rows),
                             QString::number(entry.columns),
                             entry.colour_type,
                             address,
                             port};
      ASSERT_EQ(draft.Add(boxes), AddResult::kAdded);
    }
    ASSERT_EQ(draft.Save(), Brivon1::SaveResult::kSaved);
    for (std::size_t id = 0; id < 256; ++id) {
      const PanelEntry& read = Brivon1::Store().panels[id];
      ASSERT_EQ(read.rows, expected[id].rows) << id;
      ASSERT_EQ(read.columns, expected[id].columns) << id;
      ASSERT_EQ(read.colour_type, expected[id].colour_type) << id;
      if (read.IsConfigured()) {
        ASSERT_EQ(read.address, expected[id].address) << id;
      }
    }
  }
}

TEST(ConfigurationDraftTest, AnyBytesInTheFileAreSavedAndReadBackTheSame) {
  std::mt19937 random(21);
  const char* pieces[] = {"[Dimension Config]",
                          "[Communication]",
                          "[",
                          "]",
                          "ID005=",
                          "ID006",
                          "=",
                          "8x96",
                          "x",
                          ",",
                          "Tri",
                          "Mono",
                          "10.0.0.5:80",
                          "\r\n",
                          "\n",
                          ";",
                          "SendMode=",
                          "RS232",
                          "TCPIP",
                          "Baudrate=",
                          "ComPort=",
                          "9600",
                          "\"",
                          "'",
                          " ",
                          "\t",
                          "\xff",
                          "99999999999",
                          "-1",
                          "\xEF\xBB\xBF"};
  const auto any = [&](std::size_t below) {
    return std::uniform_int_distribution<std::size_t>(0, below - 1)(random);
  };
  for (int round = 0; round < 5000; ++round) {
    QByteArray ini;
    for (std::size_t n = any(60); n > 0; --n) ini += pieces[any(std::size(pieces))];
    ConfigurationDraft draft(Read(ini));
    const bool removed = any(2) == 0;
    if (removed) draft.Remove(6);
    const Configuration read = Read(Applied(draft, ini));
    ASSERT_EQ(read.send_mode, draft.Values().send_mode) << ini.toStdString();
    ASSERT_EQ(read.baud_rate, draft.Values().baud_rate) << ini.toStdString();
    ASSERT_EQ(read.com_port, draft.Values().com_port) << ini.toStdString();
    ASSERT_EQ(read.panels[5], draft.Values().panels[5]) << ini.toStdString();
    ASSERT_EQ(read.panels[6].IsConfigured(), draft.Values().panels[6].IsConfigured())
        << ini.toStdString();
  }
}

TEST(ConfigurationDraftTest, AFileThatWouldBeTooLargeToBeReadIsNotSaved) {
  const TemporaryProgramFolder folder;
  const QByteArray above = "[Dimension Config]\r\n";
  const QByteArray added = "ID005=4x96,Mono,10.0.0.5:80\r\n";
  const QByteArray below = "[Communication]\r\nBaudrate=9600\r\nComPort=2\r\n;";
  const qsizetype room = (4 << 20) - above.size() - added.size() - below.size();
  ConfigurationDraft draft(Read(""));
  EXPECT_EQ(draft.Add(Boxes("5", "4", "96")), AddResult::kAdded);

  const QByteArray comment(room, '.');
  folder.Write(u"brivon.ini"_s, above + below + comment);
  EXPECT_EQ(draft.Save(), Brivon1::SaveResult::kSaved);
  EXPECT_TRUE(folder.Read(u"brivon.ini"_s) == above + added + below + comment);
  EXPECT_EQ(Brivon1::Store().panels[5], (PanelEntry{4, 96, 0, "10.0.0.5:80"}));

  const QByteArray too_long = above + below + comment + '.';
  folder.Configure(too_long);
  EXPECT_EQ(draft.Save(), Brivon1::SaveResult::kInvalidPath);
  EXPECT_TRUE(folder.Read(u"brivon.ini"_s) == too_long);
  EXPECT_FALSE(Brivon1::Store().panels[5].IsConfigured());
}

}  // namespace
