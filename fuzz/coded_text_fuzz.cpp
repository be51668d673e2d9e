// Attribute codes: what the editors make of a coded text is what a panel makes of it, and what they
// write is read as the same.
#include <QRegularExpression>

#include "base/text.h"
#include "fuzz/must.h"
#include "fuzz/rows.h"
#include "fuzz/targets.h"
#include "page/row_line.h"
#include "panel_dots/message_text.h"
#include "panel_line/framing.h"
#include "row/coded_text.h"
#include "row/row_clip.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace Fuzz {
namespace {

using Brivon1::PageRow;
using PanelDots::Cell;

PageRow RowOf(QByteArrayView text) {
  PageRow row(PageRow::kEveryColumn);
  Brivon1::Attributes attributes;
  while (!text.isEmpty()) {
    const qsizetype length = Brivon1::ReadCodedText(text, attributes, row);
    Must(length == 1 || length == Brivon1::kAttributeCodeLength, "a character or a code");
    Must(length <= text.size(), "no more is read than there is");
    text = text.sliced(length);
  }
  return row;
}

Cell AsCell(char character, const Brivon1::Attributes& attributes) {
  Cell cell;
  cell.character = character;
  cell.size = attributes.size;
  cell.colour = attributes.colour;
  cell.blinking = attributes.blink == Brivon1::kBlinking;
  return cell;
}

/// Whether the text has codes that a panel alone knows: symbols, date, time.
bool HasPanelCodes(QByteArrayView text) {
  return text.contains("<G") || text.contains("<DD>") || text.contains("<DT>");
}

void MustBeWhatAPanelReads(QByteArrayView text, const PageRow& row) {
  if (HasPanelCodes(text)) return;
  const QList<Cell> cells = PanelDots::ParseCells(text);
  Must(cells.size() == row.Length(), "a panel reads as many characters");
  for (qsizetype at = 0; at < cells.size(); ++at) {
    Must(cells[at] == AsCell(row.Text()[at], row.AttributesAt(at)), "a panel reads the same");
  }
}

QByteArray WithoutColours(const QByteArray& text) {
  static const QRegularExpression colour_code(u"<C.>"_s,
                                              QRegularExpression::DotMatchesEverythingOption);
  static const QRegularExpression outer_blanks(u"\\A[ \\t]+|[ \\t]+\\z"_s);
  return QString::fromLatin1(text).remove(colour_code).remove(outer_blanks).toLatin1();
}

void MustBePanelLines(const QByteArray& line) {
  const Brivon1::PanelLine tri = Brivon1::AsPanelLine(line, Brivon1::kTri);
  const Brivon1::PanelLine mono = Brivon1::AsPanelLine(line, Brivon1::kMono);
  Must(tri.code.size() <= 5 && tri.code == mono.code, "a code of five characters");
  Must(mono.text == WithoutColours(tri.text),
       "one colour: the same without colours and outer blanks");
  Must(!tri.text.contains("HH:MM") && !tri.text.contains("DD MMM YYYY"),
       "date and time are the panel's");
}

/// The clipboard is a reader too: whatever other programs put there.
void MustBeClips(const QByteArray& input, const PageRow& row) {
  const auto pasted = Brivon1::ReadRowClip(input);
  if (pasted) {
    const auto again = Brivon1::ReadRowClip(Brivon1::RowClip(*pasted));
    Must(pasted->Length() == 0 || (again && again->ShowsTheSameAs(*pasted)),
         "a clip that is copied again is the same");
  }
  const auto copied = Brivon1::ReadRowClip(Brivon1::RowClip(row));
  Must(!copied || copied->Length() <= row.Length(), "a clip has what was copied");
}

}  // namespace

void CheckCodedText(const QByteArray& input) {
  const PageRow row = RowOf(input);
  Must(row.Length() <= input.size(), "no more characters than bytes");
  MustBeWhatAPanelReads(input, row);
  const QByteArray written = Brivon1::CodedText(row);
  if (!SpellsACode(row.Text())) {
    Must(RowOf(written).ShowsTheSameAs(row), "what is written is read as the same");
    Must(Brivon1::CodedText(RowOf(written)) == written, "and written as the same");
  }
  const QByteArray stripped = Brivon1::StripColourCodes(input);
  Must(stripped.size() <= input.size(), "taking out makes nothing longer");
  Must((input.size() - stripped.size()) % Brivon1::kAttributeCodeLength == 0,
       "whole codes are taken out");
  MustBeClips(input, row);
  MustBePanelLines(input);
  MustBePanelLines("<L01>" + written);
}

}  // namespace Fuzz
