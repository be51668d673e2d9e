#include "page/page_order.h"

#include <limits>

#include "base/file_checks.h"
#include "base/files.h"
#include "base/text.h"
#include "language/module_language.h"
#include "sending/refusals.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

using ModuleLanguage::TranslateMessage;

std::optional<Refusal> CheckPageOrder(const PageOrder& order, const Configuration& configuration,
                                      const FileSource& files) {
  if (!files.Exists(order.path)) return FileNotFound(order.path, u"!"_s);
  if (!order.panel) return NoPanel(u"Invalid ID Selection!"_s, configuration);
  if (order.page.isEmpty()) return PageNumberRefusal();
  const auto dimension = IsMessageFile(order.path, files);
  if (!dimension) return WrongKind(order.path, FileSort::kPage, u"!"_s);
  if (*dimension != Dimension{order.panel->rows, order.panel->columns}) {
    return DimensionNotMatched(FileSort::kPage, *dimension, *order.panel);
  }
  if (configuration.Mode() == SendMode::kTcp && !order.panel->endpoint.IsUsable()) {
    return NoAddress(order.panel->id);
  }
  return std::nullopt;
}

Refusal PageNumberRefusal() {
  return {TranslateMessage(u"Invalid Page Value!"_s),
          TranslateMessage(u"A page is a number from 1 to 120."_s)};
}

QByteArray PageDigits(const QString& text) {
  return ZeroPadded(LeadingNumber(text.toUtf8(), 0, std::numeric_limits<int>::max()), 3);
}

}  // namespace Brivon1
