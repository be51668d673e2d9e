#include "store/configuration_store.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include "store/panel_list.h"
#include "store/system_port.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

Configuration Read(const QByteArray& ini) { return ReadConfiguration(IniFile(ini)); }

Configuration Communication(const QByteArray& lines) { return Read("[Communication]\r\n" + lines); }

PanelEntry Panel7(const QByteArray& value) {
  return Read("[Dimension Config]\r\nID007=" + value + "\r\n").panels[7];
}

void ExpectPanel(const PanelEntry& entry, int rows, int columns, int colour_type,
                 const QByteArray& address) {
  EXPECT_EQ(entry.rows, rows);
  EXPECT_EQ(entry.columns, columns);
  EXPECT_EQ(entry.colour_type, colour_type);
  EXPECT_EQ(entry.address, address);
}

TEST(ConfigurationStore, AFileThatLacksTheDimensionConfigSectionYields256UnconfiguredEntries) {
  const Configuration configuration = Communication("SendMode=TCPIP\r\nID007=8x96,Tri\r\n");
  ASSERT_EQ(configuration.panels.size(), 256u);
  for (const PanelEntry& entry : configuration.panels) {
    EXPECT_FALSE(entry.IsConfigured());
    ExpectPanel(entry, 0, 0, 0, "Mono");
  }
  EXPECT_TRUE(PanelListLines(configuration).isEmpty());
}

TEST(ConfigurationStore, Id007With8x96TriGivesRows8Columns96Colour1AddressTri) {
  ExpectPanel(Panel7("8x96,Tri"), 8, 96, 1, "Tri");
}

TEST(ConfigurationStore, Id007With8x1280MonoReadsColumnsAs128) {
  ExpectPanel(Panel7("8x1280,Mono,a:1"), 8, 128, 0, "a:1");
}

TEST(ConfigurationStore, Id007WithTriInLowerCaseGivesColour0) {
  ExpectPanel(Panel7("8x96,tri,1.2.3.4:80"), 8, 96, 0, "1.2.3.4:80");
  ExpectPanel(Panel7("8x96,TRI,1.2.3.4:80"), 8, 96, 0, "1.2.3.4:80");
}

TEST(ConfigurationStore, SendModeTcpipxReadsAsTcpip) {
  EXPECT_EQ(Communication("SendMode=TCPIPX\r\n").send_mode, "TCPIP");
  EXPECT_EQ(Communication("SendMode=TCPIPX\r\n").Mode(), SendMode::kTcp);
}

TEST(ConfigurationStore, SendModeInLowerCaseMatchesNeitherMode) {
  EXPECT_EQ(Communication("SendMode=rs232\r\n").send_mode, "rs232");
  EXPECT_EQ(Communication("SendMode=rs232\r\n").Mode(), SendMode::kNone);
  EXPECT_EQ(Communication("SendMode=tcpip\r\n").Mode(), SendMode::kNone);
}

TEST(ConfigurationStore, TheSendModeChoosesTheLink) {
  EXPECT_EQ(Communication("SendMode=RS232\r\n").Mode(), SendMode::kSerial);
  EXPECT_EQ(Communication("SendMode=TCPIP\r\n").Mode(), SendMode::kTcp);
  EXPECT_EQ(Communication("SendMode= \"RS232\" \r\n").Mode(), SendMode::kSerial);
  EXPECT_EQ(Communication("SendMode=TCP\r\n").Mode(), SendMode::kNone);
}

TEST(ConfigurationStore, AnEntryIsReadFieldByField) {
  ExpectPanel(Panel7("16x128,Tri,192.168.0.20:80"), 16, 128, 1, "192.168.0.20:80");
  ExpectPanel(Panel7("1x5,Mono,10.0.0.5:80"), 1, 5, 0, "10.0.0.5:80");
}

TEST(ConfigurationStore, AnAddressIsTrimmedAndMayHoldFurtherCommas) {
  ExpectPanel(Panel7("8x96,Tri,  1.2.3.4:80  "), 8, 96, 1, "1.2.3.4:80");
  ExpectPanel(Panel7("8x96,Tri,a,b"), 8, 96, 1, "a,b");
  ExpectPanel(Panel7("8x96,Tri,"), 8, 96, 1, "");
}

TEST(ConfigurationStore, AnEntryWithoutAColourWordHasNoAddress) {
  ExpectPanel(Panel7("8x96"), 8, 96, 0, "");
  ExpectPanel(Panel7("8x96,"), 8, 96, 0, "");
}

TEST(ConfigurationStore, TheThreeCharactersBehindTheCommaDecideTheColour) {
  EXPECT_EQ(Panel7("8x96,Tricolour").colour_type, kTri);
  EXPECT_EQ(Panel7("8x96, Tri").colour_type, kMono);
  EXPECT_EQ(Panel7("8x96,Tr").colour_type, kMono);
  EXPECT_EQ(Panel7("8x96,Mono,Tri").colour_type, kMono);
}

TEST(ConfigurationStore, RowsAndColumnsAreLeadingNumbers) {
  ExpectPanel(Panel7("8 boxes x96,Tri"), 8, 0, 1, "Tri");
  ExpectPanel(Panel7("8 rws x96dots,Tri"), 8, 96, 1, "Tri");
  ExpectPanel(Panel7("8x9 6,Tri"), 8, 9, 1, "Tri");
  ExpectPanel(Panel7("8x,Tri"), 8, 0, 1, "Tri");
  ExpectPanel(Panel7("x96,Tri"), 0, 96, 1, "Tri");
  ExpectPanel(Panel7("8x5,Tri"), 8, 5, 1, "Tri");
}

TEST(ConfigurationStore, ANumberThatDoesNotFitIsClamped) {
  EXPECT_EQ(Panel7("65537x96,Tri").rows, 32767);
}

TEST(ConfigurationStore, OnlyDigitsMakeADimension) {
  EXPECT_EQ(Panel7("-8x96,Tri").rows, 0);
  EXPECT_EQ(Panel7("8x-96,Tri").columns, 0);
  EXPECT_FALSE(Panel7("-8x96,Tri").IsConfigured());
  EXPECT_FALSE(Panel7("8x-96,Tri").IsConfigured());
}

TEST(ConfigurationStore, ADimensionValueWithoutAnXIsAnUnconfiguredEntry) {
  EXPECT_FALSE(Panel7("8X96,Tri,1.2.3.4:80").IsConfigured());
  EXPECT_FALSE(Panel7("8").IsConfigured());
  EXPECT_FALSE(Panel7("").IsConfigured());
  EXPECT_FALSE(Panel7(",,,").IsConfigured());
}

TEST(ConfigurationStore, OnlyTheFirst34CharactersOfAValueCount) {
  ExpectPanel(Panel7("12x128,Mono,123.123.123.123:65535"), 12, 128, 0, "123.123.123.123:65535");
  ExpectPanel(Panel7("12x1280,Mono,123.123.123.123:65535"), 12, 128, 0, "123.123.123.123:65535");
  ExpectPanel(Panel7("12x12800,Mono,123.123.123.123:65535"), 12, 128, 0, "123.123.123.123:6553");
  ExpectPanel(Panel7("\"12x12800,Mono,123.123.123.123:65535\""), 12, 128, 0,
              "123.123.123.123:6553");
  ExpectPanel(Panel7(QByteArray(100000, '1') + "x96"), 0, 0, 0, "");
}

TEST(ConfigurationStore, EveryIdHasItsKey) {
  EXPECT_EQ(PanelKey(0), "ID000");
  EXPECT_EQ(PanelKey(12), "ID012");
  EXPECT_EQ(PanelKey(255), "ID255");
  const Configuration configuration = Read(
      "[Dimension Config]\r\nID000=1x8\r\nID255=2x16\r\nID256=3x24\r\nID1=4x32\r\nid009=5x40\r\n");
  EXPECT_EQ(configuration.panels[0].columns, 8);
  EXPECT_EQ(configuration.panels[255].columns, 16);
  EXPECT_EQ(configuration.panels[1].columns, 0);
  EXPECT_EQ(configuration.panels[9].columns, 40);
}

TEST(ConfigurationStore, AMissingKeyHasItsDefault) {
  const Configuration configuration = Read("");
  EXPECT_EQ(configuration.send_mode, "");
  EXPECT_EQ(configuration.Mode(), SendMode::kNone);
  EXPECT_EQ(configuration.baud_rate, 9600);
  EXPECT_EQ(configuration.com_port, 2);
  EXPECT_EQ(configuration.delay_period, 300);
}

TEST(ConfigurationStore, AStoredSettingIsRead) {
  const Configuration configuration =
      Communication("Baudrate=2400\r\nComPort=4\r\nDelay Period=1500\r\n");
  EXPECT_EQ(configuration.baud_rate, 2400);
  EXPECT_EQ(configuration.com_port, 4);
  EXPECT_EQ(configuration.delay_period, 1500);
}

TEST(ConfigurationStore, ASettingWithoutLeadingDigitsIsZero) {
  const Configuration configuration =
      Communication("Baudrate=fast\r\nComPort=\r\nDelay Period=-\r\n");
  EXPECT_EQ(configuration.baud_rate, 0);
  EXPECT_EQ(configuration.com_port, 0);
  EXPECT_EQ(configuration.delay_period, 0);
}

TEST(ConfigurationStore, ADelayPeriodBelow0OrAbove30000Is0Or30000) {
  EXPECT_EQ(Communication("Delay Period=-1\r\n").delay_period, 0);
  EXPECT_EQ(Communication("Delay Period=30000\r\n").delay_period, 30000);
  EXPECT_EQ(Communication("Delay Period=30001\r\n").delay_period, 30000);
  EXPECT_EQ(Communication("Delay Period=99999999999\r\n").delay_period, 30000);
}

TEST(ConfigurationStore, ABaudRateIsReadWhole) {
  EXPECT_EQ(Communication("Baudrate=38400\r\n").baud_rate, 38400);
  EXPECT_EQ(Communication("Baudrate=57600\r\n").baud_rate, 57600);
  EXPECT_EQ(Communication("Baudrate=115200\r\n").baud_rate, 115200);
  EXPECT_EQ(Communication("Baudrate=99999999999\r\n").baud_rate, 2147483647);
}

TEST(ConfigurationStore, APortNumberIsHeldIn16Bits) {
  EXPECT_EQ(Communication("ComPort=65538\r\n").com_port, 32767);
}

TEST(ConfigurationStore, TheSerialPortsSectionNamesAnotherDevice) {
  const Configuration configuration = Read(
      "[Communication]\r\nComPort=40\r\n[Serial Ports]\r\nCom1=/dev/ttyUSB0\r\n"
      "com3 = \"/dev/serial/by-id/panel line\"\r\nCom4=\r\nCom16=/dev/x\r\nCom40=/dev/y\r\n");
  EXPECT_EQ(SerialDevice(configuration, 1), u"/dev/ttyUSB0"_s);
  EXPECT_EQ(SerialDevice(configuration, 2), SystemPort(2));
  EXPECT_EQ(SerialDevice(configuration, 3), u"/dev/serial/by-id/panel line"_s);
  EXPECT_EQ(SerialDevice(configuration, 4), SystemPort(4));
  EXPECT_EQ(SerialDevice(configuration, 16), u"/dev/x"_s);
  EXPECT_EQ(SerialDevice(configuration, 40), u"/dev/y"_s);
}

TEST(ConfigurationStore, TheControlLinesAreThoseOfTheConfiguredPort) {
  const auto lines = [](const QByteArray& keys) {
    const Configuration configuration =
        Read("[Communication]\r\nComPort=40\r\n[Serial Ports]\r\n" + keys);
    return std::pair(configuration.dtr, configuration.rts);
  };
  using Line = std::optional<bool>;
  EXPECT_EQ(lines(""), std::pair(Line(), Line()));
  EXPECT_EQ(lines("Com40Dtr=0\r\nCom40Rts=1\r\n"), std::pair(Line(false), Line(true)));
  EXPECT_EQ(lines("com40rts = 0 \r\n"), std::pair(Line(), Line(false)));
  EXPECT_EQ(lines("Com2Dtr=0\r\nCom2Rts=0\r\n"), std::pair(Line(), Line()));
  EXPECT_EQ(lines("Com40Dtr=\r\nCom40Rts=off\r\n"), std::pair(Line(), Line()))
      << "what says neither 0 nor 1 leaves the line to the system";
}

TEST(ConfigurationStore, TheFilesSectionNamesTheCodePage) {
  const auto code_page = [](const QByteArray& line) {
    return ReadConfiguration(IniFile("[Files]\r\n" + line + "\r\n")).code_page;
  };
  EXPECT_EQ(code_page("CodePage=1251"), 1251);
  EXPECT_EQ(code_page("codepage = \"874\""), 874);
  EXPECT_EQ(code_page("CodePage="), 0);
  EXPECT_EQ(code_page("CodePage=Cyrillic"), 0);
  EXPECT_EQ(code_page("Other=1251"), 0);
  EXPECT_EQ(
      ReadConfiguration(IniFile("CodePage=1251\r\n[Language]\r\nCodePage=1251\r\n")).code_page, 0);
}

TEST(ConfigurationStore, TheStoreIsLoadedFromTheProgramsFolder) {
  const TemporaryProgramFolder folder;
  folder.Write(u"brivon.ini"_s, "[Dimension Config]\r\nID003=4x96,Tri,1.2.3.4:80\r\n");
  LoadConfiguration();
  ExpectPanel(Store().panels[3], 4, 96, kTri, "1.2.3.4:80");
  EXPECT_EQ(Store().baud_rate, 9600);
}

TEST(ConfigurationStore, EachLoadOverwritesEverythingAndMergesNothing) {
  const TemporaryProgramFolder folder;
  folder.Configure(
      "[Dimension Config]\r\nID003=4x96,Tri,1.2.3.4:80\r\n[Communication]\r\nSendMode=TCPIP\r\n"
      "Baudrate=300\r\nComPort=1\r\nDelay Period=7\r\n[Serial Ports]\r\nCom1=/dev/a\r\n");
  folder.Configure("[Dimension Config]\r\nID004=4x96\r\n");
  ExpectPanel(Store().panels[3], 0, 0, 0, "Mono");
  EXPECT_TRUE(Store().panels[4].IsConfigured());
  EXPECT_EQ(Store().send_mode, "");
  EXPECT_EQ(Store().baud_rate, 9600);
  EXPECT_EQ(Store().com_port, 2);
  EXPECT_EQ(Store().delay_period, 300);
  EXPECT_EQ(SerialDevice(Store(), 1), SystemPort(1));
}

TEST(ConfigurationStore, AMissingFileYieldsTheDefaults) {
  const TemporaryProgramFolder folder;
  folder.Configure("[Communication]\r\nBaudrate=300\r\n");
  ASSERT_TRUE(QFile::remove(ConfigurationPath()));
  LoadConfiguration();
  EXPECT_EQ(Store().baud_rate, 9600);
  EXPECT_FALSE(Store().panels[0].IsConfigured());
}

TEST(ConfigurationStore, AFolderInPlaceOfTheFileYieldsTheDefaults) {
  const TemporaryProgramFolder folder;
  ASSERT_TRUE(QDir(ProgramFolder()).mkdir(u"brivon.ini"_s));
  LoadConfiguration();
  EXPECT_EQ(Store().com_port, 2);
  // The folder makes way for the file that the end of the test writes.
  ASSERT_TRUE(QDir(ProgramFolder()).rmdir(u"brivon.ini"_s));
}

TEST(ConfigurationStore, TheFileStandsBesideTheProgram) {
  EXPECT_EQ(ProgramFolder(), QCoreApplication::applicationDirPath());
  const TemporaryProgramFolder folder;
  const auto path = [&](const QString& name) {
    return QDir::toNativeSeparators(folder.Path(name));
  };
  EXPECT_EQ(ConfigurationPath(), path(u"brivon.ini"_s));
  EXPECT_EQ(InProgramFolder(u"NEW.SRL"_s), path(u"NEW.SRL"_s));
}

TEST(ConfigurationStore, TheStoreIsEmptyBeforeItsFirstLoad) {
  const Configuration configuration;
  for (const PanelEntry& entry : configuration.panels) ExpectPanel(entry, 0, 0, 0, "");
  EXPECT_EQ(configuration.send_mode, "");
  EXPECT_EQ(configuration.baud_rate, 0);
  EXPECT_EQ(configuration.com_port, 0);
  EXPECT_EQ(configuration.delay_period, 0);
}

}  // namespace
}  // namespace Brivon1
