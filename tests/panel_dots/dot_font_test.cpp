// The table of the dot font that is in the tree, against the fonts that it was made of.

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray Contents(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll();
}

TEST(DotFont, IsWhatTheToolMakesOfTheBitmapFonts) {
  const QString tool = QStringLiteral(MAKE_DOT_FONT);
  if (tool.isEmpty()) GTEST_SKIP() << "FreeType is missing (package libfreetype-dev)";
  QStringList arguments;
  for (const char* font : {"5x7", "6x10"}) {
    arguments.append(u"/usr/share/fonts/X11/misc/%1.pcf.gz"_s.arg(QLatin1String(font)));
    if (!QFileInfo::exists(arguments.last())) {
      GTEST_SKIP() << arguments.last().toStdString() << " is missing (package xfonts-base)";
    }
  }
  const QTemporaryDir folder;
  ASSERT_TRUE(folder.isValid());
  const QString made = folder.filePath(u"table"_s);
  ASSERT_EQ(QProcess::execute(tool, arguments + QStringList{made}), 0);
  const QByteArray table = Contents(made);
  EXPECT_GT(table.count('\n'), 1000);
  EXPECT_TRUE(table == Contents(QStringLiteral(DOT_FONT_TABLE)))
      << "make it anew: cmake --build build/release --target dot_font_table";
}

}  // namespace
