// Panels behind a TCP port: listens, and lets everyone who connects talk to the same panels. What
// callers do, slow, silent or without end, costs a bounded number of connections and bytes, and
// leaves the other lines their turn.
#pragma once

#include <memory>

#include <QHash>
#include <QHostAddress>
#include <QQueue>
#include <QSocketNotifier>
#include <QTcpServer>
#include <QTimer>

#include "engine/panel_engine.h"

namespace VirtualPanel {

class TcpConnection;

class TcpLine : public QObject {
  Q_OBJECT

 public:
  // One more is cut at once: each may hold some memory, and the program has only so many files.
  static constexpr int kMostConnections = 250;
  // What is held for all of them together, in bytes; beyond it, whoever holds the most is cut.
  static constexpr qint64 kMostHeld = qint64{32} * 1024 * 1024;

  // The engine must outlive the line.
  explicit TcpLine(PanelEngine* engine, QObject* parent = nullptr);
  ~TcpLine() override;

  // How many connections there may be from now on, in place of kMostConnections.
  void SetMostConnections(int count) { most_connections_ = count; }

  // Port 0 takes any free one. False, with the reason in ErrorString, when it cannot listen.
  bool Listen(const QHostAddress& address = QHostAddress(QHostAddress::LocalHost),
              quint16 port = 0);
  quint16 Port() const { return server_.serverPort(); }  // 0: does not listen
  QHostAddress Address() const { return server_.serverAddress(); }
  QString ErrorString() const { return server_.errorString(); }
  int ConnectionCount() const;
  qint64 Held() const { return held_; }

  // Cuts every connection at once and goes on listening.
  void DropConnections();
  // Stops listening and cuts every connection.
  void Close();

 private:
  // What is known of a connection.
  struct Caller {
    qint64 held = 0;
    bool is_speaking = false;  // waits for its turn
  };

  void Accept();
  void Take(qintptr caller);
  void Queue(TcpConnection* connection);
  void HearSome();
  void Count(TcpConnection* connection);
  void Forget(TcpConnection* connection);

  PanelEngine* engine_;
  QTcpServer server_;  // listens, and no more
  std::unique_ptr<QSocketNotifier> calls_;
  QTimer again_;  // until connections are accepted again, after one that could not be
  int most_connections_ = kMostConnections;
  QQueue<TcpConnection*> speaking_;
  QTimer turns_;  // while somebody speaks
  QHash<TcpConnection*, Caller> connections_;
  qint64 held_ = 0;
};

}  // namespace VirtualPanel
