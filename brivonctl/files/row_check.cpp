#include "files/row_check.h"

#include <array>

#include <QDateTime>

#include "base/code_page.h"
#include "base/text.h"
#include "files/file_report.h"
#include "page/page_picture.h"
#include "panel_dots/dot_matrix.h"
#include "row/coded_text.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

using PanelDots::Cell;

/// Any date and time take the same dots.
const PanelDots::RowLook kLook = {true, true, QDateTime(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC)};

/// Bytes that a text has where it should not, each once however often.
class OddBytes {
 public:
  void Add(char byte) { has_[static_cast<unsigned char>(byte)] = true; }

  /// A sentence for each of the first few, and how many there are besides.
  template <typename Sentence>
  QStringList Sentences(const Sentence& sentence) const {
    constexpr int kMost = 5;
    QStringList sentences;
    int count = 0;
    for (std::size_t byte = 0; byte < has_.size(); ++byte) {
      if (has_[byte] && ++count <= kMost) sentences.append(sentence(static_cast<char>(byte)));
    }
    if (count > kMost) sentences.append(u"and %1 more of that kind"_s.arg(count - kMost));
    return sentences;
  }

 private:
  std::array<bool, 256> has_{};
};

QString TagWarning(const RowLineCheck& check) {
  const QByteArray tag = "<L" + Brivon1::ZeroPadded(check.number, 2) + '>';
  if (check.line.startsWith(tag)) return {};
  const QString right = QString::fromLatin1(tag);
  if (check.line.startsWith("<L" + QByteArray::number(check.number) + '>')) {
    return u"with a tag of one digit the panel misses the row; write %1"_s.arg(right);
  }
  return u"without its tag in front the panel misses the row; write %1"_s.arg(right);
}

QString LengthWarning(const QList<Cell>& cells, int columns) {
  const qsizetype first = PanelDots::FirstCut(cells, columns, kLook);
  if (first >= cells.size()) return {};
  qsizetype end = cells.size();
  const auto is_dark = [&](const Cell& cell) {
    return !PanelDots::HasLightBehind({cell}, 0, kLook);
  };
  while (end > first + 1 && is_dark(cells[end - 1])) --end;
  const int dots = PanelDots::ColumnsOf(cells.first(end), kLook.clock);
  const QString room = u"%1 dots in %2"_s.arg(dots).arg(columns);
  return end - first == 1
             ? u"the last character is not seen or not seen whole: %1"_s.arg(room)
             : u"the last %1 characters are not seen or not seen whole: %2"_s.arg(end - first)
                   .arg(room);
}

/// Symbols, colours and characters that there are none of.
QStringList CellWarnings(const QList<Cell>& cells) {
  const Brivon1::CodePage& code_page = Brivon1::CodePage::System();
  OddBytes symbols;
  OddBytes colours;
  OddBytes characters;
  for (const Cell& cell : cells) {
    const bool is_symbol = cell.kind == Cell::Kind::kGraphic;
    const bool is_character = cell.kind == Cell::Kind::kCharacter;
    if (is_symbol && (cell.character < 'A' || cell.character > 'Z')) symbols.Add(cell.character);
    if (cell.colour < 'A' || cell.colour > 'P') colours.Add(cell.colour);
    if (is_character && !code_page.IsPrintable(cell.character)) characters.Add(cell.character);
  }
  return symbols.Sentences([](char letter) {
    return letter == '<' ? u"a code behind \"~\" makes no symbol"_s
                         : u"there is no symbol %1; there are ~A to ~Z"_s.arg(
                               Quoted(QByteArray("~") + letter));
  }) + colours.Sentences([](char letter) {
    return u"there is no colour %1; there are <CA> to <CP>"_s.arg(
        Quoted(QByteArray("<C") + letter + '>'));
  }) + characters.Sentences([](char byte) {
    return u"%1 is no character; the panel shows a blank"_s.arg(Quoted(QByteArray(1, byte)));
  });
}

/// Size codes that change nothing.
QStringList SizeWarnings(QByteArrayView text) {
  OddBytes sizes;
  Brivon1::Attributes attributes;
  Brivon1::PageRow none;
  for (qsizetype code = text.indexOf('<'); code >= 0; code = text.indexOf('<')) {
    text = text.sliced(code);
    const qsizetype length = Brivon1::ReadCodedText(text, attributes, none);
    if (length > 1 && text[1] == 'S' && (text[2] < 'A' || text[2] > 'H')) {
      sizes.Add(text[2]);
    }
    text = text.sliced(length);
  }
  return sizes.Sentences([](char letter) {
    return u"there is no size %1; there are <SA> to <SH>"_s.arg(
        Quoted(QByteArray("<S") + letter + '>'));
  });
}

/// The editor carries attributes on from row to row, a panel begins each row anew.
QString BeginningWarning(const QList<Cell>& cells, const Brivon1::PageRow& row) {
  if (cells.isEmpty() || row.Length() == 0) return {};
  const Cell& cell = cells.first();
  const Brivon1::Attributes edited = row.AttributesAt(0);
  const bool is_blinking = edited.blink == Brivon1::kBlinking;
  if (cell.size == edited.size && cell.colour == edited.colour && cell.blinking == is_blinking) {
    return {};
  }
  return u"the row begins without a size or a colour: the editor goes on as the row above ends, "
         "the panel begins with <SA><CA>"_s;
}

}  // namespace

QStringList RowWarnings(const RowLineCheck& check) {
  const QList<Cell> cells = Brivon1::PanelCells(check.line, Brivon1::kTri);
  QStringList warnings{TagWarning(check), LengthWarning(cells, check.columns)};
  warnings.append(CellWarnings(cells));
  warnings.append(SizeWarnings(check.line));
  warnings.append(BeginningWarning(cells, check.row));
  warnings.removeAll(QString());
  return warnings;
}

QStringList ScrollingWarnings(const QByteArray& text) {
  QStringList warnings = CellWarnings(PanelDots::ParseCells(text)) + SizeWarnings(text);
  for (const char* placeholder : {"DD MMM YYYY", "HH:MM"}) {
    if (!text.contains(placeholder)) continue;
    warnings.append(u"%1 scrolls as it stands; only a page shows the date and the time"_s.arg(
        Quoted(placeholder)));
  }
  if (text.contains('~')) {
    warnings.append(u"\"~\" scrolls as it stands; only a page shows symbols"_s);
  }
  return warnings;
}

}  // namespace BrivonCtl
