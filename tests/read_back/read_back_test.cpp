// Random pages and scrolling messages, typed, saved and sent: a panel holds what was typed, and so
// says who reads the wire.
#include <gtest/gtest.h>

#include "page/message_file.h"
#include "page/message_transmission.h"
#include "page/page_message.h"
#include "read_back/composing.h"
#include "read_back/panel_under_test.h"
#include "read_back/rounds.h"
#include "read_back/wire_reader.h"
#include "scrolling/scrolling_file.h"
#include "scrolling/scrolling_message.h"
#include "scrolling/scrolling_transmission.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::PageMessage;
using Brivon1::SaveResult;
using Brivon1::ScrollingMessage;

const QList<int> kIds = {1, 9, 26, 171, 255, 0};

class ReadBack : public testing::Test {
 protected:
  /// What a row must show. Where typed characters make a code nobody can tell from what was typed
  /// alone, and who reads the wire says it.
  ShownRow Expected(const TypedRow& typed, const WireRow& sent, bool is_page, bool tri_colour) {
    const int counted = typed.empty() ? 0 : 1;
    rows_ += counted;
    if (!IsToldAsTyped(typed, is_page, tri_colour)) return ReadText(sent.text);
    told_as_typed_ += counted;
    const ShownRow shown = ShownOf(typed, is_page, tri_colour);
    EXPECT_EQ(ReadText(sent.text), shown) << sent.text.toStdString();
    return shown;
  }

  /// Many rows must be held against what was typed; of a few rounds all may be odd.
  void ExpectManyToldAsTyped() const {
    RecordProperty("rows", rows_);
    RecordProperty("told_as_typed", told_as_typed_);
    if (rows_ < 90) return;
    EXPECT_GT(3 * told_as_typed_, rows_);
  }

  TemporaryProgramFolder folder_;
  int rows_ = 0;  // that are not empty
  int told_as_typed_ = 0;
};

TEST_F(ReadBack, APanelHoldsTheTypedPage) {
  DoRounds([this](unsigned start) {
    Choice choice(start);
    const VirtualPanel::PanelDescription shape{
        .rows = choice.Between(1, 12),
        .columns = choice.OneIn(20) ? choice.Between(1000, 3000) : choice.Between(5, 200),
        .tri_colour = choice.OneIn(2)};
    const Brivon1::Dimension size{static_cast<qint16>(shape.rows),
                                  static_cast<qint16>(shape.columns)};
    PageMessage page;
    page.Begin(size);
    Typist typist(choice, page, shape.columns / 5);
    std::vector<TypedRow> typed;
    for (int row = 1; row <= shape.rows; ++row) {
      page.SetCurrentRow(row);
      typist.BeginRow();
      for (int left = choice.Below(20); left > 0; --left) typist.DoSomething();
      if (choice.OneIn(3)) typist.FillUp();
      typed.push_back(typist.Row());
    }
    const QString path = folder_.Path(u"page.msg"_s);
    ASSERT_EQ(SaveMessageFile(path, page), SaveResult::kSaved);

    PanelUnderTest panel(folder_, kIds[choice.Below(6)], shape);
    const int number = choice.Between(1, 120);
    Brivon1::OpenLine line = panel.Line();
    ASSERT_TRUE(SendMessageFile(line, path, panel.Id(),
                                QByteArray::number(number).rightJustified(3, '0'), size));

    const QList<QByteArray> frames = panel.Frames();
    ASSERT_EQ(frames.size(), shape.rows);
    ASSERT_EQ(panel.Memory().Pages().keys(), QList<int>{number});
    EXPECT_EQ(panel.Id() != 0, panel.IsNeighbourEmpty());
    const VirtualPanel::StoredPage held = panel.Memory().Pages()[number];
    ASSERT_EQ(held.size(), shape.rows);
    for (int row = 1; row <= shape.rows; ++row) {
      SCOPED_TRACE(testing::Message() << "row " << row);
      const auto sent = ReadPageRow(frames[row - 1]);
      ASSERT_TRUE(sent) << frames[row - 1].toStdString();
      EXPECT_EQ(sent->panel, panel.Id());
      EXPECT_EQ(sent->row, row);
      EXPECT_EQ(sent->page, number);
      EXPECT_EQ(ShownOf(held[row].cells),
                Expected(typed[static_cast<std::size_t>(row - 1)], *sent, true, shape.tri_colour));
    }
  });
  ExpectManyToldAsTyped();
}

TEST_F(ReadBack, APanelHoldsTheTypedScrollingMessage) {
  DoRounds([this](unsigned start) {
    Choice choice(start);
    const VirtualPanel::PanelDescription shape{.rows = choice.Between(1, 12),
                                               .columns = choice.Between(10, 200),
                                               .tri_colour = choice.OneIn(2)};
    ScrollingMessage message;
    message.Begin();
    Typist typist(choice, message, 1000);
    typist.BeginRow();
    for (int left = choice.Below(40); left > 0; --left) typist.DoSomething();
    if (choice.OneIn(5)) typist.FillUp();
    const QString path = folder_.Path(u"line.srl"_s);
    ASSERT_EQ(WriteScrollingMessage(path, message.Row()), SaveResult::kSaved);

    PanelUnderTest panel(folder_, kIds[choice.Below(6)], shape);
    const int row = choice.Between(1, shape.rows);
    Brivon1::OpenLine line = panel.Line();
    ASSERT_TRUE(SendScrollingFile(line, path, panel.Id(), row));

    const QList<QByteArray> frames = panel.Frames();
    ASSERT_EQ(frames.size(), 1);
    const auto sent = ReadScrollingRow(frames.first());
    ASSERT_TRUE(sent) << frames.first().toStdString();
    EXPECT_EQ(sent->panel, panel.Id());
    EXPECT_EQ(sent->row, row);
    const ShownRow expected = Expected(typist.Row(), *sent, false, shape.tri_colour);
    const VirtualPanel::ScrollingLines held = panel.Memory().Scrolling();
    // A text without a byte ends the one that runs.
    ASSERT_EQ(held.keys(), sent->text.isEmpty() ? QList<int>() : QList<int>{row});
    if (sent->text.isEmpty()) {
      EXPECT_TRUE(expected.empty());
      return;
    }
    EXPECT_EQ(panel.Id() != 0, panel.IsNeighbourEmpty());
    EXPECT_EQ(ShownOf(held[row].row.cells), expected);
  });
  ExpectManyToldAsTyped();
}

}  // namespace
