// The file that a save writes in order to put it in another's place. Where the system can, it has
// no name while it is written, so that a program that is killed leaves nothing; where it has one,
// it is locked for as long as its program lives, so that the next save of that file knows what has
// been left by one that does not.
#pragma once

#include <QByteArray>
#include <QString>

namespace Brivon1 {

/// The file that a save to `path` replaces: where that is a link, what stands at its end, or will.
QString ReplacedFile(const QString& path);

/// Its functions are called in their order and give 0 or the error's number (`errno`), after which
/// no further one is called. What has not taken its place is gone with the object.
class ReplacingFile {
 public:
  /// It is to stand at `path`; where that is a link, in the place of the link's target. With
  /// `has_name` it has a name while it is written, also where it could do without.
  explicit ReplacingFile(const QString& path, bool has_name = false);
  ~ReplacingFile();
  ReplacingFile(const ReplacingFile&) = delete;
  ReplacingFile& operator=(const ReplacingFile&) = delete;

  /// Removes what killed saves of this file have left, and begins the new one.
  int Open();

  int Write(const QByteArray& content) const;

  /// Gives the new file the owner, the group and the mode of the old one, as far as this user may,
  /// and waits until it has reached the disk, where the disk can tell.
  int Flush();

  /// Waits for the disk again, as far as it can tell: the new file is there after a power failure,
  /// too.
  int TakePlace();

  /// Whether TakePlace() has failed in a way that another file, one with a name, may not.
  bool MaySucceedWithName() const { return may_succeed_with_name_; }

 private:
  int OpenWithName(unsigned mode);
  int Rename();
  int GiveName();
  void KeepOwner() const;

  QByteArray target_;
  QByteArray name_;  ///< Empty while the file has none of its own.
  int handle_ = -1;
  bool has_name_ = false;
  bool may_succeed_with_name_ = false;
};

}  // namespace Brivon1
