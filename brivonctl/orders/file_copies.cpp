#include "orders/file_copies.h"

#include <algorithm>
#include <array>
#include <utility>

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QSet>

#include "base/file_checks.h"
#include "base/files.h"
#include "base/text.h"
#include "schedule/schedule.h"
#include "schedule/schedule_reader.h"
#include "schedule/schedule_transmission.h"
#include "schedule/step_file.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

/// How many lines a transmission may read of a file that begins with `first`; 0 where it begins as
/// no file of the system does.
int MostLines(QByteArray first) {
  if (first.endsWith('\n')) first.chop(1);
  if (first.endsWith('\r')) first.chop(1);
  const QByteArray header = Brivon1::TrimBlanks(first);
  if (header == Brivon1::kMessageHeader) return Brivon1::kPageHeadLines + Brivon1::kMaxRows;
  if (header == Brivon1::kScrollingHeader) return Brivon1::kScrollingLines;
  if (header != Brivon1::kScheduleHeader) return 0;
  return Brivon1::kScheduleHeadLines + Brivon1::kSequenceLines * Brivon1::kMostSequences;
}

/// A file whose system did not let it be read.
class ClosedFile : public QBuffer {
 public:
  bool open(OpenMode /*mode*/) override { return false; }
  qint64 size() const override { return Brivon1::kShortestFile; }  // not known to be too short
};

/// Takes in a file portion by portion, up to the last line that a reader may come to.
class Beginning {
 public:
  bool IsWhole() const { return lines_ >= most_lines_ || line_size_ > kLongest; }

  void Add(QByteArrayView bytes) {
    while (!bytes.isEmpty() && !IsWhole()) {
      const qsizetype end = bytes.indexOf('\n') + 1;
      const qsizetype size = end > 0 ? end : bytes.size();
      bytes_.append(bytes.first(size));
      line_size_ = end > 0 ? 0 : line_size_ + size;
      lines_ += end > 0 ? 1 : 0;
      if (end > 0 && lines_ == 1) most_lines_ = MostLines(bytes_);
      bytes = bytes.sliced(size);
    }
  }

  /// Nothing of a file that is of no kind.
  QByteArray Take() {
    if (lines_ == 0) most_lines_ = MostLines(bytes_);
    if (most_lines_ == 0) return {};
    bytes_.squeeze();
    return std::exchange(bytes_, {});
  }

 private:
  static constexpr qint64 kLongest = Brivon1::kLongestLine + 2;  // with its end

  QByteArray bytes_;
  int lines_ = 0;
  int most_lines_ = 1;    // until the first one tells the kind
  qint64 line_size_ = 0;  // of the line that has not ended yet
};

}  // namespace

/// A file that is read once, from its beginning to its end, whatever the pauses between.
class FileCopies::HashedFile {
 public:
  explicit HashedFile(const QString& path) : file_(path) {}

  bool Open() { return file_.open(QIODevice::ReadOnly); }

  /// The next portion, as long as it is not asked for another one; empty at the end and where the
  /// reading has failed.
  QByteArrayView Next() {
    const qint64 size = file_.read(portion_.data(), static_cast<qint64>(portion_.size()));
    has_failed_ = size < 0;
    const QByteArrayView bytes(portion_.data(), std::max<qint64>(size, 0));
    hash_.addData(bytes);
    return bytes;
  }

  bool HasFailed() const { return has_failed_; }
  QString Reason() const { return file_.errorString(); }
  QByteArray Digest() const { return hash_.result().toHex(); }

 private:
  QFile file_;
  QCryptographicHash hash_{QCryptographicHash::Sha256};
  std::array<char, 65'536> portion_{};
  bool has_failed_ = false;
};

FileCopies::FileCopies(const QString& path, const std::function<bool()>& is_stopped)
    : is_stopped_(is_stopped) {
  Take(path);
  const QString schedule = Brivon1::SentSchedulePath(path);
  Take(schedule);
  TakeNamedBy(schedule);
}

void FileCopies::TakeNamedBy(const QString& schedule) {
  Brivon1::ScheduleReader reader(schedule, *this);
  const int steps = reader.Head() ? reader.Head()->sequences : 0;
  QSet<QString> names;  // in upper case, as the transmission compares them
  for (int step = 0; step < steps; ++step) {
    const auto line = reader.NextPath();
    if (!line || !reader.NextDetails()) return;
    const QString name = Brivon1::StepFileName(*line);
    if (names.contains(name.toUpper())) continue;
    if (names.size() == Brivon1::kMostDistinctFiles) return;
    names.insert(name.toUpper());
    const QString path = Brivon1::InProgramFolder(name);
    const QString file = Brivon1::FindFile(path);
    found_[path] = file;
    if (copies_.contains(file)) continue;
    Take(file);
    if (copies_.contains(file)) copies_[file].file.reset();  // nobody asks for its digest
  }
}

void FileCopies::Take(const QString& path) {
  if (!Brivon1::FileExists(path) || copies_.contains(path)) return;
  Copy& copy = copies_[path];
  const auto file = std::make_shared<HashedFile>(path);
  copy.is_readable = file->Open();
  if (!copy.is_readable) return;
  Beginning beginning;
  while (!beginning.IsWhole() && !is_stopped_()) {
    const QByteArrayView portion = file->Next();
    if (portion.isEmpty()) break;
    beginning.Add(portion);
  }
  if (file->HasFailed()) {
    Drop(path, file->Reason());
    return;
  }
  copy.beginning = beginning.Take();
  if (!copy.beginning.isEmpty()) copy.file = file;
}

void FileCopies::TakeDigest(const QString& path) {
  if (!copies_.contains(path)) return;
  const auto file = std::exchange(copies_[path].file, {});
  if (!file) return;
  do {
    if (is_stopped_()) return;
  } while (!file->Next().isEmpty());
  if (file->HasFailed()) {
    Drop(path, file->Reason());
  } else {
    copies_[path].digest = file->Digest();
  }
}

void FileCopies::Drop(const QString& path, const QString& reason) {
  copies_[path] = Copy();
  if (!read_failure_.isEmpty()) return;
  read_failure_ = u"%1 cannot be read: %2; send another copy of it"_s.arg(path, reason);
}

std::unique_ptr<QIODevice> FileCopies::Device(const QString& path) const {
  const Copy copy = copies_.value(path);
  auto device = copy.is_readable ? std::make_unique<QBuffer>() : std::make_unique<ClosedFile>();
  device->setData(copy.beginning);
  return device;
}

}  // namespace BrivonCtl
