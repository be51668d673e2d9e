#include <gtest/gtest.h>

#include "engine/faults.h"
#include "engine/panel_engine.h"
#include "print_answer.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

using Step = Answer::Step;

constexpr char kPoll[] = "<ID1A><?>\r\n";

class FaultTest : public testing::Test {
 protected:
  // What is answered to one poll.
  QList<Answer> Poll() { return engine_.Receive(kPoll); }

  void Set(const char* fault) {
    QString error;
    ASSERT_TRUE(ParseFault(QString::fromLatin1(fault), &faults_, &error)) << error.toStdString();
    engine_.SetFaults(faults_);
  }

  const QList<Answer> good_{{Step::kSend, "<ID1A>\r\n", 0}};
  Faults faults_;
  PanelEngine engine_{{{26, 4, 96, true}}};
};

TEST_F(FaultTest, SilentAnswersNothingButObeys) {
  Set("silent");
  for (int i = 0; i < 10; ++i) EXPECT_TRUE(Poll().isEmpty());
  EXPECT_TRUE(engine_.Receive("<ID1A><L01><P001>x \r\n").isEmpty());
  EXPECT_EQ(engine_.Page(26, 1).value(1), "x ");
  EXPECT_TRUE(engine_.Frames().last().answer.isEmpty());
}

TEST_F(FaultTest, SilentForACountSwallowsTheFirstAnswers) {
  Set("silent:2");
  EXPECT_TRUE(Poll().isEmpty());
  EXPECT_TRUE(engine_.Receive("<ID00><?>\r\n").isEmpty());  // would not be answered anyway
  EXPECT_TRUE(Poll().isEmpty());
  EXPECT_EQ(Poll(), good_);
  // Setting it again begins anew.
  engine_.SetFaults(faults_);
  EXPECT_TRUE(Poll().isEmpty());
}

TEST_F(FaultTest, GarbageIsEightWrongBytes) {
  Set("garbage");
  const QList<Answer> answers = Poll();
  ASSERT_EQ(answers.size(), 1);
  EXPECT_EQ(answers[0].bytes.size(), 8);
  EXPECT_NE(answers[0].bytes, "<ID1A>\r\n");
}

TEST_F(FaultTest, LowerCaseShowsInTheLettersOfTheAddress) {
  Set("lower-case");
  EXPECT_EQ(Poll(), (QList<Answer>{{Step::kSend, "<ID1a>\r\n", 0}}));
}

TEST_F(FaultTest, PiecesComeWithPauses) {
  Set("pieces");
  EXPECT_EQ(Poll(),
            (QList<Answer>{
                {Step::kSend, "<I", 0}, {Step::kSend, "D1A", 50}, {Step::kSend, ">\r\n", 100}}));
  Set("pieces:100");
  const QList<Answer> single = Poll();
  ASSERT_EQ(single.size(), 8);
  EXPECT_EQ(single[7], (Answer{Step::kSend, "\n", 350}));
}

TEST_F(FaultTest, LateComesLater) {
  Set("late:1500");
  EXPECT_EQ(Poll(), (QList<Answer>{{Step::kSend, "<ID1A>\r\n", 1500}}));
}

TEST_F(FaultTest, AStrayByteMakesNineBytesAtOnce) {
  Set("stray-byte");
  EXPECT_EQ(Poll(), (QList<Answer>{{Step::kSend, "\xFF<ID1A>\r\n", 0}}));
}

TEST_F(FaultTest, TheLineIsCutOnceAfterTheAnswerOfAFrame) {
  Set("close-after:2");
  EXPECT_EQ(Poll(), good_);
  EXPECT_EQ(Poll(), (QList<Answer>{{Step::kSend, "<ID1A>\r\n", 0}, {Step::kClose, {}, 0}}));
  EXPECT_EQ(Poll(), good_);
}

TEST_F(FaultTest, AFloodFollowsTheAnswer) {
  Set("flood");
  EXPECT_EQ(Poll(), (QList<Answer>{{Step::kSend, "<ID1A>\r\n", 0}, {Step::kFlood, {}, 0}}));
}

TEST_F(FaultTest, FaultsCombine) {
  Set("late:200");
  Set("pieces:2");
  Set("lower-case");
  Set("stray-byte");
  Set("close-after:1");
  EXPECT_EQ(Poll(), (QList<Answer>{{Step::kSend, "\xFF<ID", 200},
                                   {Step::kSend, "1a>\r\n", 250},
                                   {Step::kClose, {}, 250}}));
}

TEST_F(FaultTest, CanBeTakenAwayAgain) {
  Set("silent");
  EXPECT_TRUE(Poll().isEmpty());
  engine_.SetFaults(Faults{});
  EXPECT_EQ(Poll(), good_);
}

TEST(ParseFault, RefusesWhatItDoesNotKnow) {
  for (const char* text :
       {"", "loud", "silent:", "silent:0", "silent:-1", "silent:x", "garbage:1", "late",
        "close-after", "flood:3", "late:99999999999", "late:1000001", "pieces:0"}) {
    Faults faults;
    QString error;
    EXPECT_FALSE(ParseFault(QString::fromLatin1(text), &faults, &error)) << text;
    EXPECT_TRUE(error.contains(u"close-after:N"_s)) << text;
    EXPECT_EQ(faults, Faults{}) << text;
  }
  Faults faults;
  EXPECT_TRUE(ParseFault(u"late:1000000"_s, &faults, nullptr));
  EXPECT_EQ(faults.late_ms, 1'000'000);
}

TEST(FaultNames, NameTheFaultsAsTheyAreParsed) {
  EXPECT_TRUE(NamesOf(Faults{}).isEmpty());
  const QStringList names = {u"silent"_s,     u"silent:3"_s,      u"garbage"_s,
                             u"lower-case"_s, u"pieces:8"_s,      u"late:500"_s,
                             u"stray-byte"_s, u"close-after:1"_s, u"flood"_s};
  Faults all;
  for (const QString& name : names) {
    Faults single;
    ASSERT_TRUE(ParseFault(name, &single, nullptr));
    EXPECT_EQ(NamesOf(single), QStringList{name});
    EXPECT_TRUE(HasFault(name, single));
    EXPECT_FALSE(HasFault(name, Faults{}));
    EXPECT_FALSE(HasFault(name, all));
    ASSERT_TRUE(ParseFault(name, &all, nullptr));
  }
  EXPECT_EQ(NamesOf(all), names);
  EXPECT_FALSE(HasFault(u"late:501"_s, all));
  EXPECT_FALSE(HasFault(u"nonsense"_s, all));
}

TEST(FaultNames, EachFaultIsTakenAwayAlone) {
  Faults faults;
  for (const char* name : {"silent", "silent:3", "late:500", "pieces"}) {
    ASSERT_TRUE(ParseFault(QString::fromLatin1(name), &faults, nullptr));
  }
  RemoveFault(u"silent"_s, &faults);
  EXPECT_EQ(NamesOf(faults), (QStringList{u"silent:3"_s, u"pieces:3"_s, u"late:500"_s}));
  RemoveFault(u"late:2000"_s, &faults);  // whatever its number
  RemoveFault(u"nonsense"_s, &faults);
  EXPECT_EQ(NamesOf(faults), (QStringList{u"silent:3"_s, u"pieces:3"_s}));
}

}  // namespace
}  // namespace VirtualPanel
