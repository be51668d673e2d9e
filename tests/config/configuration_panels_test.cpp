// The working copy of the configuration: what may be put into it as a panel.
#include <gtest/gtest.h>

#include "config/applied_draft.h"

namespace {

using Brivon1::AddResult;
using Brivon1::Configuration;
using Brivon1::ConfigurationDraft;
using Brivon1::IpAddress;
using Brivon1::PanelBoxes;
using Brivon1::PanelEntry;

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

TEST(ConfigurationDraftTest, RemoveOfTheLastIdLooksAtNothingBehindTheTable) {
  // Behind the table stands the send mode, whose bytes would pass for rows and columns.
  ConfigurationDraft draft(
      Read("[Dimension Config]\nID255=1x3,Mono\n[Communication]\nSendMode=RS232\nBaudrate=9600\n"));
  EXPECT_EQ(draft.Remove(255), std::nullopt);
}

TEST(ConfigurationDraftTest, AnAddressThatBeginsWithAColonHasNoHost) {
  const ConfigurationDraft draft(Read("[Dimension Config]\nID007=4x96,Tri,:10.0.0.5\n"));
  EXPECT_EQ(draft.Boxes(7).address, QString());
  EXPECT_EQ(draft.Boxes(7).port, Text("10.0.0.5"));
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
  EXPECT_EQ(draft.Boxes(4).rows, QString());  // of a panel that is not configured
}

TEST(ConfigurationDraftTest, AColumnCountOf1000AndMoreIsReadBackShort) {
  for (const char* columns : {"1000", "1280", "3000", "01000"}) {
    EXPECT_TRUE(Brivon1::IsReadBackShort(Text(columns))) << columns;
  }
  for (const char* columns : {"", "1", "999", "0999", "3001", "x"}) {
    EXPECT_FALSE(Brivon1::IsReadBackShort(Text(columns))) << columns;
  }
}

}  // namespace
