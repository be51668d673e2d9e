#include "store/panel_list.h"

#include <gtest/gtest.h>

namespace Brivon1 {
namespace {

TEST(PanelList, ALineIsTheIdTheDimensionTheColourAndTheAddressFiveBlanksApart) {
  EXPECT_EQ(PanelListLine(12, {16, 128, kTri, "192.168.0.12:80"}),
            "ID012     16x128     Tri-Color     192.168.0.12:80");
  EXPECT_EQ(PanelListLine(0, {1, 8, kMono, "10.0.0.5:2101"}),
            "ID000     1x8     Mono-Color     10.0.0.5:2101");
  EXPECT_EQ(PanelListLine(255, {12, 3000, kMono, ""}), "ID255     12x3000     Mono-Color     ");
}

TEST(PanelList, AShortLineEndsWithTheColour) {
  EXPECT_EQ(ShortPanelListLine(7, {16, 96, kTri, "192.168.0.12:80"}),
            "ID007     16x96     Tri-Color");
  EXPECT_EQ(ShortPanelListLine(255, {12, 3000, kMono, ""}), "ID255     12x3000     Mono-Color");
  const PanelListEntry entry = ReadPanelListLine("ID007     16x96     Tri-Color");
  EXPECT_EQ(entry.id, 7);
  EXPECT_EQ(entry.rows, 16);
  EXPECT_EQ(entry.columns, 96);
  EXPECT_FALSE(entry.endpoint.IsUsable());
  Configuration configuration;
  configuration.panels[7] = {16, 96, kTri, "192.168.0.12:80"};
  configuration.panels[8] = {0, 96, kTri, "192.168.0.12:80"};
  EXPECT_EQ(PanelListLines(configuration, ShortPanelListLine),
            QList<QByteArray>{"ID007     16x96     Tri-Color"});
}

TEST(PanelList, TheListHoldsTheConfiguredPanelsInAscendingOrder) {
  Configuration configuration;
  configuration.panels[255] = {1, 96, kMono, "Mono"};
  configuration.panels[0] = {2, 80, kTri, "1.2.3.4:80"};
  configuration.panels[7] = {4, 0, kTri, "1.2.3.4:80"};
  configuration.panels[8] = {0, 96, kTri, "1.2.3.4:80"};
  EXPECT_EQ(PanelListLines(configuration),
            (QList<QByteArray>{"ID000     2x80     Tri-Color     1.2.3.4:80",
                               "ID255     1x96     Mono-Color     Mono"}));
}

TEST(PanelList, WithNoConfiguredPanelTheListIsEmpty) {
  EXPECT_TRUE(PanelListLines(Configuration()).isEmpty());
}

TEST(PanelList, ALineIsTakenApart) {
  const PanelListEntry entry =
      ReadPanelListLine("ID012     16x128     Tri-Color     192.168.0.12:80");
  EXPECT_EQ(entry.id, 12);
  EXPECT_EQ(entry.rows, 16);
  EXPECT_EQ(entry.columns, 128);
  EXPECT_EQ(entry.endpoint.host, "192.168.0.12");
  EXPECT_EQ(entry.endpoint.port, 80);
  EXPECT_TRUE(entry.endpoint.IsUsable());
}

TEST(PanelList, APanelAddress192Dot168Dot1Dot50Port2101ConnectsToPort2101OnThatHost) {
  const PanelListEntry entry =
      ReadPanelListLine("ID001     4x96     Mono-Color     192.168.1.50:2101");
  EXPECT_EQ(entry.endpoint.host, "192.168.1.50");
  EXPECT_EQ(entry.endpoint.port, 2101);
}

/// The endpoint of an address, which is the same by itself and at the end of a panel list line.
TcpEndpoint EndpointOf(const QByteArray& address) {
  const TcpEndpoint endpoint =
      ReadPanelListLine("ID001     4x96     Tri-Color     " + address).endpoint;
  EXPECT_EQ(ReadEndpoint(address).host, endpoint.host) << address.toStdString();
  EXPECT_EQ(ReadEndpoint(address).port, endpoint.port) << address.toStdString();
  return endpoint;
}

TEST(PanelList, AnyAddressOfTheConfigurationNamesTheSameEndpointAsItsLine) {
  EXPECT_EQ(EndpointOf(".").host, ".");
  EXPECT_EQ(EndpointOf("a.").host, "a.");
  EXPECT_EQ(EndpointOf("ab.c").host, "ab.c");
  EXPECT_EQ(EndpointOf("abcd.e").host, "bcd.e");
  EXPECT_EQ(EndpointOf("a b.c:7").host, "a b.c");
  EXPECT_EQ(EndpointOf("ab\t .c").host, "b\t .c");
  EXPECT_EQ(EndpointOf("x16x.1:80").host, "16x.1");
  EXPECT_EQ(EndpointOf("80:1.2").host, "0");
  EXPECT_EQ(EndpointOf("80:1.2").port, 1);
  EXPECT_EQ(EndpointOf("1280:1.2").host, "0");
  EXPECT_EQ(EndpointOf(":1.2").host, "");
  EXPECT_EQ(EndpointOf("10.0.0.5,192.168.0.1:9").host, "10.0.0.5,192.168.0.1");
}

TEST(PanelList, AnAddressThatBeginsWithAColonHasAPortAndNoHost) {
  EXPECT_EQ(ReadEndpoint(":1.2").host, "");
  EXPECT_EQ(ReadEndpoint(":1.2").port, 1);
  EXPECT_FALSE(ReadEndpoint(":1.2").IsUsable());
  EXPECT_FALSE(ReadEndpoint(":81.0.0.5").IsUsable());
}

TEST(PanelList, AShortFirstPartOfAnAddressHasNoBlanks) {
  EXPECT_EQ(EndpointOf("10.0.0.5:80").host, "10.0.0.5");
  EXPECT_EQ(EndpointOf("1.2.3.4:80").host, "1.2.3.4");
}

TEST(PanelList, AnAddressBeginsThreeCharactersBeforeItsFirstPoint) {
  EXPECT_EQ(EndpointOf("panel.local:80").host, "nel.local");
}

TEST(PanelList, AnAddressWithoutAPortHasPort80) {
  EXPECT_EQ(EndpointOf("10.0.0.5").host, "10.0.0.5");
  EXPECT_EQ(EndpointOf("10.0.0.5").port, 80);
  EXPECT_TRUE(EndpointOf("10.0.0.5").IsUsable());
}

TEST(PanelList, ATcpPortIs1To65535NotHeldIn16SignedBits) {
  EXPECT_EQ(EndpointOf("10.0.0.5:1").port, 1);
  EXPECT_EQ(EndpointOf("10.0.0.5:32768").port, 32768);
  EXPECT_EQ(EndpointOf("10.0.0.5:65535").port, 65535);
  EXPECT_TRUE(EndpointOf("10.0.0.5:65535").IsUsable());
}

TEST(PanelList, APortOutside1To65535IsUnusable) {
  for (const char* port : {"0", "-1", "65536", "99999999999999999999", "", "x"}) {
    EXPECT_FALSE(EndpointOf(QByteArray("10.0.0.5:") + port).IsUsable()) << port;
  }
}

TEST(PanelList, ThePortIsTheNumberBehindTheFirstColon) {
  EXPECT_EQ(EndpointOf("10.0.0.5: 81x").port, 81);
  EXPECT_EQ(EndpointOf("10.0.0.5:81:82").port, 81);
  EXPECT_EQ(EndpointOf("10.0.0.5:81:82").host, "10.0.0.5");
  EXPECT_EQ(EndpointOf("10.0.0.5 :81").host, "10.0.0.5");
}

TEST(PanelList, APanelWithoutAPointInItsAddressHasNoUsableOne) {
  for (const char* address : {"Tri", "Mono", "", "localhost:80", "a:1", ":80"}) {
    EXPECT_FALSE(EndpointOf(address).IsUsable()) << address;
  }
}

TEST(PanelList, AnAddressWithoutAHostIsUnusable) {
  EXPECT_FALSE(ReadPanelListLine("  :.").endpoint.IsUsable());
}

TEST(PanelList, EveryPanelIdComesBack) {
  for (int id = 0; id < 256; ++id) {
    EXPECT_EQ(ReadPanelListLine(PanelListLine(id, {4, 96, kTri, "1.2.3.4:5"})).id, id);
  }
}

TEST(PanelList, AnyOtherTextGivesAnEntryThatIsNoPanelOfTheList) {
  for (const char* line : {"", "ID", "ID012", "no panel at all", "ID012     16 by 128"}) {
    const PanelListEntry entry = ReadPanelListLine(line);
    EXPECT_EQ(entry.rows, 0) << line;
    EXPECT_EQ(entry.columns, 0) << line;
    EXPECT_FALSE(entry.endpoint.IsUsable()) << line;
  }
  EXPECT_EQ(ReadPanelListLine("ID999     4x96").id, 255);
  EXPECT_EQ(ReadPanelListLine("xx").rows, 0);
  EXPECT_EQ(ReadPanelListLine("ID01x96").columns, 0) << "an ID has three digits";
  EXPECT_EQ(ReadPanelListLine("ID012x96").rows, 0);
  EXPECT_EQ(ReadPanelListLine("ID012x96").columns, 96);
}

}  // namespace
}  // namespace Brivon1
