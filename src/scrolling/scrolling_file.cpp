#include "scrolling/scrolling_file.h"

#include "base/file_checks.h"
#include "row/coded_text.h"

namespace Brivon1 {

SaveResult WriteScrollingMessage(const QString& path, const PageRow& message) {
  return SaveWholeFile(path, QByteArray(kScrollingHeader) + "\r\n" + CodedText(message) + "\r\n");
}

std::optional<PageRow> ReadScrollingMessage(const QString& path, FileFailure* why) {
  const std::optional<QByteArray> text = ScrollingFileText(path, why);
  if (!text) return std::nullopt;
  PageRow message(PageRow::kEveryColumn);
  Attributes attributes;
  QByteArrayView rest = *text;
  while (!rest.isEmpty()) rest = rest.sliced(ReadCodedText(rest, attributes, message));
  return message;
}

}  // namespace Brivon1
