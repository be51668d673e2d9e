#include "lines/tcp_connection.h"

#include "lines/sockets.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

// What waits for its turn stays with the system, but for this.
constexpr qint64 kReadAhead = 4096;
// A turn is as long as a long row of a page, and short beside a hundred others.
constexpr qint64 kTurn = 1024;

// A caller whose machine has gone without a word is noticed after a minute and a half.
constexpr Asking kAsking = {60, 10, 3};

}  // namespace

TcpConnection::TcpConnection(PanelEngine* engine, QTcpSocket* socket, QObject* parent)
    : QObject(parent), socket_(socket), conversation_(engine, u"tcp"_s, this) {
  socket_->setParent(this);
  socket_->setReadBufferSize(kReadAhead);
  socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
  NoticeDeadCallers();
  connect(socket_, &QTcpSocket::readyRead, this, &TcpConnection::HasSpoken);
  connect(socket_, &QTcpSocket::bytesWritten, this, [this] {
    conversation_.BytesHaveLeft();
    Q_EMIT Worked();
  });
  connect(socket_, &QTcpSocket::disconnected, this, &TcpConnection::GoOnceHeard);
}

TcpConnection::~TcpConnection() { socket_->disconnect(); }

void TcpConnection::NoticeDeadCallers() {
  socket_->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
  AskSilentCaller(socket_->socketDescriptor(), kAsking);
}

void TcpConnection::Hear() {
  conversation_.Receive(socket_->read(kTurn));
  Q_EMIT Worked();
  if (socket_->state() == QAbstractSocket::UnconnectedState) GoOnceHeard();
}

void TcpConnection::Cut() {
  socket_->abort();
  // A socket that is closed already does not say so again.
  Go();
}

void TcpConnection::GoOnceHeard() {
  if (!HasInput()) Go();
}

void TcpConnection::Go() {
  Q_EMIT Closed();
  deleteLater();
}

}  // namespace VirtualPanel
