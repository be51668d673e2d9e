// A pipe among the files of a folder: who opens it to read waits until somebody writes.
#pragma once

#include <QString>

/// Makes one at `path`. False where it cannot be made, as on Windows, whose folders have none.
bool MakePipe(const QString& path);

bool IsPipe(const QString& path);
