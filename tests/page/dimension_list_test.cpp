// The sizes that a new file can have.
#include "page/dimension_list.h"

#include <gtest/gtest.h>

#include "support/program_folder.h"

namespace {

using Brivon1::Dimension;

QString Text(const char* text) { return QString::fromUtf8(text); }

TEST(DimensionListTest, EachDistinctSizeOnceInTheOrderOfTheLowestId) {
  TemporaryProgramFolder folder;
  folder.Configure(
      "[Dimension Config]\r\nID000=8x128,Mono\r\nID003=4x96,Tri\r\nID004=8x128,Tri\r\n"
      "ID100=0x96,Mono\r\nID101=4x0,Mono\r\nID102=96x4,Mono\r\nID255=4x97,Mono\r\n");
  const QList<Dimension> expected = {{8, 128}, {4, 96}, {96, 4}, {4, 97}};
  EXPECT_EQ(Brivon1::DistinctDimensions(Brivon1::Store()), expected);
}

TEST(DimensionListTest, ASizeReadsWithABlankBeforeBothNumbers) {
  EXPECT_EQ(Brivon1::DimensionText({4, 96}), Text(" 4x 96"));
  EXPECT_EQ(Brivon1::DimensionText({12, 192}), Text(" 12x 192"));
}

}  // namespace
