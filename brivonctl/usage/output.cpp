#include "usage/output.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "usage/words.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

bool is_output_whole = true;

bool Write(int descriptor, const QByteArray& bytes) {
  const char* next = bytes.constData();
  auto left = static_cast<std::size_t>(bytes.size());
  while (left > 0) {
    const ssize_t size = ::write(descriptor, next, left);
    if (size < 0 && errno == EINTR) continue;
    if (size < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
      // Whoever shares the stream has made it one that does not wait.
      pollfd look{descriptor, POLLOUT, 0};
      ::poll(&look, 1, -1);
      continue;
    }
    if (size <= 0) return false;
    next += size;
    left -= static_cast<std::size_t>(size);
  }
  return true;
}

}  // namespace

bool Print(Stream stream, const QByteArray& bytes) {
  errno = 0;
  if (Write(stream == Stream::kOutput ? STDOUT_FILENO : STDERR_FILENO, bytes)) return true;
  const int error = errno;
  if (stream == Stream::kOutput && error != EPIPE && std::exchange(is_output_whole, false)) {
    Complain(u"the result cannot be written: %1"_s.arg(qt_error_string(error)));
  }
  return false;
}

bool PrintText(Stream stream, const QString& text) { return Print(stream, text.toLocal8Bit()); }

bool IsOutputWhole() { return is_output_whole; }

}  // namespace BrivonCtl
