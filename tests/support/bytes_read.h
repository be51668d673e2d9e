// How much this process has read.
#pragma once

#include <QByteArray>
#include <QFile>

/// The bytes that system calls have read for this process until now; nothing of it is a matter of
/// time. -1 where the system does not count them.
inline qint64 BytesRead() {
  QFile counts(QStringLiteral("/proc/self/io"));
  if (!counts.open(QIODevice::ReadOnly)) return -1;
  const QByteArray first = counts.readLine();  // "rchar: 6976"
  return first.startsWith("rchar: ") ? first.sliced(7).trimmed().toLongLong() : -1;
}
