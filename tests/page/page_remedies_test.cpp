// Where a page breaks off, and why an order to send one is refused.
#include <gtest/gtest.h>

#include "page/message_file.h"
#include "page/page_order.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

using Brivon1::CheckPageOrder;
using Brivon1::Configuration;
using Brivon1::PanelListEntry;
using Brivon1::Refusal;

namespace {

constexpr const char* kHeader = "*** Brivon Message File ***\r\n";

class PageRemedies : public testing::Test {
 protected:
  QString Write(const QByteArray& lines) {
    return folder_.Write(u"page.msg"_s, QByteArray(kHeader) + lines);
  }

  /// Why the editor cannot open the page; "%1" is its path.
  std::string Opening(const QByteArray& lines) {
    const QString path = Write(lines);
    Brivon1::FileFailure failure;
    const bool is_open = Brivon1::LoadMessageFile(path, &failure).has_value();
    QString remedy = Brivon1::MessageFileRemedy(path, failure);
    EXPECT_EQ(is_open, remedy.isEmpty());
    return remedy.replace(path, u"%1"_s).toStdString();
  }

  /// Why nothing of it can be sent.
  std::string Sending(const QByteArray& lines) {
    const QString path = Write(lines);
    return Brivon1::MessageFileRemedy(path, Brivon1::SendingFailure(path))
        .replace(path, u"%1"_s)
        .toStdString();
  }

  TemporaryProgramFolder folder_;
};

TEST_F(PageRemedies, AMissingRowIsNamed) {
  const QByteArray lines = "Row = 3\r\nCol = 80\r\n<L01>a\r\n<L02>b\r\n";
  EXPECT_EQ(Opening(lines), "%1 ends early: row 3 of 3 is missing.");
  EXPECT_EQ(Sending(lines), "%1 ends early: row 3 of 3 is missing.");
}

TEST_F(PageRemedies, ARowWithTheNumberOfAnotherOneIsNamed) {
  const QByteArray lines = "Row = 2\r\nCol = 80\r\n<L01>a\r\n<L07>b\r\n";
  EXPECT_EQ(Opening(lines), "The line of row 2 in %1 bears the number of another row.");
  EXPECT_EQ(Sending(lines), "");  // a panel is sent it as it stands
}

TEST_F(PageRemedies, ASizeThatNoPageHasIsSaid) {
  EXPECT_EQ(Opening("Row = 13\r\nCol = 80\r\n"),
            "%1 is made for 13x80. A page has 1 to 12 rows and at least 5 dot columns.");
  EXPECT_EQ(Sending("Row = 1\r\nCol = 4\r\n<L01>a\r\n"),
            "%1 is made for 1x4. A page has 1 to 12 rows and at least 5 dot columns.");
  EXPECT_EQ(Opening("Row = 1\r\nCol = 4\r\n<L01>a\r\n"), "");  // it can be opened all the same
}

TEST_F(PageRemedies, ALineThatIsTooLongIsSaidToBe) {
  const QByteArray lines = "Row = 1\r\nCol = 80\r\n" + QByteArray((1 << 20) + 1, 'x');
  EXPECT_EQ(Opening(lines), "A line of %1 is longer than 1048576 bytes.");
  EXPECT_EQ(Sending(lines), "A line of %1 is longer than 1048576 bytes.");
}

TEST_F(PageRemedies, APageThatCanBeSentNeedsNone) {
  EXPECT_EQ(Sending("Row = 1\r\nCol = 80\r\n<L01>a\r\n"), "");
}

TEST_F(PageRemedies, TheChecksOfAnOrderComeInTheirOrder) {
  Configuration configuration;
  configuration.send_mode = "TCPIP";
  configuration.panels[1] = {.rows = 2, .columns = 96, .address = "Tri"};
  const QString path = folder_.Path(u"page.msg"_s);
  const PanelListEntry panel{1, 2, 96, {}};
  const auto text = [&](const std::optional<PanelListEntry>& chosen, const QString& page) {
    return CheckPageOrder({path, chosen, page}, configuration)
        .value_or(Refusal{u"none"_s, {}})
        .text.toStdString();
  };
  EXPECT_EQ(text({}, {}), "File not found!");
  folder_.Write(u"page.msg"_s, QByteArray(100, 'x'));
  EXPECT_EQ(text({}, {}), "Invalid ID Selection!");
  EXPECT_EQ(text(panel, {}), "Invalid Page Value!");
  EXPECT_EQ(text(panel, u"500"_s), "Error in opening file!");
  Write("Row = 4\r\nCol = 96\r\n");
  EXPECT_EQ(text(panel, u"500"_s), "Dimension not matched!");
  Write("Row = 2\r\nCol = 96\r\n");
  EXPECT_EQ(text(panel, u"500"_s), "IP address is null or invaild");
  configuration.send_mode = "RS232";
  EXPECT_EQ(text(panel, u"500"_s), "none");
}

TEST_F(PageRemedies, WithoutAPanelTheOperatorIsToldWhetherThereIsOneToChoose) {
  const QString path = Write("Row = 2\r\nCol = 96\r\n");
  Configuration configuration;
  EXPECT_EQ(CheckPageOrder({path, {}, u"1"_s}, configuration)->remedy,
            u"Set up a panel: Config in the main window."_s);
  configuration.panels[0] = {.rows = 2, .columns = 96, .address = "Mono"};
  EXPECT_EQ(CheckPageOrder({path, {}, u"1"_s}, configuration)->remedy,
            u"Choose a panel from the list."_s);
}

}  // namespace
