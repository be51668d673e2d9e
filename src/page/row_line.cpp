#include "page/row_line.h"

#include <algorithm>

#include "base/text.h"
#include "panel_line/framing.h"
#include "row/coded_text.h"
#include "store/configuration_store.h"

namespace Brivon1 {
namespace {

constexpr qsizetype kLeadingCodeLength = 5;

/// `line` with the panel's own codes for date, time and graphics. The replacement goes by the
/// literal text of the line, codes included.
QByteArray WithPanelCodes(QByteArray line) {
  line.replace("DD MMM YYYY", "<DD>");
  line.replace("HH:MM", "<DT>");
  QByteArray result;
  for (qsizetype i = 0; i < line.size(); ++i) {
    if (line[i] == '~' && i + 1 < line.size()) {
      result += QByteArray("<G") + line[++i] + '>';
    } else {
      result += line[i];
    }
  }
  return result;
}

}  // namespace

QByteArray RowLine(int number, const PageRow& row) {
  return "<L" + ZeroPadded(number, 2) + '>' + CodedText(row);
}

PanelLine AsPanelLine(const QByteArray& row_line, qint16 colour_type) {
  const QByteArray line = WithPanelCodes(row_line);
  const QByteArray text = line.mid(line.indexOf('>') + 1);
  return {line.first(std::min(kLeadingCodeLength, line.size())),
          colour_type == kMono ? TrimBlanks(StripColourCodes(text)) : text};
}

}  // namespace Brivon1
