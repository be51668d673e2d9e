// What a panel shows of a page, before it is sent.
#include "page/page_picture.h"

#include <random>

#include <QDir>
#include <QFile>
#include <QTimeZone>

#include <gtest/gtest.h>

#include "base/file_checks.h"
#include "engine/panel_engine.h"
#include "page/message_file_fixture.h"
#include "page/message_transmission.h"
#include "panel_dots/dots_as_text.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using PanelDots::DotMatrix;
using PanelDots::PanelPicture;

const QDateTime kClock(QDate(2026, 3, 5), QTime(14, 7, 9), QTimeZone::utc());

QString SaidBy(const PanelPicture& picture, int row) {
  return PanelDots::RowText(picture.rows.value(row), picture.clock);
}

TEST(PagePicture, ARowLineIsWhatAPanelMakesOfItsText) {
  const PanelPicture picture = PagePicture({"<L01><SA><CB>I", "<L02>"}, {2, 6}, kTri, kClock);
  EXPECT_EQ(PanelDots::Shown(PanelDots::DotsOf(picture, 0)),
            ".ggg..\n"
            "..g...\n"
            "..g...\n"
            "..g...\n"
            "..g...\n"
            "..g...\n"
            ".ggg..\n"
            "......\n"
            "......\n......\n......\n......\n......\n......\n......\n......\n");
}

TEST(PagePicture, DateTimeAndSymbolsAreThePanelsOwn) {
  const PanelPicture picture =
      PagePicture({"<L01><SA><CA>DD MMM YYYY", "<L02>HH:MM ~A"}, {2, 96}, kTri, kClock);
  EXPECT_EQ(SaidBy(picture, 1), u"05 MAR 2026"_s);
  EXPECT_EQ(SaidBy(picture, 2), u"14:07 [A]"_s);
}

TEST(PagePicture, ASymbolWhoseCharactersDifferInColourGoesByTheLiteralText) {
  const PanelPicture picture = PagePicture({"<L01><SA><CA>~<CB>A"}, {1, 96}, kTri, kClock);
  EXPECT_EQ(SaidBy(picture, 1), u"[<]CB>A"_s);
}

TEST(PagePicture, APanelOfOneColourReceivesNoColoursAndNoBlanksAtTheEnds) {
  const QList<QByteArray> lines = {"<L01><CB>  Go <CP>on ", "<L02><SA><CB>  Go <CP>on "};
  const PanelPicture one = PagePicture(lines, {2, 96}, kMono, kClock);
  EXPECT_FALSE(one.shape.tri_colour);
  EXPECT_EQ(SaidBy(one, 1), u"Go on"_s);
  EXPECT_EQ(SaidBy(one, 2), u"  Go on"_s) << "the text begins with the code for its size";
  const PanelPicture three = PagePicture(lines, {2, 96}, kTri, kClock);
  EXPECT_TRUE(three.shape.tri_colour);
  EXPECT_EQ(SaidBy(three, 1), u"  Go on "_s);
  EXPECT_EQ(three.rows[1].at(2).colour, 'B');
}

TEST(PagePicture, OfMoreRowsThanThePageHasTheFirstAreShown) {
  const PanelPicture picture = PagePicture({"<L01>a", "<L02>b"}, {1, 96}, kTri, kClock);
  EXPECT_EQ(picture.shape.rows, 1);
  EXPECT_EQ(picture.rows.keys(), QList<int>{1});
}

TEST(PagePicture, ASizeThatIsNoneIsNoDots) {
  const PanelPicture picture = PagePicture(QList<QByteArray>{"<L01>a"}, {-1, -96}, kTri, kClock);
  EXPECT_EQ(PanelDots::DotsOf(picture, 0), DotMatrix(0, 0));
}

// What a panel shows that was sent the file.
class SentPage : public MessageFile {
 protected:
  PanelPicture Sent(const QString& path, Dimension dimension, qint16 colour_type) {
    const auto frames = MessageFrames(path, 7, "001", dimension, colour_type);
    if (!frames) {
      ADD_FAILURE() << "the file is refused";
      return {};
    }
    VirtualPanel::PanelEngine engine({{7, dimension.rows, dimension.columns, colour_type == kTri}},
                                     [] { return kClock; });
    for (const QByteArray& frame : *frames) engine.Receive(frame);
    PanelPicture picture;
    picture.shape = {dimension.rows, dimension.columns, colour_type == kTri};
    const VirtualPanel::StoredPage shown = engine.ShownRows(7);
    for (auto row = shown.cbegin(); row != shown.cend(); ++row) {
      picture.rows.insert(row.key(), row->cells);
    }
    picture.clock = engine.Clock(7);
    return picture;
  }

  /// `rows` are those of the file.
  void ExpectTheSame(const QString& path, const PageRows& rows) {
    MessageFileReader file(path);
    ASSERT_TRUE(file.FileDimension());
    const Dimension dimension = *file.FileDimension();
    QList<QByteArray> lines;
    while (const auto line = file.NextRowLine()) lines.append(*line);
    for (const qint16 colour_type : {kTri, kMono}) {
      SCOPED_TRACE(colour_type == kTri ? "three colours" : "one colour");
      const PanelPicture sent = Sent(path, dimension, colour_type);
      ExpectTheSame(PagePicture(rows, dimension, colour_type, kClock), sent);
      ExpectTheSame(PagePicture(lines, dimension, colour_type, kClock), sent);
    }
  }

 private:
  static void ExpectTheSame(const PanelPicture& shown, const PanelPicture& sent) {
    for (const qint64 phase : {qint64{0}, PanelDots::kBlinkMs}) {
      EXPECT_EQ(PanelDots::DotsOf(shown, phase), PanelDots::DotsOf(sent, phase));
    }
    for (int row = 1; row <= sent.shape.rows; ++row) {
      EXPECT_EQ(PanelDots::IsCut(shown, row), PanelDots::IsCut(sent, row)) << row;
    }
  }
};

TEST_F(SentPage, EverySampleIsShownAsThePanelShowsItThatWasSentIt) {
  const QDir folder(QStringLiteral(BRIVON_SAMPLES "/messages"));
  const QStringList names = folder.entryList({u"*.msg"_s});
  EXPECT_FALSE(names.isEmpty());
  for (const QString& name : names) {
    SCOPED_TRACE(name.toStdString());
    const auto page = LoadMessageFile(folder.filePath(name));
    ASSERT_TRUE(page);
    ExpectTheSame(folder.filePath(name), page->rows);
  }
}

TEST_F(SentPage, AnyPageIsShownAsThePanelShowsItThatWasSentIt) {
  std::mt19937 random(23);
  const auto below = [&](unsigned bound) { return static_cast<int>(random() % bound); };
  const QList<QByteArray> parts = {"DD MMM YYYY", "HH:MM", "~A", "~Z", "~",   "<SE>",
                                   "<CB>",        "<",     ">",  "  ", "<GA>"};
  for (int n = 0; n < 100; ++n) {
    SCOPED_TRACE(n);
    PageMessage page = PageOf(static_cast<qint16>(1 + below(12)),
                              static_cast<qint16>(n % 50 == 0 ? 3000 : 10 + below(200)));
    for (int row = 1; row <= page.Rows(); ++row) {
      page.SetCurrentRow(row);
      for (int part = below(12); part > 0; --part) {
        if (below(2) == 0) page.ChooseColour(below(16));
        if (below(2) == 0) page.ChooseSize(below(4));
        if (below(4) == 0) page.ChooseBlink(below(2) == 0);
        if (below(3) == 0) {
          page.TypeAll(parts[below(static_cast<unsigned>(parts.size()))]);
        } else {
          page.TypeAll({QByteArray(1 + below(5), static_cast<char>(0x20 + below(0xE0)))});
        }
      }
    }
    ASSERT_EQ(SaveMessageFile(Path(), page), SaveResult::kSaved);
    PageRows rows;
    for (int row = 1; row <= page.Rows(); ++row) {
      rows[static_cast<std::size_t>(row - 1)] = page.Row(row);
    }
    ExpectTheSame(Path(), rows);
    if (testing::Test::HasFailure()) return;
  }
}

}  // namespace
}  // namespace Brivon1
