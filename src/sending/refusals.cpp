#include "sending/refusals.h"

#include <algorithm>

#include "language/module_language.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using ModuleLanguage::TranslateMessage;

QString SizeText(int rows, int columns) { return u"%1x%2"_s.arg(rows).arg(columns); }

}  // namespace

QString PanelName(int id) { return u"ID%1"_s.arg(id, 3, 10, '0'_L1); }

Refusal FileNotFound(const QString& path, const QString& end) {
  return {TranslateMessage(u"File not found"_s) + end, MissingFileRemedy(path)};
}

Refusal WrongKind(const QString& path, FileSort wanted, const QString& end) {
  return {TranslateMessage(u"Error in opening file"_s) + end, WrongKindRemedy(path, wanted)};
}

Refusal NoPanel(const QString& text, const Configuration& configuration) {
  const bool has_panels = std::any_of(configuration.panels.begin(), configuration.panels.end(),
                                      [](const PanelEntry& panel) { return panel.IsConfigured(); });
  return {TranslateMessage(text),
          TranslateMessage(has_panels ? u"Choose a panel from the list."_s
                                      : u"Set up a panel: Config in the main window."_s)};
}

Refusal NoAddress(int id) {
  return {
      TranslateMessage(u"IP address is null or invaild"_s),
      TranslateMessage(u"%1 has no usable IP address: enter it in Config."_s).arg(PanelName(id))};
}

Refusal DimensionNotMatched(FileSort sort, Dimension dimension, const PanelListEntry& panel) {
  const QString why =
      TranslateMessage(sort == FileSort::kSchedule ? u"The schedule is %1, %2 is %3."_s
                                                   : u"The page is %1, %2 is %3."_s)
          .arg(SizeText(dimension.rows, dimension.columns), PanelName(panel.id),
               SizeText(panel.rows, panel.columns));
  return {TranslateMessage(u"Dimension not matched!"_s),
          why + u'\n' + TranslateMessage(u"Choose a file and a panel of one size."_s)};
}

}  // namespace Brivon1
