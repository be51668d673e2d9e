// Many changes of one file, and changes of the largest files: the outcome is that of one change
// after the other, and no change costs a pass over all of the file.
#include <memory>
#include <random>

#include <gtest/gtest.h>

#include "store/ini_file.h"

namespace Brivon1 {
namespace {

constexpr qsizetype kLargest = 4 << 20;

TEST(IniFileChanges, AKeyIsRemovedWithAllItsRepetitionsAndNothingElse) {
  QByteArray repetitions;
  QByteArray others;
  for (int i = 0; i < 20000; ++i) {
    const QByteArray other = "other" + QByteArray::number(i) + "=1\r\n";
    repetitions += "X=" + QByteArray::number(i) + "\r\n" + other;
    others += other;
  }
  IniFile file("[A]\r\n" + repetitions + "\r\n[B]\r\nx=1\r\n");
  file.RemoveKey("A", "x");
  EXPECT_EQ(file.Value("A", "x"), std::nullopt);
  EXPECT_EQ(file.Content(), "[A]\r\n" + others + "\r\n[B]\r\nx=1\r\n");
  file.SetValue("A", "x", "new");
  EXPECT_EQ(file.Content(), "[A]\r\n" + others + "x=new\r\n\r\n[B]\r\nx=1\r\n");
}

TEST(IniFileChanges, ARepeatedKeyIsChangedInItsFirstLine) {
  IniFile file("[A]\r\nx=1\r\nx=2\r\nx=3\r\n");
  file.SetValue("A", "X", "4");
  EXPECT_EQ(file.Content(), "[A]\r\nx=4\r\nx=2\r\nx=3\r\n");
  file.RemoveKey("A", "x");
  file.SetValue("A", "X", "5");
  EXPECT_EQ(file.Content(), "[A]\r\nX=5\r\n");
}

TEST(IniFileChanges, ANewKeyStandsAboveBlankLinesThatRemovedOnesUncover) {
  IniFile file("[A]\r\nx=1\r\n\r\ny=2\r\n \r\nz=3\r\n\r\n[B]\r\n");
  file.RemoveKey("A", "z");
  file.RemoveKey("A", "y");
  file.SetValue("A", "w", "4");
  EXPECT_EQ(file.Content(), "[A]\r\nx=1\r\nw=4\r\n\r\n \r\n\r\n[B]\r\n");
  file.RemoveKey("A", "w");
  file.RemoveKey("A", "x");
  file.SetValue("A", "v", "5");
  EXPECT_EQ(file.Content(), "[A]\r\nv=5\r\n\r\n \r\n\r\n[B]\r\n");
}

TEST(IniFileChanges, ASectionIsAddedBehindALastLineThatWasRemoved) {
  IniFile file("[A]\r\nx=1");
  file.RemoveKey("A", "x");
  file.SetValue("B", "y", "2");
  EXPECT_EQ(file.Content(), "[A]\r\n[B]\r\ny=2\r\n");
  IniFile unended("[A]\r\nx=1\r\n  ");
  unended.RemoveKey("A", "x");
  unended.SetValue("B", "y", "2");
  EXPECT_EQ(unended.Content(), "[A]\r\n  \r\n[B]\r\ny=2\r\n");
  IniFile twice("[A]\r\nx=1");
  twice.SetValue("B", "y", "2");
  twice.SetValue("A", "z", "3");
  EXPECT_EQ(twice.Content(), "[A]\r\nx=1\r\nz=3\r\n[B]\r\ny=2\r\n");
  IniFile only_a_mark("\xEF\xBB\xBF");
  only_a_mark.SetValue("B", "y", "2");
  EXPECT_EQ(only_a_mark.Content(), "\xEF\xBB\xBF\r\n[B]\r\ny=2\r\n");
}

TEST(IniFileChanges, ASectionBetweenNamesakesOfAnotherKeepsItsPlace) {
  IniFile file("[A]\r\nx=1\r\n[B]\r\n[a]\r\nx=2\r\n\r\n[C]\r\n[b]\r\nx=3\r\n");
  file.SetValue("B", "x", "4");
  file.SetValue("C", "x", "5");
  file.RemoveKey("A", "x");
  EXPECT_EQ(file.Content(), "[A]\r\n[B]\r\nx=4\r\n[a]\r\nx=2\r\n\r\n[C]\r\nx=5\r\n[b]\r\nx=3\r\n");
}

TEST(IniFileChanges, ACopyAndItsOriginalChangeApart) {
  auto original = std::make_unique<IniFile>("[A]\r\nx=1\r\ny=2\r\n");
  original->SetValue("A", "x", "3");
  IniFile copy = *original;
  original->RemoveKey("A", "y");
  EXPECT_EQ(original->Content(), "[A]\r\nx=3\r\n");
  original.reset();
  copy.SetValue("A", "y", "4");
  EXPECT_EQ(copy.Content(), "[A]\r\nx=3\r\ny=4\r\n");
}

/// A random file of few different names, so that they meet often, and random changes of it.
class RandomFile {
 public:
  explicit RandomFile(unsigned seed) : random_(seed) {}

  QByteArray Content() {
    static const char* const kLines[] = {"[A]",    "[ a ]", "[B",     "[c]d",     "x=1",
                                         " X = 2", "y=3",   "y=\"\"", ";x=4",     "text",
                                         "=5",     "",      "  ",     "\xDF=\xC4"};
    QByteArray content = Below(8) == 0 ? "\xEF\xBB\xBF" : "";
    for (int count = Below(12); count > 0; --count) {
      content += kLines[Below(14)];
      if (count > 1 || Below(2) == 0) content += Below(4) == 0 ? "\n" : "\r\n";
    }
    return content;
  }

  void Change(IniFile& one, IniFile& other) {
    static const char* const kSections[] = {"A", "b", "C", "new"};
    static const char* const kKeys[] = {"x", "Y", "z", "\xDF"};
    const char* section = kSections[Below(4)];
    const char* key = kKeys[Below(4)];
    if (Below(2) == 0) {
      one.RemoveKey(section, key);
      other.RemoveKey(section, key);
    } else {
      const QByteArray value = QByteArray::number(Below(100));
      one.SetValue(section, key, value);
      other.SetValue(section, key, value);
    }
  }

 private:
  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }

  std::mt19937 random_;
};

TEST(IniFileChanges, ManyChangesOfOneFileAreAsManyOfAFileReadAnewEachTime) {
  for (unsigned seed = 0; seed < 5000; ++seed) {
    RandomFile random(seed);
    IniFile file(random.Content());
    for (int change = 0; change < 8; ++change) {
      IniFile read_anew(file.Content());
      random.Change(file, read_anew);
      ASSERT_EQ(file.Content(), read_anew.Content()) << seed;
    }
  }
}

/// Lines of different keys up to the size of the largest file, less `room` bytes.
QByteArray Filler(qsizetype room) {
  QByteArray lines;
  for (int i = 0; lines.size() < kLargest - room; ++i) {
    lines += "other" + QByteArray::number(i) + "=1\r\n";
  }
  return lines;
}

// A pass over the whole file for each of these changes would take many minutes.

TEST(IniFileChanges, AKeyThatFillsTheLargestFileIsRemoved) {
  const QByteArray repetitions = QByteArray("x=1\r\n").repeated(kLargest / 5);
  IniFile file("[A]\r\n" + repetitions + "y=2\r\n");
  file.RemoveKey("A", "x");
  EXPECT_EQ(file.Content(), "[A]\r\ny=2\r\n");
}

TEST(IniFileChanges, ThousandsOfKeysAreAddedToTheLargestFileAndRemovedAgain) {
  const QByteArray filler = Filler(200000);
  const auto key = [](int number) { return "key" + QByteArray::number(number); };
  QByteArray added;
  IniFile file("[A]\r\n" + filler + "\r\n[B]\r\n" + filler.left(1000));
  for (int number = 0; number < 10000; ++number) {
    file.SetValue("A", key(number), "new");
    added += key(number) + "=new\r\n";
  }
  EXPECT_EQ(file.Content(), "[A]\r\n" + filler + added + "\r\n[B]\r\n" + filler.left(1000));
  for (int number = 9999; number >= 0; --number) file.RemoveKey("A", key(number));
  EXPECT_EQ(file.Content(), "[A]\r\n" + filler + "\r\n[B]\r\n" + filler.left(1000));
}

TEST(IniFileChanges, KeysAreReplacedAboveTheMostBlankLines) {
  const QByteArray blanks = QByteArray("\r\n").repeated(kLargest / 2 - 10);
  IniFile file("[A]\r\nkey0=1\r\n" + blanks);
  for (int number = 0; number < 10000; ++number) {
    file.RemoveKey("A", "key" + QByteArray::number(number));
    file.SetValue("A", "key" + QByteArray::number(number + 1), "1");
  }
  EXPECT_EQ(file.Content(), "[A]\r\nkey10000=1\r\n" + blanks);
}

}  // namespace
}  // namespace Brivon1
