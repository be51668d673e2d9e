#include "support/bytes_read.h"

#include <QByteArray>
#include <QFile>

using namespace Qt::StringLiterals;

qint64 BytesRead() {
  QFile counts(u"/proc/self/io"_s);
  if (!counts.open(QIODevice::ReadOnly)) return -1;
  const QByteArray first = counts.readLine();  // "rchar: 6976"
  return first.startsWith("rchar: ") ? first.sliced(7).trimmed().toLongLong() : -1;
}
