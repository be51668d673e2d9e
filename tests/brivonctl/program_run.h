// The real program, started as a process while the panels of the test answer it.
#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <gtest/gtest.h>

#include "support/wait_until.h"

class ProgramRun {
 public:
  /// What the process has written so far, and how it has ended.
  QByteArray output;
  QByteArray errors;
  int status = -1;

  /// Runs it to its end with the words of `line`, which stand apart by blanks, and further ones.
  ProgramRun& To(const char* line, const QStringList& further = {}) {
    Start(line, further);
    return Wait();
  }

  void Start(const char* line, const QStringList& further = {}) {
    const QString words = QString::fromUtf8(line);
    process_.start(QStringLiteral(BRIVONCTL),
                   words.split(QLatin1Char(' '), Qt::SkipEmptyParts) + further);
    EXPECT_TRUE(process_.waitForStarted());
  }

  ProgramRun& Wait() {
    const bool ended = WaitUntil([this] { return process_.state() == QProcess::NotRunning; });
    EXPECT_TRUE(ended) << "brivonctl hangs";
    if (!ended) process_.kill();
    Read();
    EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit);
    status = process_.exitCode();
    return *this;
  }

  void Read() {
    output += process_.readAllStandardOutput();
    errors += process_.readAllStandardError();
  }

  /// The events of --json; each line must be one object.
  QList<QJsonObject> Events() const {
    QList<QJsonObject> events;
    QList<QByteArray> lines = output.split('\n');
    EXPECT_EQ(lines.takeLast(), "");
    for (const QByteArray& line : lines) {
      const QJsonDocument document = QJsonDocument::fromJson(line);
      EXPECT_TRUE(document.isObject()) << line.toStdString();
      events.append(document.object());
    }
    return events;
  }

  QProcess& Process() { return process_; }

 private:
  QProcess process_;
};
