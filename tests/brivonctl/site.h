// Panels on loopback, each behind a TCP port and with faults of its own, and the program folder
// that names them.
#pragma once

#include <memory>
#include <vector>

#include <QByteArray>
#include <QList>
#include <QString>

#include "engine/panel_engine.h"
#include "lines/tcp_line.h"
#include "support/program_folder.h"

class Site {
 public:
  /// Panels 1 to `count` of 2x96, three colours.
  explicit Site(int count) {
    QByteArray ini = "[Dimension Config]\r\n";
    for (int id = 1; id <= count; ++id) {
      panels_.push_back(std::make_unique<Panel>(id));
      ini += "ID" + QByteArray::number(id).rightJustified(3, '0') +
             "=2x96,Tri,127.0.0.1:" + QByteArray::number(panels_.back()->line.Port()) + "\r\n";
    }
    folder_.Configure(ini + "[Communication]\r\nSendMode=TCPIP\r\nDelay Period=0\r\n");
    folder_.Write(QStringLiteral("page.msg"),
                  "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n"
                  "<L01><SA><CA>Hi\r\n<L02><SA><CB>Ho\r\n");
  }

  void Fail(int id, const VirtualPanel::Faults& faults) { Of(id).engine.SetFaults(faults); }

  /// Nobody can connect to it any more.
  void Close(int id) { Of(id).line.Close(); }

  QList<QByteArray> Frames(int id) {
    QList<QByteArray> frames;
    for (const auto& record : Of(id).engine.Frames()) frames.append(record.bytes);
    return frames;
  }

  /// The two frames of the page as page 7 of panel `id`, below 10.
  static QList<QByteArray> PageFrames(int id) {
    const QByteArray prefix = "<ID0" + QByteArray::number(id) + ">";
    return {prefix + "<L01><P007><SA><CA>Hi \r\n", prefix + "<L02><P007><SA><CB>Ho \r\n"};
  }

  const TemporaryProgramFolder& Folder() const { return folder_; }
  QString Page() const { return folder_.Path(QStringLiteral("page.msg")); }

 private:
  struct Panel {
    explicit Panel(int id) : engine({{id, 2, 96, true}}), line(&engine) {
      if (!line.Listen()) qFatal("cannot listen on loopback");
    }

    VirtualPanel::PanelEngine engine;
    VirtualPanel::TcpLine line;
  };

  Panel& Of(int id) { return *panels_.at(static_cast<std::size_t>(id) - 1); }

  TemporaryProgramFolder folder_;
  std::vector<std::unique_ptr<Panel>> panels_;
};
