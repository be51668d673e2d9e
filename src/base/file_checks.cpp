#include "base/file_checks.h"

#include "base/files.h"
#include "base/text.h"

namespace Brivon1 {
namespace {

/// How a kind of file begins. The rows stand in line `rows_line`, the columns in the next one.
struct FileKind {
  const char* header;
  int rows_line;  // 0: the header carries no dimension
};

constexpr FileKind kMessageFile{kMessageHeader, 2};
constexpr FileKind kScheduleFile{kScheduleHeader, 5};
constexpr FileKind kScrollingFile{kScrollingHeader, 0};

/// Opens `file`, that of `path` in `files`, and reads its header; `lines` reads from it and stands
/// behind the header then.
std::optional<Dimension> ReadHeader(const QString& path, const FileSource& files, QIODevice& file,
                                    LineReader& lines, const FileKind& kind, FileFailure& why) {
  const auto refuse = [&why](FileFault fault, int line = 0) {
    why = {fault, line, {}};
    return std::nullopt;
  };
  if (!files.Exists(path)) return refuse(FileFault::kNoFile);
  if (file.size() < kShortestFile) return refuse(FileFault::kTooShort);
  if (!file.open(QIODevice::ReadOnly)) return refuse(FileFault::kNotReadable);
  const std::optional<QByteArray> header = lines.Next();
  if (!header || TrimBlanks(*header) != kind.header) return refuse(FileFault::kHeader, 1);
  if (kind.rows_line == 0) return Dimension{};
  for (int line = 2; line < kind.rows_line; ++line) lines.Next();
  const auto next_number = [&] {
    return LeadingNumber16(ValueAfterEquals(lines.Next().value_or(QByteArray())));
  };
  Dimension dimension;
  dimension.rows = next_number();
  dimension.columns = next_number();
  return dimension;
}

std::optional<Dimension> CheckFile(const QString& path, const FileKind& kind,
                                   const FileSource& files) {
  const auto file = files.Device(path);
  LineReader lines(*file);
  FileFailure why;
  return ReadHeader(path, files, *file, lines, kind, why);
}

}  // namespace

MessageFileReader::MessageFileReader(const QString& path, const FileSource& files)
    : file_(files.Device(path)),
      lines_(*file_),
      dimension_(ReadHeader(path, files, *file_, lines_, kMessageFile, failure_)) {}

std::optional<QByteArray> MessageFileReader::NextRowLine() {
  return dimension_ ? lines_.Next() : std::nullopt;
}

std::optional<Dimension> IsMessageFile(const QString& path, const FileSource& files) {
  return CheckFile(path, kMessageFile, files);
}

std::optional<Dimension> IsScheduleFile(const QString& path, const FileSource& files) {
  return CheckFile(path, kScheduleFile, files);
}

bool IsScrollingFile(const QString& path, const FileSource& files) {
  return CheckFile(path, kScrollingFile, files).has_value();
}

std::optional<QByteArray> ScrollingFileText(const QString& path, FileFailure* why,
                                            const FileSource& files) {
  const auto file = files.Device(path);
  LineReader lines(*file);
  FileFailure failure;
  std::optional<QByteArray> text;
  if (ReadHeader(path, files, *file, lines, kScrollingFile, failure)) {
    text = lines.Next();
    if (!text) failure = MissingLine(lines);
  }
  if (why != nullptr) *why = failure;
  return text;
}

}  // namespace Brivon1
