// What is shown of a file.
#include "files/shown_file.h"

#include <QTimeZone>

#include "brivonctl/files/checked_files.h"
#include "panel_dots/dots_as_text.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace {

using BrivonCtl::ReadShownFile;
using BrivonCtl::ShownFile;

const QDateTime kClock(QDate(2026, 3, 5), QTime(14, 7, 9), QTimeZone::utc());

class ShownFiles : public CheckedFiles {
 protected:
  ShownFile Read(const QString& name, const QByteArray& content, bool mono = false) {
    return ReadShownFile(folder_.Write(name, content), mono, kClock);
  }

  static std::string SaidBy(const ShownFile& shown, std::size_t page, int row) {
    const auto& picture = shown.pages.at(page).picture;
    return PanelDots::RowText(picture.rows.value(row), picture.clock).toStdString();
  }
};

TEST_F(ShownFiles, APageIsShownAsThePanelReceivesIt) {
  const ShownFile shown =
      Read(u"a.msg"_s, Page(2, "<L01><SA><CB>DD MMM YYYY\r\n<L02>HH:MM ~A\r\n"));
  EXPECT_EQ(shown.refusal.toStdString(), "");
  ASSERT_EQ(shown.pages.size(), 1U);
  EXPECT_EQ(shown.pages[0].picture.shape.rows, 2);
  EXPECT_EQ(shown.pages[0].picture.shape.columns, 96);
  EXPECT_TRUE(shown.pages[0].picture.shape.tri_colour);
  EXPECT_EQ(SaidBy(shown, 0, 1), "05 MAR 2026");
  EXPECT_EQ(SaidBy(shown, 0, 2), "14:07 [A]");
  EXPECT_EQ(shown.pages[0].picture.rows[1][0].colour, 'B');
}

TEST_F(ShownFiles, APanelOfOneColourHasNoColours) {
  const ShownFile shown = Read(u"a.msg"_s, Page(1, "<L01><SA><CB>Go\r\n"), true);
  ASSERT_EQ(shown.pages.size(), 1U);
  EXPECT_FALSE(shown.pages[0].picture.shape.tri_colour);
  EXPECT_EQ(shown.pages[0].picture.rows[1][0].colour, 'A');
}

TEST_F(ShownFiles, AScrollingMessageIsOneRowAsWideAsItsText) {
  const QByteArray header = "*** Brivon Shift Message File ***\r\n";
  const ShownFile shown = Read(u"a.srl"_s, header + "<SA><CB>Go <SB>on\r\n");
  ASSERT_EQ(shown.pages.size(), 1U);
  EXPECT_EQ(shown.pages[0].picture.shape.rows, 1);
  EXPECT_EQ(shown.pages[0].picture.shape.columns, 3 * 6 + 2 * 5);
  const ShownFile mono = Read(u"a.srl"_s, header + "<SA><CB> Go \r\n", true);
  EXPECT_EQ(mono.pages.at(0).picture.rows[1][0].colour, 'A');
  const ShownFile empty = Read(u"a.srl"_s, header + "\r\n");
  EXPECT_EQ(empty.pages.at(0).picture.shape.columns, 1);
  const ShownFile endless = Read(u"a.srl"_s, header + QByteArray(1'000'000, 'W') + "\r\n");
  EXPECT_EQ(endless.pages.at(0).picture.shape.columns, 32'000);
}

TEST_F(ShownFiles, AScheduleShowsItsPagesInOrder) {
  folder_.Write(u"a.msg"_s, Page(1, "<L01><SA><CA>first\r\n"));
  folder_.Write(u"b.msg"_s, Page(1, "<L01><SA><CA>second\r\n"));
  const ShownFile shown = Read(
      u"s.sch"_s,
      Schedule(3, Step("a.msg", "5", "Wipe Left") + Step("b.msg", "7") + Step("A.MSG", "9", "")));
  EXPECT_EQ(shown.refusal.toStdString(), "");
  ASSERT_EQ(shown.pages.size(), 3U);
  EXPECT_EQ(shown.pages[0].heading.toStdString(), "1: a.msg, 5 s, Wipe Left");
  EXPECT_EQ(shown.pages[1].heading.toStdString(), "2: b.msg, 7 s, Flip");
  EXPECT_EQ(SaidBy(shown, 0, 1), "first");
  EXPECT_EQ(SaidBy(shown, 1, 1), "second");
  EXPECT_EQ(SaidBy(shown, 2, 1), "first");
}

TEST_F(ShownFiles, WhatIsNotSentIsNotShown) {
  const auto refusal = [this](const QString& name, const QByteArray& content) {
    const ShownFile shown = Read(name, content);
    EXPECT_TRUE(shown.pages.empty());
    return shown.refusal.toStdString();
  };
  EXPECT_EQ(refusal(u"a.msg"_s, Page(2, "<L01>\r\n")),
            "line 5: row 2 is missing: the file ends, and by its line 2 it has 2 rows");
  EXPECT_EQ(refusal(u"a.msg"_s, Page(0, "")),
            "a page of 0 rows and 96 columns is not sent to any panel");
  EXPECT_EQ(refusal(u"s.sch"_s, Schedule(1, Step("gone.msg"))),
            "line 8: gone.msg: there is no such file; check the name and its folder");
  EXPECT_EQ(refusal(u"s.sch"_s, Schedule(1, Step(""))),
            "no step names a message file: it cannot be sent");
  folder_.Write(u"narrow.msg"_s, Page(1, "<L01>\r\n").replace("96", "4"));
  EXPECT_EQ(refusal(u"s.sch"_s, Schedule(1, Step("narrow.msg")).replace("96", "4")),
            "line 8: narrow.msg is a page that cannot be sent");
  QByteArray steps;
  for (char name = 'a'; name < 'a' + 27; ++name) {
    const QByteArray file = "page" + QByteArray::number(name - 'a' + 1) + ".msg";
    folder_.Write(QString::fromLatin1(file), Page(1, "<L01>\r\n"));
    steps += Step(file);
  }
  EXPECT_EQ(refusal(u"s.sch"_s, Schedule(27, steps)),
            "more than 26 different message files: it cannot be sent");
  EXPECT_EQ(ReadShownFile(folder_.Path(u"gone"_s), false, kClock).refusal.toStdString(),
            "there is no such file; check the name and its folder");
}

TEST_F(ShownFiles, EverySampleIsShown) {
  Brivon1::SetProgramFolder(QStringLiteral(BRIVON_SAMPLES));
  for (const char* name :
       {"messages/all_colours.msg", "messages/lane_closed.msg", "messages/roadworks.srl",
        "messages/welcome.msg", "schedules/every_day.sch"}) {
    const QString path = QStringLiteral(BRIVON_SAMPLES "/") + QLatin1String(name);
    const BrivonCtl::FileReport report = BrivonCtl::CheckFile(path);
    EXPECT_FALSE(report.IsRefused()) << name;
    EXPECT_EQ(report.Warnings(), 0) << name;
    const ShownFile shown = ReadShownFile(path, false, kClock);
    EXPECT_EQ(shown.refusal.toStdString(), "") << name;
    EXPECT_EQ(shown.pages.size(), report.kind == BrivonCtl::FileKind::kSchedule ? 3U : 1U) << name;
  }
}

}  // namespace
