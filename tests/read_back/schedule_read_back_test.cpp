// Random schedules, saved and sent with their pages: a panel holds what was composed, and so says
// who reads the wire.
#include <array>

#include <gtest/gtest.h>

#include "page/message_file.h"
#include "read_back/composing.h"
#include "read_back/panel_under_test.h"
#include "read_back/rounds.h"
#include "read_back/wire_reader.h"
#include "schedule/schedule_file.h"
#include "schedule/schedule_transmission.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::PageMessage;

/// A schedule and its pages are as many files as this many pages.
constexpr int kShare = 5;

struct Effect {
  const char* name;
  char code;
};

constexpr std::array<Effect, 8> kEffects = {{{"Appear", 'A'},
                                             {"Flip", 'B'},
                                             {"Open", 'C'},
                                             {"Wipe Right", 'D'},
                                             {"Wipe Left", 'E'},
                                             {"Fall", 'F'},
                                             {"Slide", 'G'},
                                             {"Shift", 'H'}}};

/// A part of a schedule's time, as it is typed, as it is sent and as a panel has it.
struct TimePart {
  QByteArray typed = "**";
  QByteArray sent = "**";
  std::optional<int> value{};
};

TimePart AnyTime(Choice& choice, int bound) {
  if (choice.OneIn(4)) return {};
  const int value = choice.Below(bound);
  const QByteArray number = QByteArray::number(value);
  const QByteArray two_digits = number.rightJustified(2, '0');
  return {choice.OneIn(2) ? number : two_digits, two_digits, value};
}

class ScheduleReadBack : public testing::Test {
 protected:
  /// A file of a page of one row, and what a panel of three colours shows of it.
  static ShownRow WritePage(Choice& choice, const QString& path, const Brivon1::Dimension& size) {
    PageMessage page;
    page.Begin(size);
    Typist typist(choice, page, size.columns / 5);
    do {
      page.Begin(size);
      typist.BeginRow();
      for (int left = choice.Below(10); left > 0; --left) typist.DoSomething();
    } while (!IsToldAsTyped(typist.Row(), true, true));
    EXPECT_EQ(SaveMessageFile(path, page), Brivon1::SaveResult::kSaved);
    return ShownOf(typist.Row(), true, true);
  }

  TemporaryProgramFolder folder_;
};

TEST_F(ScheduleReadBack, APanelHoldsTheScheduleAndItsPages) {
  DoRounds(
      [this](unsigned start) {
        Choice choice(start);
        const Brivon1::Dimension size{1, static_cast<qint16>(choice.Between(20, 120))};
        // Mostly as many files as a letter has pages; with more of them they run on into the
        // next's.
        const int files = choice.OneIn(5) ? choice.Between(13, 26) : choice.Between(1, 12);
        std::vector<ShownRow> pages;
        QList<QByteArray> fields;
        for (int file = 0; file < files; ++file) {
          const QString path = folder_.Path(u"page%1.msg"_s.arg(file));
          pages.push_back(WritePage(choice, path, size));
          fields.append(Brivon1::PathField(path).value_or(QByteArray()));
          ASSERT_FALSE(fields.last().isEmpty());
        }

        Brivon1::Schedule schedule;
        const TimePart hour = AnyTime(choice, 24);
        const TimePart minute = AnyTime(choice, 60);
        schedule.weekday = choice.Below(8);
        schedule.hour = hour.typed;
        schedule.minute = minute.typed;
        schedule.dimension = size;
        const int letter = choice.Below(10);
        std::vector<WireStep> steps;
        QList<int> order;  // in which the files are named first
        for (int left = choice.Between(1, 32); left > 0; --left) {
          const int file = choice.Below(files);
          if (!order.contains(file)) order.append(file);
          const Effect& effect = kEffects[static_cast<std::size_t>(choice.Below(8))];
          const auto delay = static_cast<qint16>(choice.OneIn(4) ? choice.Between(100, 32'767)
                                                                 : choice.Between(0, 99));
          schedule.Append(
              {fields[file], delay, Brivon1::FixedField(effect.name, Brivon1::kFeatureField)});
          steps.push_back(
              {letter * 12 + 1 + static_cast<int>(order.indexOf(file)), delay, effect.code});
        }
        const QString path = folder_.Path(u"week.sch"_s);
        ASSERT_EQ(SaveScheduleFile(path, schedule), Brivon1::ScheduleSaveResult::kSaved);

        PanelUnderTest panel(folder_, choice.OneIn(6) ? 0 : choice.Between(1, 199),
                             {.rows = 1, .columns = size.columns, .tri_colour = true});
        Brivon1::OpenLine line = panel.Line();
        const char code = "ABCDEFGHIJ"[letter];
        ASSERT_TRUE(SendScheduleFile(
            line, path, panel.Id(), QString(QLatin1Char(code)),
            [](const Brivon1::Refusal& refusal) { ADD_FAILURE() << refusal.text.toStdString(); }));

        const QList<QByteArray> frames = panel.Frames();
        ASSERT_EQ(frames.size(), order.size() + 1);
        const auto sent = ReadSchedule(frames.last());
        ASSERT_TRUE(sent) << frames.last().toStdString();
        EXPECT_EQ(sent->panel, panel.Id());
        EXPECT_EQ(sent->letter, code);
        EXPECT_EQ(sent->weekday, schedule.weekday == 0 ? QByteArray("*")
                                                       : QByteArray::number(schedule.weekday - 1));
        EXPECT_EQ(sent->hour, hour.sent);
        EXPECT_EQ(sent->minute, minute.sent);
        EXPECT_EQ(sent->steps, steps);

        const VirtualPanel::PanelMemory& memory = panel.Memory();
        ASSERT_EQ(memory.StoredSchedules().keys(), QList<char>{code});
        const VirtualPanel::Schedule held = memory.StoredSchedules()[code];
        EXPECT_EQ(held.weekday,
                  schedule.weekday == 0 ? std::nullopt : std::optional<int>(schedule.weekday - 1));
        EXPECT_EQ(held.hour, hour.value);
        EXPECT_EQ(held.minute, minute.value);
        ASSERT_EQ(held.entries.size(), static_cast<qsizetype>(steps.size()));
        for (qsizetype at = 0; at < held.entries.size(); ++at) {
          const VirtualPanel::ScheduleEntry& entry = held.entries[at];
          EXPECT_EQ((WireStep{entry.page, entry.delay, entry.feature}),
                    steps[static_cast<std::size_t>(at)])
              << at;
        }
        EXPECT_EQ(memory.Pages().size(), order.size());
        for (qsizetype at = 0; at < order.size(); ++at) {
          SCOPED_TRACE(testing::Message() << "page " << at);
          const ShownRow& expected = pages[static_cast<std::size_t>(order[at])];
          const auto row = ReadPageRow(frames[at]);
          ASSERT_TRUE(row) << frames[at].toStdString();
          const int number = letter * 12 + 1 + static_cast<int>(at);
          EXPECT_EQ(row->page, number);
          EXPECT_EQ(ReadText(row->text), expected);
          EXPECT_EQ(ShownOf(memory.Pages()[number][1].cells), expected);
        }
      },
      kShare);
}

}  // namespace
