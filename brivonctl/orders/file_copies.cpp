#include "orders/file_copies.h"

#include <array>
#include <utility>

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>

#include "base/code_page.h"
#include "base/file_checks.h"
#include "base/files.h"
#include "base/text.h"
#include "schedule/schedule.h"
#include "schedule/schedule_reader.h"
#include "store/configuration_store.h"

namespace BrivonCtl {
namespace {

/// The lines of the longest schedule. Of no file does a transmission read more.
constexpr int kMostLines = 7 + 3 * Brivon1::kMostSequences;

/// A file whose system did not let it be read.
class ClosedFile : public QBuffer {
 public:
  bool open(OpenMode /*mode*/) override { return false; }
};

/// Takes in a file portion by portion, up to the last line that a reader may come to.
class Beginning {
 public:
  bool IsWhole() const { return lines_ >= kMostLines || line_size_ > kLongest; }

  void Add(QByteArrayView bytes) {
    while (!bytes.isEmpty() && !IsWhole()) {
      const qsizetype end = bytes.indexOf('\n') + 1;
      const qsizetype size = end > 0 ? end : bytes.size();
      bytes_.append(bytes.first(size));
      line_size_ = end > 0 ? 0 : line_size_ + size;
      lines_ += end > 0 ? 1 : 0;
      bytes = bytes.sliced(size);
    }
  }

  QByteArray Take() {
    bytes_.squeeze();
    return std::exchange(bytes_, {});
  }

 private:
  static constexpr qint64 kLongest = Brivon1::kLongestLine + 2;  // with its end

  QByteArray bytes_;
  int lines_ = 0;
  qint64 line_size_ = 0;  // of the line that has not ended yet
};

}  // namespace

FileCopies::FileCopies(const QString& path, const std::function<bool()>& is_stopped)
    : is_stopped_(is_stopped) {
  Take(path);
  // A schedule is sent without the blanks at the ends of its name.
  const QString trimmed = path.trimmed();
  if (trimmed != path) Take(trimmed);
  TakeNamedBy(trimmed);
}

void FileCopies::TakeNamedBy(const QString& schedule) {
  Brivon1::ScheduleReader reader(schedule, *this);
  const int steps = reader.Head() ? reader.Head()->sequences : 0;
  for (int step = 0; step < steps; ++step) {
    const auto line = reader.NextPath();
    if (!line || !reader.NextDetails()) return;
    const QString path = Brivon1::InProgramFolder(
        Brivon1::CodePage::System().ToText(Brivon1::TrimBlanks(*line).left(Brivon1::kLongestPath)));
    if (found_.contains(path)) continue;
    found_[path] = Brivon1::FindFile(path);
    Take(found_[path]);
  }
}

void FileCopies::Take(const QString& path) {
  if (!Brivon1::FileExists(path) || copies_.contains(path)) return;
  Copy& copy = copies_[path];
  QFile file(path);
  copy.is_readable = file.open(QIODevice::ReadOnly);
  if (!copy.is_readable) return;
  QCryptographicHash hash(QCryptographicHash::Sha256);
  std::array<char, 65'536> portion;
  qint64 size = 0;
  const auto read = [&] {
    if (is_stopped_()) return false;
    size = file.read(portion.data(), static_cast<qint64>(portion.size()));
    if (size > 0) hash.addData(QByteArrayView(portion.data(), size));
    return size > 0;
  };
  Beginning beginning;
  while (!beginning.IsWhole() && read()) beginning.Add(QByteArrayView(portion.data(), size));
  copy.beginning = beginning.Take();
  const bool is_known = Brivon1::IsMessageFile(path, *this) ||
                        Brivon1::IsScheduleFile(path, *this) ||
                        Brivon1::IsScrollingFile(path, *this);
  if (!is_known) return;
  while (read()) {
  }
  if (size == 0) copy.digest = hash.result().toHex();
}

std::unique_ptr<QIODevice> FileCopies::Device(const QString& path) const {
  const Copy copy = copies_.value(path);
  auto device = copy.is_readable ? std::make_unique<QBuffer>() : std::make_unique<ClosedFile>();
  device->setData(copy.beginning);
  return device;
}

}  // namespace BrivonCtl
