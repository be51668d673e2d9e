// Panels that a crew or the program reaches: each behind a TCP port on loopback of its own and with
// faults of its own, or all at one line; and the program folder that names them.
#pragma once

#include <memory>
#include <vector>

#include <QByteArray>
#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include "engine/panel_engine.h"
#include "lines/tcp_line.h"
#include "support/panel_port.h"
#include "support/program_folder.h"
#include "support/wait_until.h"

/// The folder of panels of 2x96 with three colours and a page of that size.
class SiteFolder {
 public:
  const TemporaryProgramFolder& Folder() const { return folder_; }
  QString Page() const { return folder_.Path(QStringLiteral("page.msg")); }

 protected:
  SiteFolder() {
    folder_.Write(QStringLiteral("page.msg"),
                  "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n"
                  "<L01><SA><CA>Hi\r\n<L02><SA><CB>Ho\r\n");
  }

  static QByteArray Entry(int id, quint16 port) {
    return "ID" + QByteArray::number(id).rightJustified(3, '0') +
           "=2x96,Tri,127.0.0.1:" + QByteArray::number(port) + "\r\n";
  }

 private:
  TemporaryProgramFolder folder_;
};

class Site : public SiteFolder {
 public:
  /// Panels 1 to `count` of 2x96, three colours.
  explicit Site(int count) {
    QByteArray ini = "[Dimension Config]\r\n";
    for (int id = 1; id <= count; ++id) {
      panels_.push_back(std::make_unique<Panel>(id));
      ini += Entry(id, panels_.back()->line.Port());
    }
    Folder().Configure(ini + "[Communication]\r\nSendMode=TCPIP\r\nDelay Period=0\r\n");
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

 private:
  struct Panel {
    explicit Panel(int id) : engine({{id, 2, 96, true}}), line(&engine) {
      if (!line.Listen()) qFatal("cannot listen on loopback");
    }

    VirtualPanel::PanelEngine engine;
    VirtualPanel::TcpLine line;
  };

  Panel& Of(int id) { return *panels_.at(static_cast<std::size_t>(id) - 1); }

  std::vector<std::unique_ptr<Panel>> panels_;
};

/// Panels 1 to 3 at one line: a TCP port, or a pseudo-terminal.
class OneLine : public SiteFolder {
 public:
  explicit OneLine(bool is_serial) : tcp_(&engine_), port_(&engine_) {
    const QString device = Folder().Path(QStringLiteral("panel-line"));
    if (is_serial) {
      EXPECT_TRUE(port_.Open(device)) << "no pseudo-terminal";
    } else if (!tcp_.Listen()) {
      qFatal("cannot listen on loopback");
    }
    Folder().Configure(
        "[Dimension Config]\r\n" + Entry(1, tcp_.Port()) + Entry(2, tcp_.Port()) +
        Entry(3, tcp_.Port()) + "[Communication]\r\nSendMode=" + (is_serial ? "RS232" : "TCPIP") +
        "\r\nDelay Period=0\r\n[Serial Ports]\r\nCom2=" + device.toLocal8Bit() + "\r\n");
  }

  void Fail(const VirtualPanel::Faults& faults) { engine_.SetFaults(faults); }

  /// As an adapter that is pulled.
  void Unplug() { port_.Unplug(); }

  /// Whether nobody holds the line open any more; waits for it.
  bool IsReleased() {
    return WaitUntil([this] { return tcp_.ConnectionCount() == 0 && !port_.IsInUse(); });
  }

 private:
  VirtualPanel::PanelEngine engine_{{{1, 2, 96, true}, {2, 2, 96, true}, {3, 2, 96, true}}};
  VirtualPanel::TcpLine tcp_;
  PanelPort port_;
};
