// The corpus of every target, replayed: what must be true of every input holds for each of these.
#include <ostream>
#include <string>

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include "fuzz/must.h"
#include "fuzz/targets.h"

using namespace Qt::StringLiterals;

namespace Fuzz {

/// The names of tests are the same in every run.
void PrintTo(const Target& target, std::ostream* out) { *out << target.name; }

}  // namespace Fuzz

namespace {

class Corpus : public ::testing::TestWithParam<Fuzz::Target> {};

TEST_P(Corpus, EveryInputKeepsThePromises) {
  const QString name = QString::fromLatin1(GetParam().name);
  const QDir folder(QStringLiteral(FUZZ_FOLDER "/corpus/") + name);
  const QStringList inputs = folder.entryList(QDir::Files);
  ASSERT_GE(inputs.size(), 10) << qPrintable(folder.path());
  for (const QString& input : inputs) {
    QFile file(folder.filePath(input));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    try {
      GetParam().check(file.readAll());
    } catch (const Fuzz::Broken& broken) {
      ADD_FAILURE() << qPrintable(input) << ": not true: " << broken.what();
    }
  }
}

TEST_P(Corpus, TheTargetHasADictionary) {
  EXPECT_TRUE(QFile::exists(
      QStringLiteral(FUZZ_FOLDER "/%1.dict").arg(QString::fromLatin1(GetParam().name))));
}

TEST(Must, WhatIsNotTrueIsTold) {
  EXPECT_NO_THROW(Fuzz::Must(true, "true"));
  try {
    Fuzz::Must(false, "two is three");
    FAIL() << "nothing was told";
  } catch (const Fuzz::Broken& broken) {
    EXPECT_STREQ(broken.what(), "two is three");
  }
}

INSTANTIATE_TEST_SUITE_P(Reader, Corpus, ::testing::ValuesIn(Fuzz::Targets()),
                         [](const auto& target) { return std::string(target.param.name); });

}  // namespace
