#include "files/scrolling_check.h"

#include "base/file_checks.h"
#include "files/file_check.h"
#include "files/row_check.h"
#include "scrolling/scrolling_file.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {

void CheckScrolling(const QString& path, FileReport* report) {
  constexpr int kTextLine = 2;
  Brivon1::FileFailure failure;
  const auto message = Brivon1::ReadScrollingMessage(path, &failure);
  if (!message) {
    report->Refuse(failure.line,
                   failure.fault == Brivon1::FileFault::kEndsEarly
                       ? u"the message is missing: the file ends behind its first line"_s
                       : CommonFailureText(failure));
    return;
  }
  report->length = message->Length();
  const QByteArray text = Brivon1::ScrollingFileText(path).value_or(QByteArray());
  for (const QString& warning : ScrollingWarnings(text)) report->Warn(kTextLine, warning);
}

}  // namespace BrivonCtl
