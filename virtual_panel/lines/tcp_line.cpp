#include "lines/tcp_line.h"

#include <algorithm>
#include <utility>

#include <QElapsedTimer>
#include <QTcpSocket>

#include "lines/tcp_connection.h"

namespace VirtualPanel {
namespace {

// As many as the system allows: who waits there is not told to try again.
constexpr int kBacklog = 4096;
constexpr int kAcceptAgainMs = 100;
// How long callers are heard before other lines have their turn.
constexpr qint64 kTurnsMs = 5;

}  // namespace

TcpLine::TcpLine(PanelEngine* engine, QObject* parent) : QObject(parent), engine_(engine) {
  server_.setListenBacklogSize(kBacklog);
  again_.setInterval(kAcceptAgainMs);
  again_.setSingleShot(true);
  // Queued, it accepts a few at a time, as the server has room for them: a rush has to wait.
  connect(&server_, &QTcpServer::newConnection, this, &TcpLine::Accept, Qt::QueuedConnection);
  // The server has stopped accepting then, or it would try the same over and over.
  connect(&server_, &QTcpServer::acceptError, &again_, qOverload<>(&QTimer::start));
  turns_.setInterval(0);
  connect(&turns_, &QTimer::timeout, this, &TcpLine::HearSome);
  connect(&again_, &QTimer::timeout, &server_, &QTcpServer::resumeAccepting);
}

TcpLine::~TcpLine() { Close(); }

bool TcpLine::Listen(const QHostAddress& address, quint16 port) {
  Close();
  return server_.listen(address, port);
}

int TcpLine::ConnectionCount() const {
  return static_cast<int>(
      std::count_if(connections_.keyBegin(), connections_.keyEnd(),
                    [](const TcpConnection* connection) { return connection->IsConnected(); }));
}

void TcpLine::DropConnections() {
  for (TcpConnection* connection : connections_.keys()) connection->Cut();
}

void TcpLine::Close() {
  again_.stop();
  server_.close();
  DropConnections();
}

void TcpLine::Accept() {
  while (QTcpSocket* socket = server_.nextPendingConnection()) {
    if (connections_.size() >= most_connections_) {
      socket->abort();
      socket->deleteLater();
      continue;
    }
    auto* connection = new TcpConnection(engine_, socket, this);
    connections_.insert(connection, {});
    connect(connection, &TcpConnection::HasSpoken, this, [this, connection] { Queue(connection); });
    connect(connection, &TcpConnection::Worked, this, [this, connection] { Count(connection); });
    connect(connection, &TcpConnection::Closed, this, [this, connection] { Forget(connection); });
    if (connection->HasInput()) Queue(connection);
  }
}

void TcpLine::Queue(TcpConnection* connection) {
  const auto caller = connections_.find(connection);
  if (caller == connections_.end() || std::exchange(caller->is_speaking, true)) return;
  speaking_.enqueue(connection);
  if (!turns_.isActive()) turns_.start();
}

void TcpLine::HearSome() {
  QElapsedTimer since_begin;
  since_begin.start();
  while (!speaking_.isEmpty() && since_begin.elapsed() < kTurnsMs) {
    TcpConnection* connection = speaking_.dequeue();
    connections_[connection].is_speaking = false;
    connection->Hear();
    if (connections_.contains(connection) && connection->HasInput()) Queue(connection);
  }
  if (speaking_.isEmpty()) turns_.stop();
}

void TcpLine::Count(TcpConnection* connection) {
  const auto known = connections_.find(connection);
  if (known == connections_.end()) return;
  const qint64 held = connection->Held();
  held_ += held - known->held;
  known->held = held;
  while (held_ > kMostHeld) {
    const auto most = std::max_element(
        connections_.cbegin(), connections_.cend(),
        [](const Caller& one, const Caller& other) { return one.held < other.held; });
    TcpConnection* greediest = most.key();
    Forget(greediest);
    greediest->Cut();
  }
}

void TcpLine::Forget(TcpConnection* connection) {
  const Caller caller = connections_.take(connection);
  held_ -= caller.held;
  if (caller.is_speaking) speaking_.removeOne(connection);
}

}  // namespace VirtualPanel
