#include "scrolling/scrolling_order.h"

#include <limits>

#include "base/files.h"
#include "base/text.h"
#include "language/module_language.h"
#include "sending/refusals.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

using ModuleLanguage::TranslateMessage;

std::optional<Refusal> CheckScrollingOrder(const ScrollingOrder& order,
                                           const Configuration& configuration,
                                           const FileSource& files) {
  if (!files.Exists(order.path)) return FileNotFound(order.path, u"!"_s);
  if (!order.panel) return NoPanel(u"Invalid ID Selection!"_s, configuration);
  const auto refuse_line = [&](const QString& text) {
    return Refusal{TranslateMessage(text), TranslateMessage(u"%1 has the lines 1 to %2."_s)
                                               .arg(PanelName(order.panel->id))
                                               .arg(order.panel->rows)};
  };
  if (order.line.isEmpty()) return refuse_line(u"Invalid Line No.!"_s);
  if (LineNumber(order.line) > order.panel->rows) return refuse_line(u"Line No. Not Valid!"_s);
  return std::nullopt;
}

int LineNumber(const QString& text) {
  return LeadingNumber(text.toUtf8(), std::numeric_limits<int>::min(),
                       std::numeric_limits<int>::max());
}

}  // namespace Brivon1
