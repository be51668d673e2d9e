// Files in a program folder of their own, and what a look through them says.
#pragma once

#include <string>

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include "files/file_check.h"
#include "files/report_text.h"
#include "support/program_folder.h"

class CheckedFiles : public testing::Test {
 protected:
  /// A page of `rows` rows and 96 columns whose row lines are `lines`.
  static QByteArray Page(int rows, const QByteArray& lines) {
    return "*** Brivon Message File ***\r\nRow = " + QByteArray::number(rows) + "\r\nCol = 96\r\n" +
           lines;
  }

  static QByteArray Step(const QByteArray& path, const QByteArray& delay = "5",
                         const QByteArray& feature = "Flip") {
    return path.leftJustified(100) + "\r\n" + delay + "\r\n" + feature.leftJustified(20) + "\r\n";
  }

  /// A schedule for panels of 1 row and 96 columns.
  static QByteArray Schedule(int count, const QByteArray& steps) {
    return "*** Brivon Schedule File ***\r\nWeek =2\r\nHour =8\r\nMin =30\r\nRow =1\r\nCol =96\r\n"
           "No of Sequence =" +
           QByteArray::number(count) + "\r\n" + steps;
  }

  /// The report of a file of this content, without the folder in front of its name.
  std::string Said(const QString& name, const QByteArray& content) {
    return SaidOf(folder_.Write(name, content));
  }

  std::string SaidOf(const QString& path) {
    return BrivonCtl::ReportText(BrivonCtl::CheckFile(path))
        .remove(QDir::toNativeSeparators(folder_.Path(QString()) + u'/'))
        .toStdString();
  }

  TemporaryProgramFolder folder_;
};
