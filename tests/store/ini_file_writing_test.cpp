// Single changes of a file: what a change adds or takes away, and that everything else stays.
#include <random>

#include <gtest/gtest.h>

#include "store/ini_file.h"
#include "store/ini_values.h"

namespace Brivon1 {
namespace {

QByteArray AfterRemove(const QByteArray& content, QByteArrayView section, QByteArrayView key) {
  IniFile file(content);
  file.RemoveKey(section, key);
  EXPECT_EQ(file.Value(section, key), std::nullopt);
  return file.Content();
}

TEST(IniFileWriting, AChangedKeyStaysInItsPlace) {
  EXPECT_EQ(AfterSet("[A]\r\nx=1\r\ny=2\r\n", "A", "x", "5"), "[A]\r\nx=5\r\ny=2\r\n");
  EXPECT_EQ(AfterSet("[A]\r\nx=1", "A", "x", "5"), "[A]\r\nx=5");
  EXPECT_EQ(AfterSet("[A]\nx=1\ny=2\n", "A", "x", ""), "[A]\nx=\ny=2\n");
}

TEST(IniFileWriting, AChangedKeyKeepsItsOwnSpelling) {
  EXPECT_EQ(AfterSet("[a]\r\n  cOMport =1\r\n", "A", "ComPort", "3"), "[a]\r\n  cOMport =3\r\n");
}

TEST(IniFileWriting, OnlyTheMatchThatIsReadIsChanged) {
  EXPECT_EQ(AfterSet("[A]\r\nx=1\r\nx=2\r\n[A]\r\nx=3\r\n", "A", "x", "5"),
            "[A]\r\nx=5\r\nx=2\r\n[A]\r\nx=3\r\n");
  EXPECT_EQ(AfterSet("x=0\r\n;x=1\r\n[A]\r\n;x=1\r\nx=2\r\n", "A", "x", "5"),
            "x=0\r\n;x=1\r\n[A]\r\n;x=1\r\nx=5\r\n");
}

TEST(IniFileWriting, ANewKeyStandsAtTheEndOfItsSection) {
  EXPECT_EQ(AfterSet("[A]\r\nx=1\r\n[B]\r\nz=3\r\n", "A", "y", "2"),
            "[A]\r\nx=1\r\ny=2\r\n[B]\r\nz=3\r\n");
  EXPECT_EQ(AfterSet("[A]\r\nx=1\r\n\r\n\r\n[B]\r\n", "A", "y", "2"),
            "[A]\r\nx=1\r\ny=2\r\n\r\n\r\n[B]\r\n");
  EXPECT_EQ(AfterSet("[A]\r\n;about\r\n[B]\r\n", "A", "y", "2"), "[A]\r\n;about\r\ny=2\r\n[B]\r\n");
  EXPECT_EQ(AfterSet("[A]\r\n\r\n[B]\r\n", "A", "y", "2"), "[A]\r\ny=2\r\n\r\n[B]\r\n");
}

TEST(IniFileWriting, ANewKeyOfADoubledSectionStandsInTheFirst) {
  EXPECT_EQ(AfterSet("[A]\r\nx=1\r\n[A]\r\ny=3\r\n", "A", "y", "2"),
            "[A]\r\nx=1\r\ny=2\r\n[A]\r\ny=3\r\n");
}

TEST(IniFileWriting, ANewSectionStandsAtTheEndOfTheFile) {
  EXPECT_EQ(AfterSet("", "A", "x", "1"), "[A]\r\nx=1\r\n");
  EXPECT_EQ(AfterSet("[B]\r\nx=1\r\n", "A", "x", "1"), "[B]\r\nx=1\r\n[A]\r\nx=1\r\n");
  EXPECT_EQ(AfterSet("x=0\r\n", "A", "x", "1"), "x=0\r\n[A]\r\nx=1\r\n");
}

TEST(IniFileWriting, ALastLineWithoutItsEndGetsOneBeforeALineFollows) {
  EXPECT_EQ(AfterSet("[A]\r\nx=1", "A", "y", "2"), "[A]\r\nx=1\r\ny=2\r\n");
  EXPECT_EQ(AfterSet("[A]\nx=1", "B", "y", "2"), "[A]\nx=1\n[B]\ny=2\n");
  EXPECT_EQ(AfterSet("[A]", "A", "y", "2"), "[A]\r\ny=2\r\n");
}

TEST(IniFileWriting, ALastLineWithoutItsEndStaysSoWhereNoLineFollows) {
  EXPECT_EQ(AfterSet("[A]\r\nx=1\r\n[B]\r\nz=3", "A", "y", "2"), "[A]\r\nx=1\r\ny=2\r\n[B]\r\nz=3");
  EXPECT_EQ(AfterSet("[A]\r\nx=1\r\n[B]\r\nz=3", "B", "z", "4"), "[A]\r\nx=1\r\n[B]\r\nz=4");
}

TEST(IniFileWriting, ANewLineEndsAsTheFirstLineOfTheFileDoes) {
  EXPECT_EQ(AfterSet("[A]\nx=1\r\n", "A", "y", "2"), "[A]\nx=1\r\ny=2\n");
  EXPECT_EQ(AfterSet("[A]\r\nx=1\n", "A", "y", "2"), "[A]\r\nx=1\ny=2\r\n");
}

TEST(IniFileWriting, AKeyIsAddedBehindAMarkOfUtf8) {
  EXPECT_EQ(AfterSet("\xEF\xBB\xBF[A]\r\nx=1\r\n", "A", "y", "2"),
            "\xEF\xBB\xBF[A]\r\nx=1\r\ny=2\r\n");
}

TEST(IniFileWriting, ARemovedKeyLosesItsLineAndNothingElse) {
  EXPECT_EQ(AfterRemove("[A]\r\nx=1\r\ny=2\r\n[B]\r\nx=3\r\n", "A", "x"),
            "[A]\r\ny=2\r\n[B]\r\nx=3\r\n");
  EXPECT_EQ(AfterRemove("[A]\r\nx=1", "a", "X"), "[A]\r\n");
}

TEST(IniFileWriting, ARemovedKeyDoesNotComeBackFromAHiddenRepetition) {
  EXPECT_EQ(AfterRemove("[A]\r\nx=1\r\ny=2\r\n X =3\r\n;x=4\r\n[A]\r\nx=5\r\n", "A", "x"),
            "[A]\r\ny=2\r\n;x=4\r\n[A]\r\nx=5\r\n");
}

TEST(IniFileWriting, RemovingAMissingKeyChangesNothing) {
  EXPECT_EQ(AfterRemove("[A]\r\nx=1\r\n", "A", "y"), "[A]\r\nx=1\r\n");
  EXPECT_EQ(AfterRemove("x=1\r\n[A]\r\n", "B", "x"), "x=1\r\n[A]\r\n");
  EXPECT_EQ(AfterRemove("", "A", "x"), "");
}

TEST(IniFileWriting, SeveralChangesAddUp) {
  IniFile file("[A]\r\nx=1\r\n");
  file.SetValue("A", "y", "2");
  file.SetValue("B", "z", "3");
  file.SetValue("A", "x", "4");
  file.RemoveKey("A", "y");
  file.SetValue("A", "y", "5");
  file.SetValue("B", "w", "6");
  EXPECT_EQ(file.Content(), "[A]\r\nx=4\r\ny=5\r\n[B]\r\nz=3\r\nw=6\r\n");
}

/// Makes the surroundings of a key: lines of random bytes that are neither sections nor that key.
class RandomLines {
 public:
  explicit RandomLines(unsigned seed) : random_(seed) {}

  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }

  QByteArray LineEnd() { return Below(2) == 0 ? "\r\n" : "\n"; }

  QByteArray Blank() {
    static const QByteArray kBlanks[] = {"", " ", "\t ", "\r"};
    return kBlanks[Below(4)] + LineEnd();
  }

  QByteArray Line() {
    static const QByteArray kBeginnings[] = {"", ";", "key=", "Target=", "=", "\"", "  ", "a b = "};
    QByteArray line = kBeginnings[Below(8)];
    for (int length = Below(20); length > 0; --length) {
      const char byte = static_cast<char>(Below(256));
      line += byte == '\n' || byte == '[' ? '(' : byte;
    }
    return line + "z" + LineEnd();
  }

  QByteArray Lines() {
    QByteArray lines;
    for (int count = Below(6); count > 0; --count) lines += Below(4) == 0 ? Blank() : Line();
    return lines;
  }

  /// A section of another name; now and then with the key in question in it.
  QByteArray OtherSection() {
    const QByteArray header = "[Other " + QByteArray::number(Below(3)) + "]" + LineEnd();
    return header + Lines() + (Below(2) == 0 ? "Target Key=elsewhere" + LineEnd() : QByteArray());
  }

 private:
  std::mt19937 random_;
};

TEST(IniFileWriting, EverythingElseInARandomFileSurvivesByteForByte) {
  for (unsigned seed = 0; seed < 2000; ++seed) {
    RandomLines random(seed);
    const QByteArray first_end = random.LineEnd();
    QByteArray before = ";first" + first_end + random.Lines();
    if (random.Below(2) == 0) before += random.OtherSection();
    const QByteArray header = " [ tARGET ]x" + random.LineEnd();
    // Ends with a line that is not blank: a new key stands behind it.
    const QByteArray body = random.Lines() + random.Line();
    QByteArray after;
    while (random.Below(3) == 0) after += random.Blank();
    if (random.Below(2) == 0) after += random.OtherSection() + "[Target]\nTarget Key=hidden\n";
    if (random.Below(2) == 0) after += "[last]" + random.Lines() + "no line end";
    const QByteArray old_left = "\ttARGET kEY =";
    const QByteArray end = random.LineEnd();
    const QByteArray surrounded = before + header + body;
    const QByteArray with_key = surrounded + old_left + " \"old\" " + end + after;
    const QByteArray without_key = surrounded + after;

    EXPECT_EQ(IniFile(with_key).Content(), with_key) << seed;
    EXPECT_EQ(ValueIn(with_key, "Target", "Target Key"), "old") << seed;
    EXPECT_EQ(AfterSet(with_key, "Target", "Target Key", "new=1"),
              surrounded + old_left + "new=1" + end + after)
        << seed;
    EXPECT_EQ(AfterRemove(with_key, "Target", "Target Key"), without_key) << seed;
    EXPECT_EQ(ValueIn(without_key, "Target", "Target Key"), "(none)") << seed;
    EXPECT_EQ(AfterSet(without_key, "Target", "Target Key", "new"),
              surrounded + "Target Key=new" + first_end + after)
        << seed;
    EXPECT_EQ(AfterSet(before, "Target", "Target Key", "new"),
              before + "[Target]" + first_end + "Target Key=new" + first_end)
        << seed;
  }
}

}  // namespace
}  // namespace Brivon1
