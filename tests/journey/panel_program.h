// The virtual panel, as the program that it is.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QProcess>
#include <QString>
#include <QStringList>

#include "support/program_folder.h"

/// The virtual panel's program, started for the journey and ended with it.
class PanelProgram {
 public:
  PanelProgram(const QString& program, const TemporaryProgramFolder& folder,
               const QString& picture);
  ~PanelProgram();

  PanelProgram(const PanelProgram&) = delete;
  PanelProgram& operator=(const PanelProgram&) = delete;

  bool IsReady() const { return output_.contains("ready\n"); }

  QString SerialDevice() const { return line_; }

  /// The address that it says it listens on, "127.0.0.1:" and its port.
  QByteArray TcpAddress() const;

  /// What a panel holds, by the program's own account.
  QJsonObject Panel(int id) const;

  /// The rows of a stored page, from row 1.
  QStringList Page(int id, int page) const;

 private:
  QProcess process_;
  QString line_;
  QString state_;
  QByteArray output_;
};
