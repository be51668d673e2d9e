// Panels behind a TCP port: listens, and lets everyone who connects talk to the same panels.
#pragma once

#include <QHostAddress>
#include <QTcpServer>

#include "engine/panel_engine.h"

namespace VirtualPanel {

class TcpLine : public QObject {
  Q_OBJECT

 public:
  // One more is cut at once: each may hold some memory, and the program has only so many files.
  static constexpr int kMostConnections = 250;

  // The engine must outlive the line.
  explicit TcpLine(PanelEngine* engine, QObject* parent = nullptr);
  ~TcpLine() override;

  // Port 0 takes any free one. False, with the reason in ErrorString, when it cannot listen.
  bool Listen(const QHostAddress& address = QHostAddress(QHostAddress::LocalHost),
              quint16 port = 0);
  quint16 Port() const { return server_.serverPort(); }  // 0: does not listen
  QHostAddress Address() const { return server_.serverAddress(); }
  QString ErrorString() const { return server_.errorString(); }
  int ConnectionCount() const;

  // Cuts every connection at once and goes on listening.
  void DropConnections();
  // Stops listening and cuts every connection.
  void Close();

 private:
  void Accept();

  PanelEngine* engine_;
  QTcpServer server_;
};

}  // namespace VirtualPanel
