// What the tests of the schedule file share: a folder of its own, and files in it, written out.
#pragma once

#include <optional>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "schedule/schedule.h"
#include "schedule/schedule_file.h"

class ScheduleFile : public testing::Test {
 protected:
  static inline const QByteArray kHeader = "*** Brivon Schedule File ***\r\n";
  static inline const QByteArray kSlot = "Week =0\r\nHour =**\r\nMin =**\r\n";
  static inline const QByteArray kSize = "Row =16\r\nCol =96\r\n";

  /// `text` and as many blanks as make it `size` characters long, and a line end.
  static QByteArray Field(const QByteArray& text, qsizetype size) {
    return text.leftJustified(size) + "\r\n";
  }

  static QByteArray Group(const QByteArray& path, const QByteArray& delay,
                          const QByteArray& feature) {
    return Field(path, 100) + delay + "\r\n" + Field(feature, 20);
  }

  /// A file of `count` sequences; sequence i names the file "i.msg" and lasts i seconds.
  static QByteArray FileOf(int count) {
    QByteArray content =
        kHeader + kSlot + kSize + "No of Sequence =" + QByteArray::number(count) + "\r\n";
    for (int i = 1; i <= count; ++i) {
      content += Group(QByteArray::number(i) + ".msg", QByteArray::number(i), "Fall");
    }
    return content;
  }

  QString Path(const QString& name = QStringLiteral("week.sch")) {
    return QDir::toNativeSeparators(folder_.filePath(name));
  }

  QString Write(const QByteArray& content, const QString& name = QStringLiteral("week.sch")) {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    return Path(name);
  }

  QByteArray Read() {
    QFile file(Path());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }

  std::optional<Brivon1::Schedule> Load(const QByteArray& content) {
    return Brivon1::LoadScheduleFile(Write(content));
  }

  /// Loads a file of one sequence whose lines above it are `slot` and `size`.
  std::optional<Brivon1::Schedule> LoadHead(const QByteArray& slot, const QByteArray& size) {
    return Load(kHeader + slot + size + "No of Sequence =1\r\n" + Group("a.msg", "5", "Flip"));
  }

  QTemporaryDir folder_;
};
