#include "support/pipe_file.h"

bool MakePipe(const QString& /*path*/) { return false; }

bool IsPipe(const QString& /*path*/) { return false; }
