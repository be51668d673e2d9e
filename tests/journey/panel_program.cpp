#include "journey/panel_program.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

PanelProgram::PanelProgram(const QString& program, const TemporaryProgramFolder& folder,
                           const QString& picture)
    : line_(folder.Path(u"panel-line"_s)), state_(folder.Path(u"panel-state.json"_s)) {
  process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process_.start(program, {u"--panel"_s, u"1:4x96:tri"_s, u"--panel"_s, u"2:12x192:mono"_s,
                           u"--tcp"_s, u"127.0.0.1:0"_s, u"--pty"_s, line_, u"--state"_s, state_,
                           u"--picture"_s, picture});
  while (!output_.contains("ready\n") && process_.waitForReadyRead(10000)) {
    output_ += process_.readAllStandardOutput();
  }
}

PanelProgram::~PanelProgram() {
  process_.terminate();
  process_.waitForFinished(5000);
}

QByteArray PanelProgram::TcpAddress() const {
  const qsizetype from = output_.indexOf("127.0.0.1:");
  return output_.mid(from, output_.indexOf('\n', from) - from);
}

QJsonObject PanelProgram::Panel(int id) const {
  QFile file(state_);
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QJsonArray panels = QJsonDocument::fromJson(file.readAll()).object()[u"panels"_s].toArray();
  for (const QJsonValue& panel : panels) {
    if (panel[u"id"_s].toInt() == id) return panel.toObject();
  }
  return {};
}

QStringList PanelProgram::Page(int id, int page) const {
  const QJsonObject rows = Panel(id)[u"pages"_s].toObject()[QString::number(page)].toObject();
  QStringList texts;
  for (int row = 1; row <= rows.size(); ++row) {
    texts.append(rows[QString::number(row)].toString());
  }
  return texts;
}
