#include "base/left_over_files.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

#include <QByteArrayView>
#include <QRandomGenerator>

#include "base/abandoned_file.h"

namespace Brivon1 {
namespace {

constexpr int kLetters = 6;
constexpr QByteArrayView kBeforeLetters = ".~brivon-";
constexpr QByteArrayView kBehindLetters = "~";
constexpr qsizetype kMarkSize = kBeforeLetters.size() + kLetters + kBehindLetters.size();

constexpr qsizetype kLongestName = 255;  // in bytes, on any disk

/// As much of the name of `target`, in whole characters, as leaves room for the mark.
QByteArrayView BeginningOfName(const QByteArray& target) {
  const QByteArrayView name = QByteArrayView(target).sliced(target.lastIndexOf('/') + 1);
  const qsizetype longest = LongestNameIn(FolderOf(target));
  const qsizetype room =
      (longest > kMarkSize ? std::min(longest, kLongestName) : kLongestName) - kMarkSize;
  if (name.size() <= room) return name;
  qsizetype size = room;
  while (size > 0 && (static_cast<unsigned char>(name[size]) & 0xC0U) == 0x80U) --size;
  return name.first(size);
}

bool IsLetter(char letter) {
  return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
}

bool IsLeftOverName(QByteArrayView name, QByteArrayView beginning) {
  if (!name.startsWith(beginning)) return false;
  name = name.sliced(beginning.size());
  if (name.size() != kMarkSize) return false;
  const QByteArrayView letters = name.sliced(kBeforeLetters.size(), kLetters);
  return name.startsWith(kBeforeLetters) && name.endsWith(kBehindLetters) &&
         std::all_of(letters.begin(), letters.end(), IsLetter);
}

/// A path for the C++ library, which takes Unix' bytes as they are and Windows' for UTF-8.
std::filesystem::path PathOf(const QByteArray& path) {
  const auto* begin = reinterpret_cast<const char8_t*>(path.constData());
  return {begin, begin + path.size()};
}

/// Empty for a name of Windows that is no text, with half a character in it: none of ours.
QByteArray BytesOf(const std::filesystem::path& path) {
  try {
    const std::u8string bytes = path.generic_u8string();
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
  } catch (const std::system_error& no_text) {
    return {};
  }
}

}  // namespace

QByteArray FolderOf(const QByteArray& path) {
  const qsizetype slash = path.lastIndexOf('/');
  return slash < 0 ? QByteArray(".") : path.first(slash + 1);
}

QByteArray LeftOverName(const QByteArray& target, const QByteArray& letters) {
  const qsizetype folder_size = target.lastIndexOf('/') + 1;
  return target.first(folder_size) + BeginningOfName(target).toByteArray() +
         kBeforeLetters.toByteArray() + letters + kBehindLetters.toByteArray();
}

QByteArray SomeLeftOverName(const QByteArray& target) {
  QByteArray letters;
  for (int i = 0; i < kLetters; ++i) {
    const int letter = QRandomGenerator::system()->bounded(52);
    letters.append(static_cast<char>(letter < 26 ? 'A' + letter : 'a' + letter - 26));
  }
  return LeftOverName(target, letters);
}

void RemoveLeftOverFiles(const QByteArray& target) {
  const QByteArrayView beginning = BeginningOfName(target);
  if (beginning.isEmpty()) return;
  std::error_code error;
  std::filesystem::directory_iterator entry(PathOf(FolderOf(target)), error);
  for (const std::filesystem::directory_iterator end; !error && entry != end;
       entry.increment(error)) {
    if (!IsLeftOverName(BytesOf(entry->path().filename()), beginning)) continue;
    RemoveIfAbandoned(BytesOf(entry->path()), target);
  }
}

}  // namespace Brivon1
