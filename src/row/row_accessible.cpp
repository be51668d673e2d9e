#include "row/row_accessible.h"

#include <algorithm>

#include <QAccessibleWidget>

#include "base/code_page.h"
#include "row/row_surface.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::Attributes;
using Brivon1::kCellWidth;
using Brivon1::PageRow;

QString TextOf(QByteArrayView characters) { return Brivon1::CodePage::System().ToText(characters); }

/// The name of a letter, the first of which is "A"; empty where it has none.
QString NameOf(const QStringList& names, char letter) { return names.value(letter - 'A'); }

/// The one place where two texts differ.
struct Difference {
  qsizetype position;
  QByteArrayView removed;
  QByteArrayView inserted;
};

/// Of several places that explain the difference, as in a row of equal letters, it is the one at
/// the cursor.
Difference DifferenceOf(const PageRow& before, const PageRow& after) {
  const QByteArrayView old_text = before.Text();
  const QByteArrayView new_text = after.Text();
  const qsizetype shorter = std::min(old_text.size(), new_text.size());
  const auto equal = std::mismatch(old_text.begin(), old_text.begin() + shorter, new_text.begin());
  const qsizetype in_front = equal.first - old_text.begin();
  const auto equal_behind =
      std::mismatch(old_text.rbegin(), old_text.rbegin() + shorter, new_text.rbegin());
  const qsizetype behind = equal_behind.first - old_text.rbegin();
  const qsizetype cursor = std::min(before.Cursor(), after.Cursor());
  const qsizetype position = std::clamp(cursor, std::min(shorter - behind, in_front), in_front);
  const qsizetype kept_behind = std::min(behind, shorter - position);
  return {position, old_text.sliced(position).chopped(kept_behind),
          new_text.sliced(position).chopped(kept_behind)};
}

class RowAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit RowAccessible(RowSurface* surface)
      : QAccessibleWidget(surface, QAccessible::EditableText) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = true;
    state.selectableText = true;
    return state;
  }

  QString text(QAccessible::Text kind) const override {
    switch (kind) {
      case QAccessible::Value:
        return TextOf(Row().Text());
      case QAccessible::Description:
        return (QStringList{InWords(), Surface().UrgentStatus()}).join(u' ').trimmed();
      case QAccessible::Help:
        return Surface().Status();
      default:
        return QAccessibleWidget::text(kind);
    }
  }

  // There is one selection at most: another one takes its place.
  int selectionCount() const override { return Row().HasSelection() ? 1 : 0; }
  void selection(int index, int* start, int* end) const override {
    const bool exists = index == 0 && Row().HasSelection();
    *start = exists ? static_cast<int>(Row().SelectionBegin()) : 0;
    *end = exists ? static_cast<int>(Row().SelectionEnd()) : 0;
  }
  void addSelection(int start, int end) override {
    if (Surface().isVisible()) Surface().Select(start, end);
  }
  void removeSelection(int index) override {
    if (index != 0 || !Row().HasSelection() || !Surface().isVisible()) return;
    Surface().Select(Row().Cursor(), Row().Cursor());
  }
  void setSelection(int index, int start, int end) override {
    if (index == 0) addSelection(start, end);
  }

  int characterCount() const override { return static_cast<int>(Row().Length()); }
  int cursorPosition() const override { return static_cast<int>(Row().Cursor()); }
  void setCursorPosition(int position) override {
    if (Surface().isVisible()) Surface().PutCursor(position);
  }

  QString text(int start, int end) const override {
    const qsizetype first = std::clamp<qsizetype>(start, 0, Row().Length());
    const qsizetype behind = std::clamp(static_cast<qsizetype>(end), first, Row().Length());
    return TextOf(QByteArrayView(Row().Text()).sliced(first, behind - first));
  }

  /// The place behind the last character counts as one: the cursor stands there.
  QRect characterRect(int offset) const override {
    const RowSpan span = Surface().Span();
    if (offset < span.first || offset > span.Behind(Row())) return {};
    const int left = static_cast<int>(offset - span.first) * kCellWidth;
    return {Surface().mapToGlobal(QPoint(left, 0)), QSize(kCellWidth, kCellHeight)};
  }

  int offsetAtPoint(const QPoint& point) const override {
    const RowSpan span = Surface().Span();
    const QPoint place = Surface().mapFromGlobal(point);
    if (!Surface().rect().contains(place)) return -1;
    const qsizetype offset = span.first + place.x() / kCellWidth;
    return offset < span.Behind(Row()) ? static_cast<int>(offset) : -1;
  }

  // What is in sight follows the cursor.
  void scrollToSubstring(int /*start*/, int /*end*/) override {}

  /// The attributes stand in words under the one name whose value reaches the desktop's readers as
  /// it is: of a colour they would only be given numbers, of blinking nothing.
  QString attributes(int offset, int* start, int* end) const override {
    *start = *end = -1;
    if (offset < 0 || offset >= Row().Length()) return {};
    const Attributes attributes = Row().AttributesAt(offset);
    qsizetype first = offset;
    while (first > 0 && Row().AttributesAt(first - 1) == attributes) --first;
    qsizetype behind = offset + 1;
    while (behind < Row().Length() && Row().AttributesAt(behind) == attributes) ++behind;
    *start = static_cast<int>(first);
    *end = static_cast<int>(behind);
    return u"font-family:%1;"_s.arg(InWords(attributes));
  }

 private:
  RowSurface& Surface() const { return *static_cast<RowSurface*>(object()); }
  const PageRow& Row() const { return Surface().Row(); }

  QString InWords(const Attributes& attributes) const {
    // A language file may name them by what separates attributes.
    QString joined = AttributeNames(Surface().Words(), attributes).join(", "_L1);
    for (const QChar separator : {u':', u';'}) joined.replace(separator, u' ');
    return joined;
  }

  /// The row with the names of what its placeholders stand for; empty where it has none.
  QString InWords() const {
    QString text;
    bool has_placeholder = false;
    const QByteArrayView characters = Row().Text();
    for (qsizetype at = 0; at < characters.size();) {
      const auto& placeholders = Surface().Words().placeholders;
      const auto found = std::find_if(
          placeholders.begin(), placeholders.end(), [&](const SpokenPlaceholder& placeholder) {
            return characters.sliced(at).startsWith(placeholder.characters);
          });
      if (found == placeholders.end()) {
        text += Brivon1::CodePage::System().ToCharacter(characters[at++]);
        continue;
      }
      has_placeholder = true;
      text += u' ' + found->name + u' ';
      at += found->characters.size();
    }
    return has_placeholder ? text.simplified() : QString();
  }
};

}  // namespace

RowWords::RowWords() : blinking(u"Blinking"_s) {
  for (const char* name : Brivon1::kColourNames) colours.append(QLatin1String(name));
  for (const char* name : Brivon1::kSizeNames) sizes.append(QLatin1String(name));
}

QStringList AttributeNames(const RowWords& words, const Attributes& attributes) {
  QStringList names = {NameOf(words.colours, attributes.colour),
                       NameOf(words.sizes, attributes.size)};
  if (attributes.blink == Brivon1::kBlinking) names.append(words.blinking);
  names.removeAll(QString());
  return names;
}

QAccessibleInterface* MakeRowAccessible(const QString& /*class_name*/, QObject* object) {
  auto* surface = qobject_cast<RowSurface*>(object);
  return surface == nullptr ? nullptr : new RowAccessible(surface);
}

void TellRowChange(RowSurface& surface, const PageRow& before) {
  if (!QAccessible::isActive()) return;  // nobody reads along
  const PageRow& row = surface.Row();
  const int cursor = static_cast<int>(row.Cursor());
  const auto tell = [cursor](QAccessibleTextCursorEvent&& event) {
    event.setCursorPosition(cursor);
    QAccessible::updateAccessibility(&event);
  };
  const Difference difference = DifferenceOf(before, row);
  const int position = static_cast<int>(difference.position);
  const QString removed = TextOf(difference.removed);
  const QString inserted = TextOf(difference.inserted);
  if (!removed.isEmpty() && !inserted.isEmpty()) {
    tell(QAccessibleTextUpdateEvent(&surface, position, removed, inserted));
  } else if (!removed.isEmpty()) {
    tell(QAccessibleTextRemoveEvent(&surface, position, removed));
  } else if (!inserted.isEmpty()) {
    tell(QAccessibleTextInsertEvent(&surface, position, inserted));
  }
  if (before.Cursor() != row.Cursor()) tell(QAccessibleTextCursorEvent(&surface, cursor));
  if (before.SelectionBegin() == row.SelectionBegin() &&
      before.SelectionEnd() == row.SelectionEnd()) {
    return;
  }
  if (before.HasSelection() || row.HasSelection()) {
    tell(QAccessibleTextSelectionEvent(&surface, static_cast<int>(row.SelectionBegin()),
                                       static_cast<int>(row.SelectionEnd())));
  }
}
