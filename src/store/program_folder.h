// The folder of the program's own files: "brivon.ini", the language file, and what an editor names
// "NEW". It is the program's, where the operator may write there, and else one of the operator's.
#pragma once

#include <QString>

#include "base/files.h"

namespace Brivon1 {

/// The folder that holds the program's own files, without a separator at the end: the executable's,
/// if it can be written to or holds a "brivon.ini", else "brivon" in the user's data folder. It is
/// chosen once, so that no file changes its place while the program runs.
QString ProgramFolder();

/// Lets another folder stand for it; an empty path returns to the one that was chosen.
void SetProgramFolder(const QString& folder);

/// The full path of a file in the program folder; a full path stays as it is.
QString InProgramFolder(const QString& file_name);

/// The folder of what was installed beside the programs: the sample configuration, the sample
/// pages, the languages, the manual. It need not exist: a program that was not installed has none.
QString InstalledFolder();

/// The choice that ProgramFolder() makes between two folders, neither of which needs to exist.
QString ChooseProgramFolder(const QString& executables, const QString& users);

/// A file or folder that could not be written, and why, as SaveWholeFile() says it. `result` is
/// SaveResult::kSaved where there is none.
struct LayOutFailure {
  SaveResult result = SaveResult::kSaved;
  QString path;
  QString reason;
};

/// Lays the samples in folder `installed` out in `folder`, which is made: once, and no file that
/// stands there is replaced. "brivon.ini" comes last, and where there is one, nothing is laid out;
/// so that what was interrupted is completed at the next start, and what the operator has deleted
/// stays deleted. Returns whether all of it stands there now; where something could not be written,
/// `failure` receives what. A sample that cannot be read is left out. Two programs that start at
/// once do it one after the other.
bool LayOutSamples(const QString& installed, const QString& folder,
                   LayOutFailure* failure = nullptr);

/// Does so for an installed program whose program folder is the operator's; nothing for another.
/// Returns what could not be written.
LayOutFailure LayOutProgramFolder();

}  // namespace Brivon1
