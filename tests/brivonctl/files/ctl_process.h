// The real program, started as a shell would, and what came of it.
#pragma once

#include <string>

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <gtest/gtest.h>

struct Ended {
  int status = -1;
  std::string output;
  std::string errors;
};

/// Runs brivonctl to its end, in `folder`, without a display.
inline Ended RunBrivonCtl(const QStringList& arguments, const QString& folder) {
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    environment.remove(QLatin1String(name));
  }
  process.setProcessEnvironment(environment);
  process.setWorkingDirectory(folder);
  process.start(QStringLiteral(BRIVONCTL_PROGRAM), arguments);
  if (!process.waitForFinished()) return {};
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  return {process.exitCode(), process.readAllStandardOutput().toStdString(),
          process.readAllStandardError().toStdString()};
}
