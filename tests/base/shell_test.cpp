#include "base/shell.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

TEST(Shell, AWordAndATextOfTheStreamsAreInOneEncoding) {
  const QString text = u"Gleis 7 \u2192 M\u00fcnchen.msg"_s;
  EXPECT_EQ(StreamText(text), "Gleis 7 \xE2\x86\x92 M\xC3\xBCnchen.msg");
  EXPECT_EQ(TextOfWord("Gleis 7 \xE2\x86\x92 M\xC3\xBCnchen.msg"), text);
}

TEST(Shell, WhatIsWrittenToAStreamStandsThereWhole) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(WriteToStream(Stream::kOutput, "one\n"), 0);
  EXPECT_EQ(WriteToStream(Stream::kOutput, QByteArray(100'000, 'x')), 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "one\n" + std::string(100'000, 'x'));
}

}  // namespace
}  // namespace Brivon1
