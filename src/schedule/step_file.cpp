#include "schedule/step_file.h"

#include "base/code_page.h"
#include "base/files.h"
#include "base/text.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

QString StepFileName(const QByteArray& line) {
  return CodePage::System().ToText(TrimBlanks(line).left(kLongestPath));
}

std::optional<StepFault> StepFaultOf(bool exists, const std::optional<Dimension>& found,
                                     Dimension wanted) {
  if (!exists) return StepFault::kMissing;
  if (!found) return StepFault::kNoPage;
  if (*found != wanted) return StepFault::kOtherSize;
  return std::nullopt;
}

QString StepFaultText(StepFault fault) {
  switch (fault) {
    case StepFault::kMissing:
      return u"File not found"_s;
    case StepFault::kNoPage:
      return u"Error in opening file"_s;
    case StepFault::kOtherSize:
      return u"Dimension Not Match"_s;
  }
  return {};
}

}  // namespace Brivon1
