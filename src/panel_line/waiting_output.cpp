#include "panel_line/waiting_output.h"

#include <QSerialPort>

#ifdef Q_OS_UNIX
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace Brivon1 {

std::optional<qsizetype> WriteWhatFits(QSerialPort& port, QByteArrayView bytes) {
#ifdef Q_OS_UNIX
  qsizetype taken = 0;
  while (taken < bytes.size()) {
    const ssize_t size = ::write(port.handle(), bytes.data() + taken,
                                 static_cast<std::size_t>(bytes.size() - taken));
    if (size > 0) {
      taken += size;
    } else if (size == 0 || errno == EAGAIN) {
      break;
    } else if (errno != EINTR) {
      return std::nullopt;
    }
  }
  return taken;
#else
  // Here the toolkit writes in the background and keeps what has no room.
  const qint64 taken = port.write(bytes.data(), bytes.size());
  return taken < 0 ? std::nullopt : std::optional<qsizetype>(taken);
#endif
}

qint64 BytesInSystem([[maybe_unused]] qintptr descriptor) {
#ifdef Q_OS_UNIX
  const int file = static_cast<int>(descriptor);
  int bytes = 0;
  if (::ioctl(file, TIOCOUTQ, &bytes) != 0) return 0;
#ifdef TIOCSERGETLSR
  // What the port or adapter itself still holds is no longer counted; it says only that there is
  // some.
  int state = 0;
  if (bytes == 0 && ::ioctl(file, TIOCSERGETLSR, &state) == 0 && (state & TIOCSER_TEMT) == 0) {
    return 1;
  }
#endif
  return bytes;
#else
  return 0;
#endif
}

}  // namespace Brivon1
