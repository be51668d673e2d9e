#include "lines/tcp_line.h"

#include <algorithm>
#include <utility>

#include <QElapsedTimer>
#include <QTcpSocket>

#include "lines/sockets.h"
#include "lines/tcp_connection.h"

namespace VirtualPanel {
namespace {

// As many as the system allows: who waits there is not told to try again.
constexpr int kBacklog = 4096;
constexpr int kAcceptAgainMs = 100;
// A rush of callers has to wait.
constexpr int kCallsAtATime = 30;
// How long callers are heard before other lines have their turn.
constexpr qint64 kTurnsMs = 5;

}  // namespace

TcpLine::TcpLine(PanelEngine* engine, QObject* parent) : QObject(parent), engine_(engine) {
  server_.setListenBacklogSize(kBacklog);
  again_.setInterval(kAcceptAgainMs);
  again_.setSingleShot(true);
  turns_.setInterval(0);
  connect(&turns_, &QTimer::timeout, this, &TcpLine::HearSome);
  connect(&again_, &QTimer::timeout, this, [this] {
    if (calls_ != nullptr) calls_->setEnabled(true);
  });
}

TcpLine::~TcpLine() { Close(); }

bool TcpLine::Listen(const QHostAddress& address, quint16 port) {
  Close();
  if (!server_.listen(address, port)) return false;
  // The server itself would try again and again to accept where no descriptor is left.
  server_.pauseAccepting();
  calls_ = std::make_unique<QSocketNotifier>(server_.socketDescriptor(), QSocketNotifier::Read);
  connect(calls_.get(), &QSocketNotifier::activated, this, &TcpLine::Accept);
  return true;
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
  calls_.reset();
  server_.close();
  DropConnections();
}

void TcpLine::Accept() {
  for (int call = 0; call < kCallsAtATime; ++call) {
    qintptr caller = -1;
    switch (TakeCall(server_.socketDescriptor(), &caller)) {
      case Call::kTaken:
        Take(caller);
        break;
      case Call::kGivenUp:
        break;
      case Call::kNoCaller:
        return;
      case Call::kNoRoom:
        calls_->setEnabled(false);
        again_.start();
        return;
    }
  }
}

void TcpLine::Take(qintptr caller) {
  if (connections_.size() >= most_connections_) {
    CloseSocket(caller);
    return;
  }
  auto* socket = new QTcpSocket;
  socket->setSocketDescriptor(caller);
  auto* connection = new TcpConnection(engine_, socket, this);
  connections_.insert(connection, {});
  connect(connection, &TcpConnection::HasSpoken, this, [this, connection] { Queue(connection); });
  connect(connection, &TcpConnection::Worked, this, [this, connection] { Count(connection); });
  connect(connection, &TcpConnection::Closed, this, [this, connection] { Forget(connection); });
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
