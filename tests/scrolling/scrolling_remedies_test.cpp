// Why nothing of a scrolling message can be read, and why an order to send one is refused.
#include <gtest/gtest.h>

#include "scrolling/scrolling_file.h"
#include "scrolling/scrolling_order.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

using Brivon1::CheckScrollingOrder;
using Brivon1::Configuration;
using Brivon1::PanelListEntry;
using Brivon1::Refusal;

namespace {

constexpr const char* kHeader = "*** Brivon Shift Message File ***\r\n";

std::string Remedy(const QByteArray& content) {
  const TemporaryProgramFolder folder;
  const QString path = folder.Write(u"text.srl"_s, content);
  Brivon1::FileFailure failure;
  EXPECT_FALSE(Brivon1::ReadScrollingMessage(path, &failure));
  return Brivon1::ScrollingFileRemedy(path, failure).replace(path, u"%1"_s).toStdString();
}

TEST(ScrollingRemedies, AFileWithoutATextLineIsSaidToHaveNone) {
  EXPECT_EQ(Remedy(kHeader), "%1 ends after its first line.");
}

TEST(ScrollingRemedies, ATextThatIsTooLongToBeReadIsSaidToBe) {
  EXPECT_EQ(Remedy(kHeader + QByteArray((1 << 20) + 1, 'x')),
            "A line of %1 is longer than 1048576 bytes.");
}

TEST(ScrollingRemedies, AFileOfAnotherKindIsCalledByItsOwn) {
  EXPECT_EQ(Remedy("*** Brivon Message File ***\r\nRow = 1\r\n"),
            "%1 is a page.\nChoose a scrolling message (.srl).");
}

TEST(ScrollingRemedies, TheChecksOfAnOrderComeInTheirOrder) {
  const TemporaryProgramFolder folder;
  const QString path = folder.Path(u"text.srl"_s);
  const PanelListEntry panel{1, 4, 96, {}};
  const auto text = [&](const std::optional<PanelListEntry>& chosen, const QString& line) {
    return CheckScrollingOrder({path, chosen, line}, Configuration{})
        .value_or(Refusal{u"none"_s, {}})
        .text.toStdString();
  };
  EXPECT_EQ(text({}, {}), "File not found!");
  folder.Write(u"text.srl"_s, "any file");
  EXPECT_EQ(text({}, {}), "Invalid ID Selection!");
  EXPECT_EQ(text(panel, {}), "Invalid Line No.!");
  EXPECT_EQ(text(panel, u"5"_s), "Line No. Not Valid!");
  EXPECT_EQ(text(panel, u"4"_s), "none");
  EXPECT_EQ(text(panel, u"-3"_s), "none");
}

}  // namespace
