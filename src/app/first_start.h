// What the launcher says of a first start at which the program's own files could not be laid out.
#pragma once

#include "store/program_folder.h"

class QWidget;

/// Shows which file or folder could not be written and why, if there is one, beside what `launcher`
/// does: the program goes on without it.
void TellLayOutFailure(QWidget* launcher, const Brivon1::LayOutFailure& failure);
