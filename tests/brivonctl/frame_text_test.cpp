#include "reports/frame_text.h"

#include <gtest/gtest.h>

namespace BrivonCtl {
namespace {

TEST(FrameText, PrintableCharactersStandAsTheyAre) {
  EXPECT_EQ(FrameText("<ID01><L01><P007><SA>Hi ~!"), "<ID01><L01><P007><SA>Hi ~!");
}

TEST(FrameText, LineEndsBackslashesAndOtherBytesAreEscaped) {
  EXPECT_EQ(FrameText("a\\b\r\n"), "a\\\\b\\r\\n");
  EXPECT_EQ(FrameText(QByteArrayView("\0\t\x1b\x7f\x80\xff", 6)), "\\x00\\x09\\x1b\\x7f\\x80\\xff");
}

}  // namespace
}  // namespace BrivonCtl
