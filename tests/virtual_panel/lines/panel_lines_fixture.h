// The lines of a virtual panel, and a caller who asks the panel over TCP.
#pragma once

#include <QHostAddress>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include "lines/panel_lines.h"
#include "support/wait_until.h"

namespace VirtualPanel {

class PanelLinesTest : public testing::Test {
 protected:
  // The answer of panel 26 to a poll over TCP.
  static QByteArray Poll(quint16 port) {
    QTcpSocket socket;
    socket.connectToHost(QHostAddress(QHostAddress::LocalHost), port);
    socket.write("<ID1A><?>\r\n");
    QByteArray answer;
    EXPECT_TRUE(WaitUntil([&] {
      answer += socket.readAll();
      return answer.size() >= 8;
    }));
    return answer;
  }

  quint16 Port() const {
    return lines_.Descriptions().value(0).section(QLatin1Char(':'), -1).toUShort();
  }

  QString error_;
  PanelEngine engine_{{{26, 4, 96, true}}};
  PanelLines lines_{&engine_};
};

}  // namespace VirtualPanel
