// How much this process has read.
#pragma once

#include <QtGlobal>

/// The bytes that system calls have read for this process until now; nothing of it is a matter of
/// time. -1 where the system does not count them.
qint64 BytesRead();
