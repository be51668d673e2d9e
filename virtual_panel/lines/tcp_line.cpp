#include "lines/tcp_line.h"

#include <QTcpSocket>

#include "lines/conversation.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr qint64 kReadAhead = 65'536;

class SocketOutlet : public Outlet {
 public:
  explicit SocketOutlet(QTcpSocket* socket) : socket_(socket) {}

  void Send(const QByteArray& bytes) override { socket_->write(bytes); }
  qint64 Unsent() const override { return socket_->bytesToWrite(); }
  void HangUp() override { socket_->disconnectFromHost(); }

 private:
  QTcpSocket* socket_;
};

// A connection owns its socket and everything that belongs to it, and goes when the socket is
// closed.
class Connection : public QObject {
 public:
  Connection(PanelEngine* engine, QTcpSocket* socket, QObject* parent)
      : QObject(parent),
        socket_(socket),
        outlet_(socket),
        conversation_(engine, u"tcp"_s, &outlet_) {
    socket_->setParent(this);
    socket_->setReadBufferSize(kReadAhead);
    socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(socket_, &QTcpSocket::readyRead, this, &Connection::Read);
    connect(socket_, &QTcpSocket::bytesWritten, &conversation_, &Conversation::BytesHaveLeft);
    connect(socket_, &QTcpSocket::disconnected, this, &QObject::deleteLater);
    Read();
  }

  ~Connection() override { socket_->disconnect(); }

 private:
  void Read() { conversation_.Receive(socket_->readAll()); }

  QTcpSocket* socket_;
  SocketOutlet outlet_;
  Conversation conversation_;
};

}  // namespace

TcpLine::TcpLine(PanelEngine* engine, QObject* parent) : QObject(parent), engine_(engine) {
  connect(&server_, &QTcpServer::newConnection, this, &TcpLine::Accept);
}

TcpLine::~TcpLine() { Close(); }

bool TcpLine::Listen(const QHostAddress& address, quint16 port) {
  Close();
  return server_.listen(address, port);
}

int TcpLine::ConnectionCount() const {
  int count = 0;
  for (const auto* socket : findChildren<QTcpSocket*>()) {
    if (socket->state() == QAbstractSocket::ConnectedState) ++count;
  }
  return count;
}

void TcpLine::DropConnections() {
  for (auto* socket : findChildren<QTcpSocket*>()) socket->abort();
}

void TcpLine::Close() {
  server_.close();
  DropConnections();
}

void TcpLine::Accept() {
  while (QTcpSocket* socket = server_.nextPendingConnection()) {
    if (ConnectionCount() < kMostConnections) {
      new Connection(engine_, socket, this);
    } else {
      socket->abort();
      socket->deleteLater();
    }
  }
}

}  // namespace VirtualPanel
