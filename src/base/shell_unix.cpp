#include "base/shell.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

#include <QFile>

namespace Brivon1 {

std::vector<std::string> CommandLineWords(int argc, const char* const* argv) {
  return {argv, argv + argc};
}

QString TextOfWord(const std::string& word) { return QFile::decodeName(word.c_str()); }

QByteArray StreamText(const QString& text) { return text.toLocal8Bit(); }

int WriteToStream(Stream stream, const QByteArray& bytes, WhenFull when_full) {
  const int descriptor = stream == Stream::kOutput ? STDOUT_FILENO : STDERR_FILENO;
  const char* next = bytes.constData();
  auto left = static_cast<std::size_t>(bytes.size());
  while (left > 0) {
    const ssize_t size = ::write(descriptor, next, left);
    if (size < 0 && errno == EINTR) continue;
    if (size < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
      if (when_full == WhenFull::kGiveUp) return EAGAIN;
      // Whoever shares the stream has made it one that does not wait.
      pollfd look{descriptor, POLLOUT, 0};
      ::poll(&look, 1, -1);
      continue;
    }
    if (size < 0) return errno;
    if (size == 0) return EIO;
    next += size;
    left -= static_cast<std::size_t>(size);
  }
  return 0;
}

bool IsListenerGone(int error) { return error == EPIPE; }

}  // namespace Brivon1
