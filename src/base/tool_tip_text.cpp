#include "base/tool_tip_text.h"

#include <QTextDocument>
#include <QTextDocumentFragment>

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

void BreakLongWords(QString& text) {
  constexpr int kLongestWord = 80;
  constexpr char16_t kBreak = 0x200B;  // has no width
  int length = 0;
  for (qsizetype at = 0; at < text.size(); ++at) {
    length = text[at].isSpace() ? 0 : length + 1;
    if (length <= kLongestWord) continue;
    text.insert(at, QChar(kBreak));
    length = 0;
  }
}

}  // namespace

QString ToolTipText(QString text, LongLines lines) {
  if (lines == LongLines::kBroken) BreakLongWords(text);
  if (!Qt::mightBeRichText(text)) return text;
  if (lines == LongLines::kWhole) return Qt::convertFromPlainText(text);
  return u"<p style=\"white-space:pre-wrap\">%1</p>"_s.arg(text.toHtmlEscaped());
}

QString ShownByToolTip(const QString& tool_tip) {
  if (!Qt::mightBeRichText(tool_tip)) return tool_tip;
  return QTextDocumentFragment::fromHtml(tool_tip).toPlainText();
}

}  // namespace Brivon1
