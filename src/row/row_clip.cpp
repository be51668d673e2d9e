#include "row/row_clip.h"

#include "base/code_page.h"

namespace Brivon1 {
namespace {

constexpr qsizetype kBytesPerCharacter = 4;
constexpr qsizetype kMostCharacters = 1'000'000;

QByteArray FirstLine() {
  return "Brivon row 1 " + QByteArray::number(CodePage::System().Number()) + '\n';
}

/// Whether a row may have these. A hand-made file gives any colour, and it comes back as it was.
bool AreValid(const Attributes& attributes) {
  return attributes.size >= 'A' && attributes.size <= 'D' &&
         !IsControlCharacter(attributes.colour) &&
         (attributes.blink == kSteady || attributes.blink == kBlinking);
}

}  // namespace

QByteArray RowClip(const PageRow& row) {
  if (row.Length() > kMostCharacters) return {};
  QByteArray bytes = FirstLine();
  bytes.reserve(bytes.size() + row.Length() * kBytesPerCharacter);
  for (qsizetype at = 0; at < row.Length(); ++at) {
    const Attributes attributes = row.AttributesAt(at);
    bytes.append(row.Text()[at]);
    bytes.append(attributes.size).append(attributes.colour).append(attributes.blink);
  }
  return bytes;
}

std::optional<PageRow> ReadRowClip(QByteArrayView bytes) {
  const QByteArray first_line = FirstLine();
  if (!bytes.startsWith(first_line)) return std::nullopt;
  bytes = bytes.sliced(first_line.size());
  if (bytes.isEmpty() || bytes.size() % kBytesPerCharacter != 0 ||
      bytes.size() / kBytesPerCharacter > kMostCharacters) {
    return std::nullopt;
  }
  PageRow row;
  for (; !bytes.isEmpty(); bytes = bytes.sliced(kBytesPerCharacter)) {
    const Attributes attributes{bytes[1], bytes[2], bytes[3]};
    if (!AreValid(attributes)) return std::nullopt;
    if (!IsControlCharacter(bytes[0])) row.Append(bytes[0], attributes);
  }
  return row;
}

QString ClipText(const PageRow& row) { return CodePage::System().ToText(row.Text()); }

}  // namespace Brivon1
