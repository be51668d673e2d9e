// The real program, started as a process and watched from outside.
#pragma once

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "support/wait_until.h"

namespace VirtualPanel {

class ProgramTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(folder_.isValid()); }

  void TearDown() override {
    if (process_.state() == QProcess::NotRunning) return;
    process_.terminate();
    if (process_.waitForFinished()) return;
    ADD_FAILURE() << "the program cannot be ended";
    process_.kill();
    process_.waitForFinished();
  }

  QString PathOf(const char* name) const { return folder_.filePath(QLatin1String(name)); }

  void StartProcess(const QStringList& arguments) {
    process_.setProgram(QStringLiteral(VIRTUAL_PANEL_PROGRAM));
    process_.setArguments(arguments);
    process_.start();
  }

  // Starts the program and waits until it is ready.
  void Start(const QStringList& arguments) {
    StartProcess(arguments);
    ASSERT_TRUE(WaitUntil([&] {
      output_ += QString::fromLocal8Bit(process_.readAllStandardOutput());
      return output_.endsWith(QLatin1String("ready\n")) || process_.state() == QProcess::NotRunning;
    }));
    ASSERT_TRUE(output_.endsWith(QLatin1String("ready\n")))
        << process_.readAllStandardError().toStdString();
  }

  quint16 Port() const {
    const QRegularExpression line(QStringLiteral("^listening on tcp 127\\.0\\.0\\.1:(\\d+)$"),
                                  QRegularExpression::MultilineOption);
    return line.match(output_).captured(1).toUShort();
  }

  void Connect(QTcpSocket* socket) const {
    socket->connectToHost(QStringLiteral("127.0.0.1"), Port());
    ASSERT_TRUE(WaitUntil([&] { return socket->state() == QAbstractSocket::ConnectedState; }));
  }

  template <typename Device>
  static QByteArray Exchange(Device* device, const QByteArray& frame) {
    device->write(frame);
    EXPECT_TRUE(WaitUntil([&] { return device->bytesAvailable() >= 8; }));
    return device->readAll();
  }

  // The window is drawn all the same.
  void ShowNoWindow() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process_.setProcessEnvironment(environment);
  }

  // What it has said on standard error so far, without the warnings of the toolkit.
  QString Errors() {
    process_.setReadChannel(QProcess::StandardError);
    while (process_.canReadLine() || process_.state() == QProcess::NotRunning) {
      const QString line = QString::fromLocal8Bit(process_.readLine());
      if (line.isEmpty()) break;
      if (line.startsWith(QLatin1String("virtual_panel: "))) errors_ += line;
    }
    return errors_;
  }

  // Ends it as a user does, and gives its exit code.
  int Terminate() {
    process_.terminate();
    EXPECT_TRUE(WaitUntil([&] { return process_.state() == QProcess::NotRunning; }));
    EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit);
    return process_.exitCode();
  }

  static QByteArray Contents(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
  }

  // Expects that the program refuses these arguments, and gives what it says.
  QString Refusal(const QStringList& arguments) {
    StartProcess(arguments);
    EXPECT_TRUE(WaitUntil([&] { return process_.state() == QProcess::NotRunning; }));
    EXPECT_EQ(process_.exitCode(), 2);
    return QString::fromLocal8Bit(process_.readAllStandardError());
  }

  static QStringList Words(const char* text) {
    return QString::fromLatin1(text).split(QLatin1Char(' '));
  }

  QTemporaryDir folder_;
  QProcess process_;
  QString output_;
  QString errors_;
};

}  // namespace VirtualPanel
