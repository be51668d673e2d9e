#include "scrolling/scrolling_file.h"

#include "base/file_checks.h"
#include "language/file_remedies.h"
#include "language/module_language.h"
#include "row/coded_text.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

using ModuleLanguage::TranslateMessage;

SaveResult WriteScrollingMessage(const QString& path, const PageRow& message, QString* reason) {
  return SaveWholeFile(path, QByteArray(kScrollingHeader) + "\r\n" + CodedText(message) + "\r\n",
                       reason);
}

QString ScrollingFileRemedy(const QString& path, const FileFailure& failure) {
  if (failure.fault == FileFault::kLongLine) return LongLineRemedy(path);
  if (failure.fault != FileFault::kEndsEarly) return WrongKindRemedy(path, FileSort::kScrolling);
  return TranslateMessage(u"%1 ends after its first line."_s).arg(path);
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
