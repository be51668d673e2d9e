#include "scrolling/scrolling_file.h"

#include "base/file_checks.h"
#include "row/attribute_codes.h"

namespace Brivon1 {

SaveResult WriteScrollingMessage(const QString& path, const PageRow& message) {
  QByteArray content = QByteArray(kScrollingHeader) + "\r\n";
  AttributeWriter writer;
  for (qsizetype at = 0; at < message.Length(); ++at) {
    writer.Append(message.Text()[at], message.AttributesAt(at), content);
  }
  return SaveWholeFile(path, content + "\r\n");
}

std::optional<PageRow> ReadScrollingMessage(const QString& path) {
  const std::optional<QByteArray> text = ScrollingFileText(path);
  if (!text) return std::nullopt;
  PageRow message(PageRow::kEveryColumn);
  Attributes attributes;
  QByteArrayView rest = *text;
  while (!rest.isEmpty()) {
    qsizetype taken = ReadAttributeCode(rest, attributes);
    if (taken == 0) {
      message.Append(rest.front(), attributes);
      taken = 1;
    }
    rest = rest.sliced(taken);
  }
  return message;
}

}  // namespace Brivon1
