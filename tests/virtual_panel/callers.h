// Callers of a virtual panel that mean it no good, many at a time: plain sockets, so that the test
// itself costs little beside them.
#pragma once

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <QtGlobal>

namespace VirtualPanel {

class Caller {
 public:
  /// Connects to `port` on loopback; waits until the system has taken the request.
  explicit Caller(quint16 port) : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    is_connected_ =
        ::connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::fcntl(socket_, F_SETFL, O_NONBLOCK);
  }

  Caller(Caller&& other) noexcept
      : socket_(std::exchange(other.socket_, -1)),
        is_connected_(other.is_connected_),
        answer_(std::move(other.answer_)) {}
  Caller& operator=(Caller&&) = delete;

  ~Caller() {
    if (socket_ >= 0) ::close(socket_);
  }

  bool IsConnected() const { return is_connected_; }

  /// Sends as much as the system takes now, and returns how much that was.
  size_t Send(std::string_view bytes) {
    const ssize_t size = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (size < 0 && errno != EAGAIN) is_connected_ = false;
    return size < 0 ? 0 : static_cast<size_t>(size);
  }

  /// Ends the line in its own direction, as a program does that has sent everything.
  void SayNoMore() { ::shutdown(socket_, SHUT_WR); }

  /// Everything that has been answered.
  const std::string& Answer() {
    char bytes[256];
    ssize_t size = 0;
    while ((size = ::recv(socket_, bytes, sizeof bytes, 0)) > 0) {
      answer_.append(bytes, static_cast<size_t>(size));
    }
    if (size == 0 || errno != EAGAIN) is_connected_ = false;
    return answer_;
  }

 private:
  int socket_;
  bool is_connected_ = false;
  std::string answer_;
};

inline std::vector<Caller> Call(quint16 port, int count) {
  std::vector<Caller> callers;
  callers.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) callers.emplace_back(port);
  return callers;
}

}  // namespace VirtualPanel
