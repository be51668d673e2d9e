// The sentences in the program's source: each is a text of the language file. So a message that is
// shown only when a panel fails is not forgotten either.
#include <string>

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include <gtest/gtest.h>

#include "language/caption_tables.h"
#include "language/further_texts.h"

using namespace Qt::StringLiterals;

namespace {

/// Sentences that nobody reads on the screen, and those that have keys of another kind.
const QStringList kNoText = {
    u"*** Brivon Message File ***"_s,  // first lines of files
    u"*** Brivon Schedule File ***"_s,
    u"*** Brivon Shift Message File ***"_s,
    u"No of Sequence ="_s,  // a line of a schedule file
    u"DD MMM YYYY"_s,       // what stands for the date in a page
    u"Red On Green"_s,      // entries of a list, whose keys are numbered
    u"Green On Red"_s,
};

/// Three words, a full stop or an exclamation mark make a sentence, and so does a value among
/// words.
bool IsSentence(const QString& text) {
  static const QRegularExpression three_words(u"\\p{L}\\S* +\\S+ +\\S*\\p{L}"_s);
  static const QRegularExpression stop(u"\\p{L}[.!]$"_s);
  static const QRegularExpression value(u"\\p{L}{2}.* .*%\\d|%\\d.* .*\\p{L}{2}"_s);
  return text.contains(three_words) || text.contains(stop) || text.contains(value);
}

QStringList LiteralsIn(const QString& source) {
  static const QRegularExpression comment(u"//[^\\n]*"_s);
  static const QRegularExpression include(u"#include[^\\n]*"_s);
  // Two literals that stand one after the other are one.
  static const QRegularExpression seam(u"\"\\s*\""_s);
  static const QRegularExpression literal(u"\"((?:[^\"\\\\\\n]|\\\\.)*)\""_s);
  QString code = source;
  code.remove(include).remove(comment);
  code.replace(u"\"\""_s, u"EMPTY"_s).remove(seam);
  QStringList literals;
  for (auto match = literal.globalMatch(code); match.hasNext();) {
    literals.append(match.next().captured(1).replace(u"\\\""_s, u"\""_s));
  }
  return literals;
}

/// A file type and its pattern, both separated by "|", give the type alone; other texts themselves.
QStringList Pieces(const QString& literal) {
  static const QRegularExpression pattern(u"\\(?\\*\\.[^)]*\\)?$"_s);
  QStringList pieces;
  for (QString piece : literal.split(u'|')) pieces.append(piece.remove(pattern));
  return pieces;
}

QStringList KnownTexts() {
  QStringList known = kNoText;
  for (const auto& message : ModuleLanguage::Messages()) {
    known.append(QString::fromLatin1(message.text));
  }
  for (const auto& text : ModuleLanguage::FurtherTexts()) {
    known.append(QString::fromLatin1(text.text));
  }
  return known;
}

/// The sentences of one source that are no known texts.
QStringList ForgottenIn(const QString& source) {
  static const QStringList known = KnownTexts();
  static const QRegularExpression word(u"\\p{L}"_s);
  QStringList forgotten;
  for (const QString& literal : LiteralsIn(source)) {
    for (const QString& piece : Pieces(literal)) {
      const bool is_file_type = literal.contains(u'|') && piece.contains(word);
      if ((is_file_type || IsSentence(piece)) && !known.contains(piece)) forgotten.append(piece);
    }
  }
  return forgotten;
}

TEST(EveryLiteralTest, EverySentenceInTheSourceIsATextOfTheLanguageFile) {
  int sources = 0;
  QDirIterator files(QStringLiteral(BRIVON_SOURCES), {u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString path = files.next();
    // The table also says where its texts are seen.
    if (path.endsWith("/language/further_texts.cpp"_L1)) continue;
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    const QStringList forgotten = ForgottenIn(QString::fromUtf8(file.readAll()));
    EXPECT_EQ(forgotten.join(u'\n').toStdString(), "") << path.toStdString();
    ++sources;
  }
  EXPECT_GT(sources, 100);
}

TEST(EveryLiteralTest, AForgottenSentenceIsFound) {
  const QString source =
      u"#include \"a b c d\"\n// \"a b c d\"\n"
      "Show(u\"Invalid path!\"_s);\nShow(u\"Nobody knows this.\"_s);\n"
      "Show(u\"Sent %1\"_s);\nShow(u\"two words\"_s);\nOpen(u\"Picture|*.png|All|*.*\"_s);\n"
      "Show(\"a sentence in \"\n     \"two pieces\");\n"_s;
  EXPECT_EQ(ForgottenIn(source).join(u'|').toStdString(),
            "Nobody knows this.|Sent %1|Picture|a sentence in two pieces");
}

}  // namespace
