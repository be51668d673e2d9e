#include "panel_line/tcp_link.h"

#include <utility>

#include <QNetworkProxy>

#include "language/further_texts.h"
#include "panel_line/links.h"
#include "ports/waiting_bytes.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

using ModuleLanguage::TranslateText;

TcpLink::TcpLink(QObject* parent, int prompt_answer)
    : QObject(parent), socket_(new QTcpSocket(this)), prompt_answer_(prompt_answer) {
  socket_->setObjectName(u"Winsock1"_s);
  socket_->setProxy(QNetworkProxy::NoProxy);
  socket_->setReadBufferSize(Ports::kReadBuffer);
  connect(socket_, &QTcpSocket::readyRead, this, &TcpLink::Happened);
  connect(socket_, &QTcpSocket::disconnected, this, &TcpLink::Happened);
  connect(socket_, &QTcpSocket::connected, this,
          [this] { socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1); });
}

void TcpLink::Connect(const QString& host, int port) {
  if (socket_->state() != QAbstractSocket::UnconnectedState) socket_->abort();
  endpoint_ = u"%1:%2"_s.arg(host).arg(port);
  socket_->connectToHost(host, static_cast<quint16>(port));
}

bool TcpLink::IsConnected() const { return socket_->state() == QAbstractSocket::ConnectedState; }

void TcpLink::Write(const QByteArray& bytes) {
  if (!IsConnected()) return;
  if (socket_->write(bytes) != bytes.size()) {
    socket_->abort();
  } else {
    socket_->flush();
    answer_is_due_ = true;
  }
}

qint64 TcpLink::Unsent() const {
  if (!IsConnected()) return 0;
  return socket_->bytesToWrite() + Ports::BytesInSystem(socket_->socketDescriptor());
}

int TcpLink::Speed() const {
  // Behind the connection may be a box that passes everything on over a serial line.
  constexpr int kSlowestLine = 9600;
  return kSlowestLine;
}

QByteArray TcpLink::ReadAvailable() {
  const bool answer_is_due = std::exchange(answer_is_due_, false) && prompt_answer_ > 0;
  if (IsConnected() && (answer_is_due || Ports::HasWaitingInput(socket_->socketDescriptor()))) {
    socket_->waitForReadyRead(answer_is_due ? prompt_answer_ : 0);
  }
  return socket_->isOpen() ? socket_->readAll() : QByteArray();
}

bool TcpLink::WaitForInput(qint64 at_most) {
  if (!IsConnected()) return false;
  socket_->waitForReadyRead(static_cast<int>(at_most));
  return true;
}

void TcpLink::Close() {
  if (socket_->state() == QAbstractSocket::UnconnectedState) return;
  // What the system has taken, it sends even then.
  if (IsConnected() && socket_->bytesToWrite() == 0) socket_->disconnectFromHost();
  if (socket_->state() != QAbstractSocket::UnconnectedState) socket_->abort();
}

QString TcpLink::FailureReason() const {
  const bool is_trying = socket_->state() == QAbstractSocket::HostLookupState ||
                         socket_->state() == QAbstractSocket::ConnectingState;
  return endpoint_ + u": "_s +
         (is_trying ? TranslateText(u"no answer within %1 ms"_s).arg(kConnectTime)
                    : TranslateText(socket_->errorString()));
}

}  // namespace Brivon1
