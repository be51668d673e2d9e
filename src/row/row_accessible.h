// What a screen reader is told of the surface of a row: an editable text with its cursor, each
// character with its colour, size and blinking, and every change as it happens.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include "row/page_row.h"

class QAccessibleInterface;
class QObject;
class RowSurface;

/// Characters that a panel replaces by something else, and what that is called.
struct SpokenPlaceholder {
  QByteArray characters;
  QString name;
};

/// What the characters of a row are called. It is English unless a window has other captions.
struct RowWords {
  RowWords();

  QStringList colours;  ///< By letter, the first one is "A".
  QStringList sizes;    ///< By letter, the first one is "A".
  QString blinking;
  QList<SpokenPlaceholder> placeholders;
};

/// The names of a character's colour and size, and of blinking where it does; without those that
/// have none.
QStringList AttributeNames(const RowWords& words, const Brivon1::Attributes& attributes);

/// Makes the accessible interface of a RowSurface; null for any other object. It is a factory as
/// the toolkit asks for them.
QAccessibleInterface* MakeRowAccessible(const QString& class_name, QObject* object);

/// Tells screen readers in what the row of `surface` differs from what it was `before`.
void TellRowChange(RowSurface& surface, const Brivon1::PageRow& before);
