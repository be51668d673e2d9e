// The working copy of the configuration: what may be put into it, and what it leaves in the file.
#include "config/configuration_draft.h"

#include <random>

#include <gtest/gtest.h>

#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::AddResult;
using Brivon1::Configuration;
using Brivon1::ConfigurationDraft;
using Brivon1::IniFile;
using Brivon1::IpAddress;
using Brivon1::PanelBoxes;
using Brivon1::PanelEntry;
using Brivon1::ReadConfiguration;
using Brivon1::SendMode;

QString Text(const char* text) { return QString::fromUtf8(text); }

Configuration Read(const QByteArray& ini) { return ReadConfiguration(IniFile(ini)); }

PanelBoxes Boxes(const char* id, const char* rows, const char* columns,
                 const char* address = "10.0.0.5", const char* port = "") {
  PanelBoxes boxes;
  boxes.id = Text(id);
  boxes.rows = Text(rows);
  boxes.columns = Text(columns);
  boxes.address = Text(address);
  boxes.port = Text(port);
  return boxes;
}

// What `draft` makes of a file.
QByteArray Applied(const ConfigurationDraft& draft, const QByteArray& ini) {
  IniFile file(ini);
  draft.Apply(file);
  return file.Content();
}

TEST(IpAddressTest, FourPartsEach0To254DigitsOnly) {
  for (const char* text : {"0.0.0.0", "254.254.254.254", "10.0.0.5", "192.168.100.20"}) {
    EXPECT_EQ(IpAddress(Text(text)), Text(text));
  }
  for (const char* text : {"",
                           ".",
                           "...",
                           "1.2.3",
                           "1.2.3.4.5",
                           "1.2.3.",
                           ".1.2.3",
                           "1..2.3",
                           "255.1.1.1",
                           "1.255.1.1",
                           "1.1.255.1",
                           "1.1.1.255",
                           "1.1.1.256",
                           "1.2.3.-4",
                           "1.2.3.+4",
                           "1.2.3.4 ",
                           " 1.2.3.4",
                           "1. 2.3.4",
                           "1.2.3.x",
                           "1.2.3.4x",
                           "0x1.2.3.4",
                           "1,2,3,4",
                           "1.2.3.4,Tri",
                           "1.2.3.4:80",
                           "panel.local",
                           "1.2.3.4294967297",
                           "1.2.3.18446744073709551617",
                           "::1",
                           "1.2.3.٣"}) {
    EXPECT_EQ(IpAddress(Text(text)), std::nullopt) << text;
  }
}

TEST(IpAddressTest, LeadingZerosGoSoThatNobodyTakesThePartsForOctalNumbers) {
  EXPECT_EQ(IpAddress(Text("192.168.001.020")), Text("192.168.1.20"));
  EXPECT_EQ(IpAddress(Text("00.000.0000.010")), Text("0.0.0.10"));
}

TEST(ConfigurationDraftTest, Id256OrRows13OrColumns3001AreNotAcceptedId0Is) {
  ConfigurationDraft draft(Read(""));
  EXPECT_EQ(draft.Add(Boxes("256", "4", "96")), AddResult::kInvalidInput);
  EXPECT_EQ(draft.Add(Boxes("5", "13", "96")), AddResult::kInvalidInput);
  EXPECT_EQ(draft.Add(Boxes("5", "4", "3001")), AddResult::kInvalidInput);
  EXPECT_EQ(Applied(draft, ""), "[Communication]\r\nBaudrate=9600\r\nComPort=2\r\n");
  EXPECT_EQ(draft.Add(Boxes("0", "12", "3000")), AddResult::kAdded);
  EXPECT_EQ(draft.Add(Boxes("255", "1", "1")), AddResult::kAdded);
  EXPECT_EQ(draft.Values().panels[0], (PanelEntry{12, 3000, 0, "10.0.0.5:80"}));
  EXPECT_EQ(draft.Values().panels[255], (PanelEntry{1, 1, 0, "10.0.0.5:80"}));
}

TEST(ConfigurationDraftTest, AddWithAnEmptyOrInvalidBoxChangesNothing) {
  const QByteArray ini = "[Dimension Config]\r\nID005=8x96,Tri,10.0.0.5:80\r\n";
  ConfigurationDraft draft(Read(ini));
  for (const char* bad : {"", " ", "x", "-1", "1,2", "1x2", "99999"}) {
    EXPECT_EQ(draft.Add(Boxes(bad, "4", "96")), AddResult::kInvalidInput) << bad;
    EXPECT_EQ(draft.Add(Boxes("5", bad, "96")), AddResult::kInvalidInput) << bad;
    EXPECT_EQ(draft.Add(Boxes("5", "4", bad)), AddResult::kInvalidInput) << bad;
    EXPECT_EQ(draft.Add(Boxes("5", "4", "96", bad)), AddResult::kInvalidAddress) << bad;
  }
  for (const char* bad : {" ", "0", "00", "65536", "-80", "80,Tri", "80 ", "8080808080", "http"}) {
    EXPECT_EQ(draft.Add(Boxes("5", "4", "96", "10.0.0.9", bad)), AddResult::kInvalidInput) << bad;
  }
  EXPECT_EQ(draft.Add(Boxes("5", "0", "96")), AddResult::kInvalidInput);
  EXPECT_EQ(draft.Add(Boxes("5", "4", "0")), AddResult::kInvalidInput);
  EXPECT_EQ(draft.Values().panels, Read(ini).panels);
}

TEST(ConfigurationDraftTest, AddWithAnEmptyPortBoxStoresTheAddressWithPort80) {
  ConfigurationDraft draft(Read(""));
  EXPECT_EQ(draft.Add(Boxes("5", "4", "96")), AddResult::kAdded);
  EXPECT_EQ(draft.Values().panels[5].address, "10.0.0.5:80");
  EXPECT_EQ(draft.Add(Boxes("5", "4", "96", "10.0.0.5", "65535")), AddResult::kAdded);
  EXPECT_EQ(draft.Values().panels[5].address, "10.0.0.5:65535");
  EXPECT_EQ(draft.Add(Boxes("5", "4", "96", "10.0.0.5", "1")), AddResult::kAdded);
  EXPECT_EQ(draft.Values().panels[5].address, "10.0.0.5:1");
}

TEST(ConfigurationDraftTest, AStoredValueThatWouldNotSurviveThe34CharacterLimitIsRefused) {
  ConfigurationDraft draft(Read(""));
  // 12x3000,Mono,254.254.254.254:65535 are 34 characters.
  EXPECT_EQ(draft.Add(Boxes("5", "12", "3000", "254.254.254.254", "65535")), AddResult::kAdded);
  EXPECT_EQ(draft.Add(Boxes("6", "12", "3000", "254.254.254.254", "065535")),
            AddResult::kInvalidInput);
  EXPECT_FALSE(draft.Values().panels[6].IsConfigured());
  EXPECT_EQ(Applied(draft, ""),
            "[Dimension Config]\r\nID005=12x3000,Mono,254.254.254.254:65535\r\n"
            "[Communication]\r\nBaudrate=9600\r\nComPort=2\r\n");
}

TEST(ConfigurationDraftTest, RemoveGivesTheIdNextToTheOneRemoved) {
  ConfigurationDraft draft(
      Read("[Dimension Config]\nID000=1x1,Mono\nID007=1x2,Mono\nID255=1x3,Mono\n"));
  EXPECT_EQ(draft.Remove(7), 255);
  EXPECT_EQ(draft.Remove(255), 0);
  EXPECT_EQ(draft.Remove(0), std::nullopt);
  for (const PanelEntry& entry : draft.Values().panels) EXPECT_FALSE(entry.IsConfigured());
}

TEST(ConfigurationDraftTest, TheBoxesOfAPanelAreReadyToBeAddedAgain) {
  const Configuration stored = Read(
      "[Dimension Config]\nID000=12x999,Tri,10.0.0.5:8080\nID007=1x1,Mono,10.0.0.6\n"
      "ID008=4x96,Tri,10.0.0.7 : 81 \n");
  ConfigurationDraft draft(stored);
  EXPECT_EQ(draft.Boxes(0),
            (PanelBoxes{Text("0"), Text("12"), Text("999"), 1, Text("10.0.0.5"), Text("8080")}));
  EXPECT_EQ(draft.Boxes(7),
            (PanelBoxes{Text("7"), Text("1"), Text("1"), 0, Text("10.0.0.6"), QString()}));
  EXPECT_EQ(draft.Boxes(8),
            (PanelBoxes{Text("8"), Text("4"), Text("96"), 1, Text("10.0.0.7"), Text("81")}));
  EXPECT_EQ(draft.Add(draft.Boxes(0)), AddResult::kAdded);
  EXPECT_EQ(draft.Values().panels, stored.panels);
}

TEST(ConfigurationDraftTest, TheBoxesOfAHandWrittenPanelHoldWhatAddWouldTake) {
  const ConfigurationDraft draft(
      Read("[Dimension Config]\nID001=20x96,Tri\nID002=8x96,Mono,panel\nID003=8x96\n"));
  EXPECT_EQ(draft.Boxes(1),
            (PanelBoxes{Text("1"), QString(), Text("96"), 1, Text("0.0.0.0"), QString()}));
  EXPECT_EQ(draft.Boxes(2).address, Text("0.0.0.0"));
  EXPECT_EQ(draft.Boxes(3).address, Text("0.0.0.0"));
}

TEST(ConfigurationDraftTest, AColumnCountOf1000AndMoreIsReadBackShort) {
  for (const char* columns : {"1000", "1280", "3000", "01000"}) {
    EXPECT_TRUE(Brivon1::IsReadBackShort(Text(columns))) << columns;
  }
  for (const char* columns : {"", "1", "999", "0999", "3001", "x"}) {
    EXPECT_FALSE(Brivon1::IsReadBackShort(Text(columns))) << columns;
  }
}

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

}  // namespace
