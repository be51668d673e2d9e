#include "command/command_order.h"

#include <QStringList>

#include "language/module_language.h"
#include "page/page_order.h"
#include "sending/refusals.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

using ModuleLanguage::TranslateMessage;

std::optional<Refusal> CheckCommandPanel(const std::optional<PanelListEntry>& panel,
                                         const Configuration& configuration) {
  if (!panel) return NoPanel(u"Empty ID!"_s, configuration);
  return std::nullopt;
}

std::optional<Refusal> CheckCommandPage(const QString& text) {
  if (!IsPageNumber(text)) return PageNumberRefusal();
  return std::nullopt;
}

QString CommandReportText(const CommandReport& report) {
  QStringList pieces;
  for (const QString& piece : report.text) pieces.append(TranslateMessage(piece));
  return pieces.join(u' ');
}

}  // namespace Brivon1
