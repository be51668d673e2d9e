// A message file in a folder of its own.
#pragma once

#include <optional>
#include <string>

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "page/message_file.h"
#include "page/page_of.h"

class MessageFile : public testing::Test {
 protected:
  QString Path(const QString& name = QStringLiteral("page.msg")) { return folder_.filePath(name); }

  QString Write(const QByteArray& content) {
    QFile file(Path());
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    return Path();
  }

  QByteArray Read() {
    QFile file(Path());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }

  std::optional<Brivon1::LoadedPage> Load(const QByteArray& content) {
    return Brivon1::LoadMessageFile(Write(content));
  }

  /// Loads a file of one row of 80 columns whose row line is `line`.
  std::optional<Brivon1::LoadedPage> LoadRow(const QByteArray& line) {
    return Load("*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n" + line + "\r\n");
  }

  std::string LoadedRow(const QByteArray& line) {
    const auto page = LoadRow(line);
    return page ? Shown(page->rows[0]) : "refused";
  }

  QByteArray Saved(const Brivon1::PageMessage& page) {
    EXPECT_EQ(Brivon1::SaveMessageFile(Path(), page), Brivon1::SaveResult::kSaved);
    return Read();
  }

  QTemporaryDir folder_;
};
