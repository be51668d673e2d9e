#include "sending/refusals.h"

#include "language/module_language.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

using ModuleLanguage::TranslateMessage;

Refusal FileNotFound([[maybe_unused]] const QString& path, const QString& end) {
  return {TranslateMessage(u"File not found"_s) + end, {}};
}

Refusal WrongKind([[maybe_unused]] const QString& path, const QString& end) {
  return {TranslateMessage(u"Error in opening file"_s) + end, {}};
}

Refusal NoPanel(const QString& text, [[maybe_unused]] const Configuration& configuration) {
  return {TranslateMessage(text), {}};
}

}  // namespace Brivon1
