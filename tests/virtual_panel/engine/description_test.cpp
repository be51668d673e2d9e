#include <gtest/gtest.h>

#include "engine/panel_description.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

TEST(PanelDescription, IsReadFromItsText) {
  QString error;
  EXPECT_EQ(ParsePanelDescription(u"7:4x96:tri"_s, &error), (PanelDescription{7, 4, 96, true}));
  EXPECT_EQ(ParsePanelDescription(u"255:12x3000:mono"_s, &error),
            (PanelDescription{255, 12, 3000, false}));
  EXPECT_EQ(ParsePanelDescription(u"1:1x1:tri"_s, &error), (PanelDescription{1, 1, 1, true}));
  EXPECT_TRUE(error.isEmpty());
}

TEST(PanelDescription, RefusesTheBroadcastAddressInWords) {
  QString error;
  EXPECT_FALSE(ParsePanelDescription(u"0:4x96:tri"_s, &error));
  EXPECT_EQ(error,
            u"panel \"0:4x96:tri\": ID 0 addresses all panels and cannot be a panel of its own"_s);
}

TEST(PanelDescription, RefusesWhatIsOutOfRangeOrMalformed) {
  for (const char* text : {"",
                           "1",
                           "1:4x96",
                           "1:4x96:tri:",
                           "256:4x96:tri",
                           "-1:4x96:tri",
                           "1:0x96:tri",
                           "1:13x96:tri",
                           "1:4x0:tri",
                           "1:4x3001:tri",
                           "1:4x96:Tri",
                           "1:4x96:",
                           "x:4x96:tri",
                           "1:4:tri",
                           "1:4x9x6:tri",
                           "1: 4x96:tri",
                           "+1:4x96:tri",
                           "99999999999:4x96:tri",
                           ":4x96:tri",
                           "1:x96:tri",
                           "1:4x:tri"}) {
    QString error;
    EXPECT_FALSE(ParsePanelDescription(QString::fromLatin1(text), &error)) << text;
    EXPECT_FALSE(error.isEmpty()) << text;
  }
}

}  // namespace
}  // namespace VirtualPanel
