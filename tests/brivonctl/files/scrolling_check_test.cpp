// What a look through a scrolling message finds.
#include "brivonctl/files/checked_files.h"

using namespace Qt::StringLiterals;

namespace {

using ScrollingCheck = CheckedFiles;

const QByteArray kHeader = "*** Brivon Shift Message File ***\r\n";

TEST_F(ScrollingCheck, ItsLengthIsCountedWithoutCodes) {
  EXPECT_EQ(Said(u"a.srl"_s, kHeader + "<SA><CB>Road <CC>works\r\n"),
            "a.srl: scrolling message, 10 characters: ok\n");
  EXPECT_EQ(Said(u"a.srl"_s, kHeader + "\r\n"), "a.srl: scrolling message, 0 characters: ok\n");
}

TEST_F(ScrollingCheck, WithoutASecondLineItIsRefused) {
  EXPECT_EQ(Said(u"a.srl"_s, kHeader),
            "a.srl: scrolling message: refused\n"
            "  line 2: error: the message is missing: the file ends behind its first line\n");
}

TEST_F(ScrollingCheck, ALineThatIsTooLongIsRefused) {
  EXPECT_EQ(Said(u"a.srl"_s, kHeader + QByteArray(1'048'577, 'x') + "\r\n"),
            "a.srl: scrolling message: refused\n"
            "  line 2: error: the line has more than 1048576 bytes\n");
}

TEST_F(ScrollingCheck, WhatOnlyAPageReplacesScrollsAsItStands) {
  EXPECT_EQ(Said(u"a.srl"_s, kHeader + "<SA><CA>HH:MM ~A\r\n"),
            "a.srl: scrolling message, 8 characters: ok, 2 warnings\n"
            "  line 2: warning: \"HH:MM\" scrolls as it stands; only a page shows the date and the "
            "time\n"
            "  line 2: warning: \"~\" scrolls as it stands; only a page shows symbols\n");
}

}  // namespace
